// What the lines of a drawing section begin with. The reader and the writer look for the same literals.
#pragma once

#include "base/strings.h"

namespace ryv::prefix {

inline constexpr CStringView firstDescription = u"=";
inline constexpr CStringView secondDescription = u"==";
inline constexpr CStringView furtherDescription = u"===";
inline constexpr CStringView reference = u"====REF";
inline constexpr CStringView subfolder = u"=====SUB=";
/// What stands behind the "=" signs of the last two.
inline constexpr CStringView referenceWord = reference.substr(4);
inline constexpr CStringView subfolderWord = subfolder.substr(5);

inline constexpr CStringView empty = u"[Empty]";

} // namespace ryv::prefix
