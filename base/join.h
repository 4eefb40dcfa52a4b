// Texts put together to one.
#pragma once

#include "base/strings.h"

namespace ryv {

/// The texts in their order, with the separator between two of them. The inverse of split() for a list that
/// is not empty.
template <class Texts>
CString join(const Texts& texts, CStringView separator) {
    CString joined;
    bool first = true;
    for (const CStringView text : texts) {
        if (!first)
            joined += separator;
        joined += text;
        first = false;
    }
    return joined;
}

} // namespace ryv
