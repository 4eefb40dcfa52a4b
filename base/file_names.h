// What names of files may hold.
#pragma once

#include "base/strings.h"

#include <algorithm>

namespace ryv {

/// Characters that the name of a file does not hold on one of the systems that projects are shared between;
/// nor does it hold control characters.
inline constexpr CStringView forbiddenInFileNames = u"<>:\"/\\|?*";

inline bool holdsControls(CStringView name) noexcept {
    return std::any_of(name.begin(), name.end(), [](char16_t unit) { return unit < u' '; });
}

inline bool isFileName(CStringView name) noexcept {
    return !holdsControls(name) && name.find_first_of(forbiddenInFileNames) == CStringView::npos;
}

} // namespace ryv
