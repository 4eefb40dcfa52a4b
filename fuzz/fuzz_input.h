// What the fuzz targets share.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <initializer_list>
#include <string_view>

namespace fuzz {

/// Ends the run as a finding when what has to hold does not.
inline void require(bool holds) {
    if (!holds)
        std::abort();
}

struct Reader {
    char mark;
    void (*read)(std::string_view bytes);
};

/// Hands an input to the reader that its first byte names; the result for the fuzzer: inputs of no reader are
/// not worth keeping.
inline int runMarked(const std::uint8_t* data, std::size_t size, std::initializer_list<Reader> readers) {
    if (size == 0)
        return 0;
    for (const Reader& reader : readers)
        if (reader.mark == static_cast<char>(data[0])) {
            reader.read({reinterpret_cast<const char*>(data) + 1, size - 1});
            return 0;
        }
    return -1;
}

} // namespace fuzz
