#include "bridge/tag_format_globals.h"

#include "bridge/lisp.h"

namespace ryv {

namespace {
constexpr std::array<CStringView, 3> names{u"GBL_kq_tagloc_format_instloc_into_tag",
    u"GBL_kq_tagloc_redundant_instloc_suppress", u"GBL_kq_combined_tagloc_prefix"};
}

TagFormatGlobals readTagFormatGlobals() {
    TagFormatGlobals read;
    for (std::size_t i = 0; i < names.size(); ++i)
        read.globals[i].found = readLispGlobal(names[i], read.globals[i].value);
    return read;
}

} // namespace ryv
