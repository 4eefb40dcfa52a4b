// Questions to the user in windows.
#pragma once

#include "embedded/qt/controls/control_view.h"
#include "embedded/qt/dialogs/last_used_control.h"
#include "embedded/qt/dialogs/open_questions.h"
#include "embedded/qt/dialogs/progress_window.h"
#include "embedded/qt/dialogs/window_sizes.h"
#include "embedded/services/text_user_interface.h"

namespace drafta {

struct QuestionContent;

struct QtUserInterfaceOptions {
    /// The window that questions stand before; null for none.
    std::function<QWidget*()> window;
    /// Paths of files, as the module and as the system have them.
    std::function<QString(ryv::CStringView)> toNative;
    std::function<ryv::CString(const QString&)> toModulePath;
    WindowSizes sizes;
    /// Called with true when a question begins to stand and with false when it ends, in pairs that nest.
    /// Meanwhile messages are to be handled, queued commands are not.
    std::function<void(bool)> questionStands;
    /// Whether the host is being left: from then on every question is cancelled.
    std::function<bool()> hasQuit;
    /// A clock for progress; unset: the system's.
    std::function<std::int64_t()> milliseconds;
};

/// What the answers file answers is answered by it, and printed as without a display; a window asks the
/// person the rest. Each operation runs an event loop of its own; they nest.
class QtUserInterface final : public ryv::UserInterface {
public:
    /// `text` answers from its file; it and the context of the dialogs' views outlive this.
    QtUserInterface(TextUserInterface& text, ViewContext& context, QtUserInterfaceOptions options);

    ryv::Answer messageBox(const ryv::MessageBoxRequest& request) override;
    int taskDialog(const ryv::TaskDialogRequest& request) override;
    std::vector<ryv::CString> chooseFiles(const ryv::FileRequest& request) override;
    bool fillForm(ryv::FormRequest& request) override;
    int runModal(ryv::Dialog& dialog) override;
    int popupMenu(const ryv::Menu& menu, ryv::ScreenPoint place) override;
    std::unique_ptr<ryv::Progress> beginProgress(int title, std::size_t count) override;

    /// Whether a question stands, in a window or from the file: the host is not to be left then.
    bool hasOpenDialog() const noexcept { return questions_.any() || text_.hasOpenDialog(); }

    /// Cancels all questions that stand, the innermost first; to be called when the host is being left.
    void closeAll() { questions_.closeAll(); }

private:
    template <class FromFile, class Cancelled, class InWindow>
    auto answered(ryv::CStringView kind, ryv::CStringView name, const FromFile& fromFile,
        const Cancelled& cancelled, const InWindow& inWindow) -> decltype(fromFile());
    int ask(const QuestionContent& content, OpenQuestions::Standing& standing) const;
    QWidget* parent() const;
    bool mayReplace(ryv::CStringView path);
    std::vector<ryv::CString> filesFromAnswers(const ryv::FileRequest& request);
    std::vector<ryv::CString> filesFromWindow(
        const ryv::FileRequest& request, OpenQuestions::Standing& standing);
    int runInWindow(ryv::Dialog& dialog, OpenQuestions::Standing& standing);
    QPoint placeOf(ryv::ScreenPoint place, QSize menu) const;

    TextUserInterface& text_;
    ViewContext& context_;
    QtUserInterfaceOptions options_;
    OpenQuestions questions_;
    LastUsedControl lastUsed_;
    ProgressSite progress_;
};

} // namespace drafta
