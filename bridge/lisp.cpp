#include "bridge/lisp.h"

#include "base/text.h"
#include "bridge/platform.h"

namespace ryv {

namespace {

bool takeString(const HostResultBuffer& call, CString& result) {
    HostResultBuffer reply;
    if (invokeLisp(call, reply) != LispStatus::success)
        return false;
    const CString* const text = reply.stringAt(0);
    if (!text)
        return false;
    result = *text;
    return true;
}

} // namespace

LispStatus invokeLisp(const HostResultBuffer& call, HostResultBuffer& result) {
    if (!platform().host.documents->hasCurrentDocument())
        return LispStatus::noDocument;
    return platform().host.lisp->invoke(call, result);
}

bool invokeLispForString(CStringView function, CString& result) {
    return takeString(HostResultBuffer().addString(function), result);
}

bool invokeLispForString(CStringView function, CStringView argument, CString& result) {
    return takeString(HostResultBuffer().addString(function).addString(argument), result);
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

} // namespace ryv
