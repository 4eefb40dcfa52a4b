#include "embedded/drawings/dxf_writer.h"

#include <array>
#include <charconv>
#include <cmath>

namespace drafta {

DxfStyle styleOf(std::string_view bytes) noexcept {
    const std::size_t feed = bytes.find('\n');
    DxfPair pair;
    const std::size_t start = bytes.starts_with("\xEF\xBB\xBF") ? 3 : 0;
    if (feed == std::string_view::npos || DxfPairReader(bytes, start).next(pair) != DxfPairReader::Step::pair)
        return {};
    return {feed > 0 && bytes[feed - 1] == '\r', bytes[start] == ' '};
}

std::string realText(double number) {
    std::array<char, 32> digits{};
    char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    std::string text(digits.data(), end);
    if (text.find_first_of(".e") == std::string::npos)
        text += ".0";
    return text;
}

std::string handleText(std::uint64_t handle) {
    std::array<char, 17> digits{};
    char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), handle, 16).ptr;
    for (char* at = digits.data(); at != end; ++at)
        *at = *at >= 'a' ? static_cast<char>(*at - 'a' + 'A') : *at;
    return {digits.data(), end};
}

DxfWriter& DxfWriter::pair(int code, std::string_view value) {
    const std::string number = std::to_string(code);
    if (style_.padded && number.size() < 3)
        text_.append(3 - number.size(), ' ');
    const std::string_view lineEnd = style_.returns ? "\r\n" : "\n";
    text_.append(number).append(lineEnd).append(value).append(lineEnd);
    return *this;
}

DxfWriter& DxfWriter::real(int code, double value) {
    isFinite_ = isFinite_ && std::isfinite(value);
    return pair(code, realText(value));
}

DxfWriter& DxfWriter::integer(int code, int value) {
    return pair(code, std::to_string(value));
}

DxfWriter& DxfWriter::append(const DxfWriter& other) {
    text_ += other.text_;
    isFinite_ = isFinite_ && other.isFinite_;
    return *this;
}

} // namespace drafta
