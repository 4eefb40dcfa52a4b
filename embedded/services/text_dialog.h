// One open dialog on a terminal: shown as text, answered by a line of an answers file or by a person.
#pragma once

#include "embedded/services/text_terminal.h"
#include "toolkit/dialog.h"
#include "toolkit/text_renderer.h"

#include <vector>

namespace drafta {

/// Lines are scripts as toolkit/dialog_script.h describes them. Other dialogs may open meanwhile.
class TextDialog {
public:
    TextDialog(const TextTerminal& terminal, ryv::Dialog& dialog);

    void show();

    /// Answers with one line, and where that presses no button at its end, with the default button. Empty
    /// when the dialog has ended, else why it has not.
    ryv::CString answer(ryv::CStringView line);

    /// Asks for lines until the dialog has ended; false when nobody gives one any more. An empty line presses
    /// the default button, "?" shows the dialog again.
    bool ask();

private:
    void obey(ryv::CStringView line);
    void showChanges(int pageBefore, int focusBefore);
    void noteChange(const ryv::Control& control);
    int page() const;
    ryv::CString prompt() const;
    ryv::CString pressDefault();

    const TextTerminal& terminal_;
    ryv::Dialog& dialog_;
    ryv::TextRenderer renderer_{ryv::RenderOptions{true}};
    std::vector<const ryv::Control*> changed_; // since the last line, in the order of changing
    ryv::Subscription changes_;
};

} // namespace drafta
