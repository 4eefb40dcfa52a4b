#include "bridge/lisp.h"

#include "base/format.h"
#include "base/text.h"
#include "bridge/lisp_call.h"
#include "bridge/platform.h"

namespace ryv {

namespace {

/// What the host's LISP takes at once in this place, the terminating zero included.
constexpr std::size_t exposeBuffer = 128;

} // namespace

LispStatus invokeLisp(const HostResultBuffer& call, HostResultBuffer& result) {
    if (!platform().host.documents->hasCurrentDocument())
        return LispStatus::noDocument;
    return platform().host.lisp->invoke(call, result);
}

bool invokeLispForString(CStringView function, CString& result) {
    return callLispForString(HostResultBuffer().addString(function), result);
}

bool invokeLispForString(CStringView function, CStringView argument, CString& result) {
    return callLispForString(HostResultBuffer().addString(function).addString(argument), result);
}

LispStatus evaluateLisp(CStringView expression) {
    HostResultBuffer value;
    return invokeLisp(HostResultBuffer().addString(u"veval-str+").addString(expression), value);
}

LispStatus exposeLispFunction(CStringView name) {
    const CString expression = format(platform().host.lisp->exposeFunctionFormat(), {name});
    return expression.size() < exposeBuffer ? evaluateLisp(expression) : LispStatus::failure;
}

bool readLispGlobal(CStringView name, CString& value) {
    return invokeLispForString(u"ryv_get_var", name, value);
}

bool readLispGlobal(CStringView name, int& value) {
    HostResultBuffer reply;
    if (invokeLisp(HostResultBuffer().addString(u"ryv_get_var").addString(name), reply) !=
        LispStatus::success)
        return false;
    if (const std::int16_t* const number = reply.integerAt(0)) {
        value = *number;
        return true;
    }
    const CString* const text = reply.stringAt(0);
    if (!text)
        return false;
    value = leadingInteger(*text);
    return value != 0;
}

bool setSelectedDrawings(const CStringArray& paths) {
    if (!platform().host.documents->hasCurrentDocument())
        return false;
    const HostResultBuffer list = HostResultBuffer().addStrings(paths);
    return platform().host.lisp->setSymbol(u"GBL_SELECTED_DWGS", list) == LispStatus::success;
}

} // namespace ryv
