#include "bridge/environment.h"

#include "bridge/lisp.h"
#include "bridge/lisp_call.h"

#include <array>

namespace ryv {

namespace {
constexpr std::array<CStringView, 4> codedNames{u"KQ_LIB", u"KQ_MENU", u"KQ_PNL", u"KQ_PMENU"};
}

bool readEnvironment(CStringView name, CString& value) {
    return invokeLispForString(u"c:kq_getenv", name, value);
}

bool readEnvironment(int code, CString& value) {
    if (code < 1 || code > static_cast<int>(codedNames.size()))
        return false;
    return readEnvironment(codedNames[static_cast<std::size_t>(code - 1)], value);
}

CString lispMessage(CStringView id, CStringView defaultText) {
    CString text(defaultText);
    callLispForString(
        HostResultBuffer().addString(u"c:kq_msg").addString(id).addNil().addString(defaultText), text);
    return text;
}

} // namespace ryv
