// Any text as characters that an XML attribute keeps.
#pragma once

#include "base/strings.h"

#include <optional>
#include <string>
#include <string_view>

namespace drafta {

/// UTF-8. A backslash is doubled; "\" and four hexadecimal digits stand for a unit that XML has no place for
/// or does not keep: control characters, surrogates without their other half, U+FFFE and U+FFFF.
std::string escapeText(ryv::CStringView text);

/// The text that escapeText() was given. Nothing when the bytes are no UTF-8, or a backslash begins nothing.
std::optional<ryv::CString> unescapeText(std::string_view bytes);

} // namespace drafta
