#include "base/text.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace ryv {

bool isSpace(char16_t unit) noexcept {
    if (unit < 0x80)
        return unit == u' ' || (unit >= 9 && unit <= 13);
    return unit == 0x85 || unit == 0xA0 || unit == 0x1680 || (unit >= 0x2000 && unit <= 0x200A) ||
           unit == 0x2028 || unit == 0x2029 || unit == 0x202F || unit == 0x205F || unit == 0x3000;
}

CStringView trimLeft(CStringView text) noexcept {
    std::size_t start = 0;
    while (start < text.size() && isSpace(text[start]))
        ++start;
    return text.substr(start);
}

CStringView trimRight(CStringView text) noexcept {
    std::size_t end = text.size();
    while (end > 0 && isSpace(text[end - 1]))
        --end;
    return text.substr(0, end);
}

CStringView trim(CStringView text) noexcept {
    return trimLeft(trimRight(text));
}

namespace {

/// Not 0 when one of four units is the wanted one: that lane is zero, and subtracting one borrows into its
/// highest bit.
std::uint64_t hasUnit(const char16_t* units, std::uint64_t wanted) noexcept {
    constexpr std::uint64_t lanes = 0x0001000100010001u;
    std::uint64_t word;
    std::memcpy(&word, units, sizeof word);
    word ^= wanted;
    return (word - lanes) & ~word & (lanes << 15);
}

} // namespace

std::size_t findUnit(CStringView text, char16_t unit, std::size_t start) noexcept {
    const std::uint64_t wanted = std::uint64_t{0x0001000100010001u} * unit;
    std::size_t i = start;
    while (i + 8 <= text.size() &&
           (hasUnit(text.data() + i, wanted) | hasUnit(text.data() + i + 4, wanted)) == 0)
        i += 8;
    while (i < text.size() && text[i] != unit)
        ++i;
    return std::min(i, text.size());
}

CString replaceAll(CStringView text, CStringView from, CStringView to) {
    CString result;
    if (from.empty())
        return result.assign(text);
    std::size_t start = 0;
    for (std::size_t hit = text.find(from); hit != CStringView::npos; hit = text.find(from, start)) {
        result.append(text.substr(start, hit - start)).append(to);
        start = hit + from.size();
    }
    return result.append(text.substr(start));
}

CString replaceAll(CStringView text, char16_t from, char16_t to) {
    CString result(text);
    // A plain choice for each unit runs over many at once; replacing where it is needed does not.
    std::transform(result.begin(), result.end(), result.begin(),
        [from, to](char16_t unit) { return unit == from ? to : unit; });
    return result;
}

CStringArray split(CStringView text, char16_t separator) {
    CStringArray parts;
    std::size_t start = 0;
    for (std::size_t hit = text.find(separator); hit != CStringView::npos;
         hit = text.find(separator, start)) {
        parts.emplace_back(text.substr(start, hit - start));
        start = hit + 1;
    }
    parts.emplace_back(text.substr(start));
    return parts;
}

namespace {
bool isDigit(char16_t unit) noexcept {
    return unit >= u'0' && unit <= u'9';
}
} // namespace

std::optional<long long> parseInteger(CStringView text) noexcept {
    const bool negative = !text.empty() && text.front() == u'-';
    if (negative)
        text.remove_prefix(1);
    if (text.empty() || text.size() > 18 || !std::all_of(text.begin(), text.end(), isDigit))
        return std::nullopt;
    long long number = 0;
    for (const char16_t unit : text)
        number = number * 10 + (unit - u'0');
    return negative ? -number : number;
}

int leadingInteger(CStringView text) noexcept {
    text = trimLeft(text);
    const bool negative = !text.empty() && text.front() == u'-';
    if (!text.empty() && (text.front() == u'-' || text.front() == u'+'))
        text.remove_prefix(1);
    constexpr long long largest = std::numeric_limits<int>::max();
    long long number = 0;
    for (const char16_t unit : text) {
        if (!isDigit(unit))
            break;
        number = std::min(number * 10 + (unit - u'0'), largest + 1);
    }
    return static_cast<int>(negative ? -number : std::min(number, largest));
}

CString toText(long long number) {
    return fromAscii(std::to_string(number));
}

CString fromAscii(std::string_view text) {
    CString result(text.size(), u'?');
    std::transform(text.begin(), text.end(), result.begin(), [](char byte) {
        const auto value = static_cast<unsigned char>(byte);
        return value < 0x80 ? static_cast<char16_t>(value) : u'?';
    });
    return result;
}

std::string toAscii(CStringView text) {
    std::string result(text.size(), '?');
    std::transform(text.begin(), text.end(), result.begin(),
        [](char16_t unit) { return unit < 0x80 ? static_cast<char>(unit) : '?'; });
    return result;
}

} // namespace ryv
