// The text of scripts: parts between separators, where double quotes keep what stands in them together.
#pragma once

#include "base/strings.h"

namespace ryv {

/// The parts between separators that stand outside of double quotes, without the blanks around them; always
/// at least one part.
CStringArray splitUnquoted(CStringView text, char16_t separator);

/// What stands between double quotes, a doubled one inside being one; a text without them as it is.
CString unquoted(CStringView text);

} // namespace ryv
