// Questions to the user without a window: answered from a file, or line by line on the terminal.
#pragma once

#include "embedded/services/answers.h"
#include "embedded/services/text_terminal.h"
#include "platform/ui/user_interface.h"

#include <optional>

namespace drafta {

/// Each question is printed; control characters in it are shown as blanks. The answers file is asked first,
/// then the person; what neither answers is cancelled, with a warning that names the line of an answers file
/// that would have answered it.
class TextUserInterface final : public ryv::NullUserInterface {
public:
    explicit TextUserInterface(TextTerminal terminal);

    void setAnswers(Answers answers) { answers_ = std::move(answers); }

    /// Whether the answers file answers a question, so that nobody needs to be asked.
    bool hasAnswer(ryv::CStringView kind, ryv::CStringView name) const { return answers_.has(kind, name); }

    /// What is asked before a file that is there is replaced; `path` as people know it.
    static ryv::MessageBoxRequest replaceQuestion(ryv::CStringView path);

    ryv::Answer messageBox(const ryv::MessageBoxRequest& request) override;
    int taskDialog(const ryv::TaskDialogRequest& request) override;
    /// A new name gets the extension that it lacks; a file that is there is replaced only after message 2 was
    /// answered with yes. A file to be opened must exist.
    std::vector<ryv::CString> chooseFiles(const ryv::FileRequest& request) override;
    bool fillForm(ryv::FormRequest& request) override;
    /// Answered by "dialog NAME:" with a script (toolkit/dialog_script.h). A line that leaves the dialog open
    /// cancels it, with a warning that says what kept it open.
    int runModal(ryv::Dialog& dialog) override;
    /// Answered by "menu NAME:" with the number or the text of a command; "cancel" or nothing chooses none.
    int popupMenu(const ryv::Menu& menu, ryv::ScreenPoint place) override;
    std::unique_ptr<ryv::Progress> beginProgress(int title, std::size_t count) override;

    /// While a dialog is open, whether it asks right now or not, the host is not to be left.
    bool hasOpenDialog() const noexcept { return openDialogs_ != 0; }

private:
    struct Question {
        ryv::CStringView kind;
        ryv::CString name;
        ryv::CString prompt;
    };
    template <class Button, class Pressed>
    const Button* choose(const Question& question, const Pressed& pressed);
    bool isBrokenOff() const;
    std::optional<ryv::CString> answer(ryv::CStringView kind, ryv::CStringView name, ryv::CStringView prompt);
    void unanswered(ryv::CStringView kind, ryv::CStringView name);
    void doesNotFit(
        ryv::CStringView kind, ryv::CStringView name, ryv::CStringView line, ryv::CStringView problem = {});
    void answerDialog(ryv::Dialog& dialog);
    bool acceptFile(const ryv::FileRequest& request, ryv::CString& path);
    bool answerForm(ryv::FormRequest& request, ryv::CStringView line);
    bool askForm(ryv::FormRequest& request);
    bool isConfirmed(const ryv::FormRequest& request);
    bool accept(ryv::FormField& field, const ryv::CStringArray& values);
    bool accept(ryv::FormRequest& request, ryv::CStringView name, const ryv::CStringArray& values);

    TextTerminal terminal_;
    Answers answers_;
    int openDialogs_ = 0;
};

} // namespace drafta
