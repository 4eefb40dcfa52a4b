// Questions to the user without a window: answered from a file, or line by line on the terminal.
#pragma once

#include "embedded/services/answers.h"
#include "platform/ui/user_interface.h"

#include <functional>
#include <optional>

namespace drafta {

/// Where texts go and lines come from.
struct TextTerminal {
    std::function<void(ryv::CStringView)> print;
    /// Messages about questions that nobody answered.
    std::function<void(ryv::CStringView)> warn;
    /// A line from the person in front of the terminal; nothing when nobody is there, or at the end of input.
    std::function<std::optional<ryv::CString>(ryv::CStringView prompt)> ask;
    /// A path as people write it, as module text.
    std::function<ryv::CString(ryv::CStringView)> toModulePath;
    /// The other way round, for showing.
    std::function<ryv::CString(ryv::CStringView)> shownPath;
    /// Whether there is a file at a module path.
    std::function<bool(ryv::CStringView)> exists;
};

/// Each question is printed. The answers file is asked first, then the person; what neither answers is
/// cancelled, with a warning that names the line of an answers file that would have answered it.
class TextUserInterface final : public ryv::NullUserInterface {
public:
    explicit TextUserInterface(TextTerminal terminal) : terminal_(std::move(terminal)) {}

    void setAnswers(Answers answers) { answers_ = std::move(answers); }

    ryv::Answer messageBox(const ryv::MessageBoxRequest& request) override;
    int taskDialog(const ryv::TaskDialogRequest& request) override;
    /// A new name gets the extension that it lacks; a file that is there is replaced only after message 2 was
    /// answered with yes. A file to be opened must exist.
    std::vector<ryv::CString> chooseFiles(const ryv::FileRequest& request) override;
    bool fillForm(ryv::FormRequest& request) override;

private:
    std::optional<ryv::CString> answer(ryv::CStringView kind, ryv::CStringView name, ryv::CStringView prompt);
    void unanswered(ryv::CStringView kind, ryv::CStringView name);
    bool acceptFile(const ryv::FileRequest& request, ryv::CString& path);
    bool answerForm(ryv::FormRequest& request, ryv::CStringView line);
    bool askForm(ryv::FormRequest& request);
    bool isConfirmed(const ryv::FormRequest& request);
    bool accept(ryv::FormField& field, const ryv::CStringArray& values);
    bool accept(ryv::FormRequest& request, ryv::CStringView name, const ryv::CStringArray& values);

    TextTerminal terminal_;
    Answers answers_;
};

} // namespace drafta
