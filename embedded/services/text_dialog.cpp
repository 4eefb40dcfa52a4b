#include "embedded/services/text_dialog.h"

#include "base/format.h"
#include "base/text.h"
#include "embedded/services/host_texts.h"
#include "toolkit/dialog_script.h"
#include "toolkit/plain_text.h"
#include "toolkit/property_sheet.h"

#include <algorithm>

namespace drafta {

TextDialog::TextDialog(const TextTerminal& terminal, ryv::Dialog& dialog)
    : terminal_(terminal), dialog_(dialog),
      changes_(dialog.changed.subscribe([this](const ryv::Control& control) { noteChange(control); })) {}

void TextDialog::show() {
    terminal_.print(u"\n" + renderer_.dialog(dialog_));
}

void TextDialog::noteChange(const ryv::Control& control) {
    if (std::find(changed_.begin(), changed_.end(), &control) == changed_.end())
        changed_.push_back(&control);
}

int TextDialog::page() const {
    const auto* const sheet = dynamic_cast<const ryv::PropertySheet*>(&dialog_);
    return sheet ? sheet->activePage() : -1;
}

ryv::CString TextDialog::pressDefault() {
    if (dialog_.pressDefault())
        return {};
    return u"there is no button to press by default";
}

ryv::CString TextDialog::answer(ryv::CStringView line) {
    const ryv::ScriptResult result = ryv::runDialogScript(dialog_, line);
    ryv::CString problem = result.problem;
    if (result.ok() && !result.endsWithButton && dialog_.isOpen())
        problem = pressDefault();
    if (problem.empty() && dialog_.isOpen())
        problem = u"it stays open";
    return problem;
}

ryv::CString TextDialog::prompt() const {
    ryv::CString text = ryv::onOneLine(dialog_.name().empty() ? dialog_.title() : dialog_.name());
    if (const ryv::Control* const button = dialog_.find(dialog_.defaultButton()))
        text += u" <" + ryv::onOneLine(ryv::withoutMarks(button->label())) + u">";
    return text + u": ";
}

bool TextDialog::ask() {
    terminal_.print(
        hostText(u"(NAME=VALUE fills in, the name of a button presses it, ? shows everything again)\n"));
    while (dialog_.isOpen()) {
        const std::optional<ryv::CString> line = terminal_.ask(prompt());
        // It may have been closed while the person was typing.
        if (line && dialog_.isOpen())
            obey(ryv::trim(*line));
        else if (!line)
            return !dialog_.isOpen();
    }
    return true;
}

void TextDialog::obey(ryv::CStringView line) {
    if (line == u"?") {
        show();
        return;
    }
    changed_.clear();
    const int pageBefore = page();
    const int focusBefore = dialog_.focus();
    const ryv::CString problem = line.empty() ? pressDefault() : ryv::runDialogScript(dialog_, line).problem;
    if (!problem.empty())
        terminal_.print(ryv::format(u"\n%s\n", {problem}));
    if (dialog_.isOpen())
        showChanges(pageBefore, focusBefore);
}

/// What the person has not typed: what follows from it, and where the dialog wants to be looked at.
void TextDialog::showChanges(int pageBefore, int focusBefore) {
    if (page() != pageBefore) {
        show();
        return;
    }
    const ryv::Control* const focus = dialog_.find(dialog_.focus());
    if (focus && dialog_.focus() != focusBefore)
        noteChange(*focus);
    ryv::CString text;
    for (const ryv::Control* const control : changed_)
        text += renderer_.control(*control);
    if (!text.empty())
        terminal_.print(u"\n" + text);
}

} // namespace drafta
