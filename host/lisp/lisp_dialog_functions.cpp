#include "host/lisp/lisp_dialog_functions.h"

#include "bridge/platform.h"
#include "ui/dialogs/settings/override_dialog.h"

#include <map>

namespace ryv::lisp_functions {

namespace {

using Variables = std::map<CString, CString>; // in the order of the units, whatever the language

/// Nothing when one of the values is no string.
std::optional<CStringArray> stringsOf(const LispValues& values) {
    CStringArray texts;
    for (std::size_t i = 0; i < values.count(); ++i) {
        const CString* const text = values.string(i);
        if (!text)
            return std::nullopt;
        texts.push_back(*text);
    }
    return texts;
}

/// Takes a key and its value, which may stand in a list or make up a dotted pair; false for anything else.
bool takePair(const LispValues& pair, Variables& variables) {
    const bool dotted = pair.is(1, ResultType::dot);
    const CString* const key = pair.string(0);
    const CString* const value = pair.string(dotted ? 2 : 1);
    if (!key || !value || pair.count() != (dotted ? 3u : 2u))
        return false;
    if (!key->empty())
        variables[*key] = *value;
    return true;
}

Variables variablesIn(const LispValues& pairs) {
    Variables variables;
    for (std::size_t i = 0; i < pairs.count(); ++i) {
        const std::optional<LispValues> pair = pairs.list(i);
        if (!pair || !takePair(*pair, variables))
            break;
    }
    return variables;
}

} // namespace

LispAnswer overrideCrossReferences(const LispValues& arguments) {
    const std::optional<LispValues> values = arguments.list(0);
    const std::optional<CStringArray> texts = values ? stringsOf(*values) : std::nullopt;
    if (!texts || texts->size() != CRyvCfgCrossRefCompOverrideDlg::valueCount)
        return LispAnswer::wrong();
    CRyvCfgCrossRefCompOverrideDlg dialog(*texts);
    if (platform().ui->runModal(dialog) != Dialog::idOk)
        return LispAnswer::nil();
    return LispAnswer::list(dialog.values());
}

LispAnswer showTaskDialog(const LispValues& arguments) {
    const CString* const id = arguments.string(0);
    if (!id)
        return LispAnswer::wrong();
    const std::optional<LispValues> pairs = arguments.list(1);
    const Variables variables = pairs ? variablesIn(*pairs) : Variables();
    TaskDialogRequest request;
    if (!platform().services.taskDialogs->load(*id, {variables.begin(), variables.end()}, request))
        return LispAnswer::nil();
    return LispAnswer::number(platform().ui->taskDialog(request));
}

} // namespace ryv::lisp_functions
