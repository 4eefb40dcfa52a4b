// What the tests of all folders need to read recorded cases and to show text in messages.
#pragma once

#include "base/encoding.h"
#include "base/text.h"
#include "tests/support/random.h"

#include <cstdio>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

namespace ryv::test {

/// The bytes of a file. A missing file is an error of the test's set-up and throws.
inline std::string readBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw std::runtime_error("cannot read " + path);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// One case of a file with tab-separated columns.
struct Row {
    std::size_t line = 0; ///< line number in the file, the first line being 1
    std::vector<CString> cells;
};

/// The cases behind a file's header line. Throws when the file has none or a case lacks a column, so that a
/// table that went astray cannot pass as a table without failures.
inline std::vector<Row> readTable(const std::string& path, std::size_t columns) {
    const CStringArray lines = split(decodeUtf8(readBytes(path)), u'\n');
    std::vector<Row> rows;
    for (std::size_t i = 1; i < lines.size(); ++i) {
        if (i + 1 == lines.size() && lines[i].empty())
            break;
        const CStringArray cells = split(lines[i], u'\t');
        if (cells.size() != columns)
            throw std::runtime_error(path + ": wrong number of columns in line " + std::to_string(i + 1));
        rows.push_back({i + 1, {cells.begin(), cells.end()}});
    }
    if (rows.empty())
        throw std::runtime_error(path + ": no cases");
    return rows;
}

/// Text for a message, in double quotes: UTF-8, with what cannot be printed as "<hexadecimal>".
inline std::string shown(CStringView text) {
    std::string out = "\"";
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool pair =
            i + 1 < text.size() && (text[i] & 0xFC00) == 0xD800 && (text[i + 1] & 0xFC00) == 0xDC00;
        if (pair) {
            encodeUtf8(text.substr(i++, 2), out);
        } else if (text[i] < 0x20 || (text[i] & 0xF800) == 0xD800) {
            char code[8];
            std::snprintf(code, sizeof code, "<%04X>", static_cast<unsigned>(text[i]));
            out += code;
        } else {
            encodeUtf8(text.substr(i, 1), out);
        }
    }
    return out + '"';
}

/// Random text from units that are picked from an alphabet. The same seed gives the same texts everywhere.
class RandomText : public Random {
public:
    RandomText(std::uint64_t seed, CString alphabet) : Random(seed), alphabet_(std::move(alphabet)) {}
    CString text(std::size_t length) {
        CString result;
        while (result.size() < length)
            result += pick(alphabet_);
        return result;
    }

private:
    CString alphabet_;
};

} // namespace ryv::test
