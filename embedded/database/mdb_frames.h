// What the reader of Jet databases writes for the host. Only the standard library: both programs use it.
//
// The columns first, then the rows, then the end; or a problem, at any place, as the last thing. Numbers have
// four bytes, the lowest first; a text is the number of its bytes and its UTF-8. A row is as many texts as
// there are columns.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace drafta::frames {

inline constexpr char columns = 'c'; ///< followed by their number and names
inline constexpr char row = 'r';
inline constexpr char end = 'e';     ///< followed by the number of rows
inline constexpr char problem = 'p'; ///< followed by a text for people

inline void putNumber(std::string& out, std::size_t number) {
    for (int shift = 0; shift < 32; shift += 8)
        out += static_cast<char>((number >> shift) & 0xFF);
}

inline void putText(std::string& out, std::string_view text) {
    putNumber(out, text.size());
    out += text;
}

} // namespace drafta::frames
