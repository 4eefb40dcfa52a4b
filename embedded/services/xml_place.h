// Where in an XML file something is wrong, for the person who is to mend it.
#pragma once

#include "base/format.h"

#include <algorithm>
#include <string_view>

namespace drafta {

/// "line 3: REASON"; `offset` is the parser's, in bytes, and is held to the file.
inline ryv::CString problemAt(std::string_view bytes, std::ptrdiff_t offset, ryv::CStringView reason) {
    const auto end = bytes.begin() + std::clamp<std::ptrdiff_t>(offset, 0, std::ssize(bytes));
    return ryv::format(u"line %d: %s", {1 + std::count(bytes.begin(), end, '\n'), reason});
}

} // namespace drafta
