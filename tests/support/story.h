// What the tests of whole programs share: files as they stand, and texts in which what differs from run to
// run is replaced.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace ryv::test {

/// The bytes of a file; empty when there is none.
inline std::string contentOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The text with another one in each place of `old`, which is not empty.
inline std::string replaced(std::string text, const std::string& old, const std::string& with) {
    for (std::size_t at = 0; (at = text.find(old, at)) != std::string::npos; at += with.size())
        text.replace(at, old.size(), with);
    return text;
}

} // namespace ryv::test
