#include "toolkit/dialog_script.h"

#include "base/fold.h"
#include "base/format.h"
#include "base/text.h"
#include "toolkit/plain_text.h"
#include "toolkit/property_sheet.h"
#include "toolkit/script_text.h"
#include "toolkit/script_values.h"

namespace ryv {

namespace {

/// The name in front of the first "=" outside of quotes, and what follows; a press has the name "press".
struct Step {
    CString name;
    CStringView value;
};

Step parse(CStringView step) {
    const std::size_t equals = step.find(u'=');
    if (equals == CStringView::npos)
        return {u"press", trim(step)};
    return {CString(trim(step.substr(0, equals))), trim(step.substr(equals + 1))};
}

/// The label without what leads over to the field or to another dialog.
CString bareLabel(const Control& control) {
    CString label = withoutMarks(control.label());
    while (!label.empty() && (label.back() == u':' || label.back() == u'.'))
        label.pop_back();
    return label;
}

/// One of the buttons, or one of the other controls.
Control* findControl(const Dialog& dialog, CStringView name, bool amongButtons) {
    const auto find = [&](auto fits) -> Control* {
        for (Control* const control : dialog.controls())
            if ((control->kind() == ControlKind::button) == amongButtons && fits(*control))
                return control;
        return nullptr;
    };
    if (name.empty())
        return nullptr;
    if (Control* const named =
            find([&](const Control& control) { return equalNoCase(control.name(), name); }))
        return named;
    if (Control* const labelled = find([&](const Control& control) {
            return control.kind() != ControlKind::label && equalNoCase(bareLabel(control), name);
        }))
        return labelled;
    return find([&](const Control& control) { return toText(control.id()) == name; });
}

CString press(Dialog& dialog, CStringView name) {
    auto* const button = dynamic_cast<Button*>(findControl(dialog, name, true));
    if (!button && equalNoCase(name, u"cancel")) {
        dialog.pressCancel();
        return {};
    }
    if (!button)
        return format(u"there is no button \"%s\"", {name});
    if (!button->isUsable())
        return format(u"%s is %s", {name, button->isVisible() ? u"disabled" : u"not shown"});
    button->press();
    return {};
}

CString turnTo(PropertySheet& sheet, CStringView name) {
    const auto& pages = sheet.pages();
    for (std::size_t i = 0; i < pages.size(); ++i)
        if (equalNoCase(pages[i].name, name) || equalNoCase(pages[i].title, name)) {
            sheet.turnTo(static_cast<int>(i));
            return {};
        }
    return format(u"there is no page \"%s\"", {name});
}

CString give(Dialog& dialog, const Step& step) {
    Control* const control = findControl(dialog, step.name, false);
    if (!control)
        return format(u"there is no control \"%s\"", {step.name});
    if (control->isUsable())
        dialog.setFocus(control->id());
    const CString problem = giveValue(*control, step.value);
    return problem.empty() ? CString() : step.name + u" " + problem;
}

} // namespace

bool isPress(CStringView step) noexcept {
    const std::size_t equals = step.find(u'=');
    return equals == CStringView::npos || equalNoCase(trim(step.substr(0, equals)), u"press");
}

CString runDialogStep(Dialog& dialog, CStringView text) {
    if (!dialog.isOpen())
        return u"the dialog has ended";
    const Step step = parse(text);
    if (isPress(text))
        return press(dialog, unquoted(step.value));
    auto* const sheet = dynamic_cast<PropertySheet*>(&dialog);
    if (sheet && equalNoCase(step.name, u"page"))
        return turnTo(*sheet, unquoted(step.value));
    return give(dialog, step);
}

ScriptResult runDialogScript(Dialog& dialog, CStringView script) {
    ScriptResult result;
    for (const CString& step : splitUnquoted(script, u';')) {
        if (step.empty())
            continue;
        result.problem = runDialogStep(dialog, step);
        if (!result.problem.empty()) {
            result.failedStep = step;
            break;
        }
        ++result.steps;
        result.endsWithButton = isPress(step);
    }
    return result;
}

} // namespace ryv
