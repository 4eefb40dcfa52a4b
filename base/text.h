// Small operations on text that several folders need.
#pragma once

#include "base/strings.h"

#include <cstring>
#include <optional>

namespace ryv {

/// White space as the platform's text functions see it: the blank, the control characters 9 to 13, the
/// no-break space and the other space separators of the basic plane.
bool isSpace(char16_t unit) noexcept;

/// Views without the white space at the left end, the right end, both ends.
CStringView trimLeft(CStringView text) noexcept;
CStringView trimRight(CStringView text) noexcept;
CStringView trim(CStringView text) noexcept;

/// Exact equality. Block by block, which the standard comparison of UTF-16 text is not.
inline bool sameText(CStringView a, CStringView b) noexcept {
    return a.size() == b.size() &&
           (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(char16_t)) == 0);
}

/// Where `unit` stands in `text` first from `start` on, or the text's length.
std::size_t findUnit(CStringView text, char16_t unit, std::size_t start = 0) noexcept;

/// The text with every occurrence of `from` replaced by `to`, left to right, without looking at what was put
/// in. An empty `from` replaces nothing. Case counts.
CString replaceAll(CStringView text, CStringView from, CStringView to);
CString replaceAll(CStringView text, char16_t from, char16_t to);

/// The parts of `text` between the separators; always at least one part.
CStringArray split(CStringView text, char16_t separator);

/// The decimal number that is the whole of `text` (an optional "-", then 1 to 18 digits), or nothing.
std::optional<long long> parseInteger(CStringView text) noexcept;

/// The number that a text begins with, as C's integer parsing reads it: white space, a sign, then digits up
/// to the first other character; 0 when there are none; held to the 32-bit range.
int leadingInteger(CStringView text) noexcept;

CString toText(long long number);

/// Text of literals and other plain ASCII; units above 127 become "?".
CString fromAscii(std::string_view text);
std::string toAscii(CStringView text);

} // namespace ryv
