#include "base/encoding.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <optional>

namespace ryv {

namespace {

using Byte = unsigned char;

constexpr char16_t escapeBase = 0xDC00; // an undecodable byte b stands in text as escapeBase + b
constexpr std::array<char16_t, 32> windows1252High = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020,
    0x2021, 0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C,
    0x201D, 0x2022, 0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

bool isHighSurrogate(char32_t unit) noexcept {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool isLowSurrogate(char32_t unit) noexcept {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

bool isSurrogate(char32_t unit) noexcept {
    return unit >= 0xD800 && unit <= 0xDFFF;
}

/// How many bytes at the start are ASCII, sixteen at a time and then one by one.
std::size_t asciiPrefix(const Byte* bytes, std::size_t size) noexcept {
    std::size_t i = 0;
    for (; i + 16 <= size; i += 16) {
        std::uint64_t words[2];
        std::memcpy(words, bytes + i, sizeof words);
        if (((words[0] | words[1]) & 0x8080808080808080u) != 0)
            break;
    }
    while (i < size && bytes[i] < 0x80)
        ++i;
    return i;
}

/// One sequence of UTF-8: its scalar value and length, or length 0 when the bytes form none. Surrogates count
/// as values here; the callers decide about them.
struct Sequence {
    char32_t value = 0;
    std::size_t length = 0;
};

std::size_t sequenceLength(Byte first) noexcept {
    if (first >= 0xC2 && first <= 0xDF)
        return 2;
    if (first >= 0xE0 && first <= 0xEF)
        return 3;
    return first >= 0xF0 && first <= 0xF4 ? 4 : 0;
}

Sequence readSequence(const Byte* bytes, std::size_t size) noexcept {
    if (bytes[0] < 0x80)
        return {bytes[0], 1};
    const std::size_t length = sequenceLength(bytes[0]);
    if (length == 0 || length > size)
        return {};
    auto value = static_cast<char32_t>(bytes[0] & (0x7Fu >> length));
    for (std::size_t i = 1; i < length; ++i) {
        if ((bytes[i] & 0xC0) != 0x80)
            return {};
        value = (value << 6) | (bytes[i] & 0x3Fu);
    }
    constexpr std::array<char32_t, 5> smallest = {0, 0, 0x80, 0x800, 0x10000};
    return value < smallest[length] || value > 0x10FFFF ? Sequence{} : Sequence{value, length};
}

void appendScalar(CString& out, char32_t value) {
    if (value < 0x10000) {
        out += static_cast<char16_t>(value);
        return;
    }
    value -= 0x10000;
    out += static_cast<char16_t>(0xD800 + (value >> 10));
    out += static_cast<char16_t>(0xDC00 + (value & 0x3FF));
}

/// The scalar value at `i`, pairs joined; moves `i` behind it. A lone surrogate comes back as itself.
char32_t nextScalar(CStringView text, std::size_t& i) noexcept {
    const char32_t unit = text[i++];
    if (!isHighSurrogate(unit) || i == text.size() || !isLowSurrogate(text[i]))
        return unit;
    return 0x10000 + ((unit - 0xD800) << 10) + (text[i++] - 0xDC00u);
}

void appendUtf8(std::string& out, char32_t value) {
    const auto byte = [](char32_t bits) { return static_cast<char>(static_cast<Byte>(bits)); };
    if (value < 0x80) {
        out += byte(value);
    } else if (value < 0x800) {
        out += {byte(0xC0 | (value >> 6)), byte(0x80 | (value & 0x3F))};
    } else if (value < 0x10000) {
        out += {byte(0xE0 | (value >> 12)), byte(0x80 | ((value >> 6) & 0x3F)), byte(0x80 | (value & 0x3F))};
    } else {
        out += {byte(0xF0 | (value >> 18)), byte(0x80 | ((value >> 12) & 0x3F)),
            byte(0x80 | ((value >> 6) & 0x3F)), byte(0x80 | (value & 0x3F))};
    }
}

void report(CodecReport* target, std::size_t offset) {
    if (target)
        target->add(offset);
}

void appendEscaped(CString& out, Byte byte) {
    out += static_cast<char16_t>(escapeBase + byte);
}

/// Appends a byte that could not be decoded. Its unit would form a pair with a high surrogate in front of it,
/// so the high surrogates at the end of `out` become the units of the three bytes that each of them was read
/// from.
void appendUndecodable(CString& out, Byte byte) {
    std::size_t kept = out.size();
    while (kept > 0 && isHighSurrogate(out[kept - 1]))
        --kept;
    std::string reread;
    for (std::size_t i = kept; i < out.size(); ++i)
        appendUtf8(reread, out[i]);
    out.resize(kept);
    for (const char each : reread)
        appendEscaped(out, static_cast<Byte>(each));
    appendEscaped(out, byte);
}

/// A high surrogate at the end of `out` and a low one behind it would read as a pair when encoded again.
bool wouldPair(const CString& out, char32_t value) noexcept {
    return isLowSurrogate(value) && !out.empty() && isHighSurrogate(out.back());
}

const Byte* asBytes(std::string_view bytes) noexcept {
    return reinterpret_cast<const Byte*>(bytes.data());
}

/// Decodes what is behind the ASCII prefix. Without `keepSurrogates` their three-byte forms are undecodable
/// bytes.
void decodeUtf8From(
    std::string_view bytes, std::size_t start, bool keepSurrogates, CString& out, CodecReport* problems) {
    const Byte* const data = asBytes(bytes);
    for (std::size_t i = start; i < bytes.size();) {
        if (const std::size_t ascii = asciiPrefix(data + i, bytes.size() - i)) {
            out.append(data + i, data + i + ascii);
            i += ascii;
            continue;
        }
        const Sequence sequence = readSequence(data + i, bytes.size() - i);
        const bool surrogate = isSurrogate(sequence.value);
        if (sequence.length == 0 || (surrogate && (!keepSurrogates || wouldPair(out, sequence.value)))) {
            report(problems, i);
            appendUndecodable(out, data[i++]);
            continue;
        }
        if (surrogate)
            report(problems, i);
        appendScalar(out, sequence.value);
        i += sequence.length;
    }
}

CString decodeUtf8As(std::string_view bytes, bool keepSurrogates, CodecReport* problems) {
    const Byte* const data = asBytes(bytes);
    const std::size_t ascii = asciiPrefix(data, bytes.size());
    if (ascii == bytes.size())
        return CString(data, data + ascii);
    CString out;
    out.reserve(bytes.size());
    out.append(data, data + ascii);
    decodeUtf8From(bytes, ascii, keepSurrogates, out, problems);
    return out;
}

/// The byte that stands for a unit of Windows-1252, or -1.
int windows1252Byte(char16_t unit) noexcept {
    if (unit < 0x80 || (unit >= 0xA0 && unit <= 0xFF))
        return unit;
    const auto hit = std::find(windows1252High.begin(), windows1252High.end(), unit);
    return hit == windows1252High.end() ? -1 : 0x80 + static_cast<int>(hit - windows1252High.begin());
}

} // namespace

const char* encodingName(TextEncoding encoding) noexcept {
    constexpr std::array<const char*, 5> names = {
        "utf-8", "utf-8-bom", "utf-16le", "utf-16be", "windows-1252"};
    return names[static_cast<std::size_t>(encoding)];
}

std::string_view mark(TextEncoding encoding) noexcept {
    switch (encoding) {
    case TextEncoding::utf8WithMark:
        return "\xEF\xBB\xBF";
    case TextEncoding::utf16LittleEndian:
        return "\xFF\xFE";
    case TextEncoding::utf16BigEndian:
        return "\xFE\xFF";
    case TextEncoding::utf8:
    case TextEncoding::windows1252:
        break;
    }
    return {};
}

std::size_t markLength(TextEncoding encoding) noexcept {
    return mark(encoding).size();
}

namespace {

std::optional<TextEncoding> markedEncoding(std::string_view bytes) noexcept {
    for (const TextEncoding marked :
        {TextEncoding::utf8WithMark, TextEncoding::utf16LittleEndian, TextEncoding::utf16BigEndian})
        if (bytes.starts_with(mark(marked)))
            return marked;
    return std::nullopt;
}

} // namespace

TextEncoding detectEncoding(std::string_view bytes) noexcept {
    if (const auto marked = markedEncoding(bytes))
        return *marked;
    return isValidUtf8(bytes) ? TextEncoding::utf8 : TextEncoding::windows1252;
}

CString decodeDetecting(std::string_view bytes, TextEncoding& encoding) {
    const auto marked = markedEncoding(bytes);
    encoding = marked.value_or(TextEncoding::utf8);
    CodecReport problems;
    CString text = decode(bytes.substr(markLength(encoding)), encoding, &problems);
    if (marked || problems.problems == 0)
        return text;
    encoding = TextEncoding::windows1252;
    return decodeWindows1252(bytes);
}

bool isValidUtf8(std::string_view bytes) noexcept {
    const Byte* const data = asBytes(bytes);
    std::size_t i = 0;
    while ((i += asciiPrefix(data + i, bytes.size() - i)) < bytes.size()) {
        const Sequence sequence = readSequence(data + i, bytes.size() - i);
        if (sequence.length == 0 || isSurrogate(sequence.value))
            return false;
        i += sequence.length;
    }
    return true;
}

bool hasLoneSurrogate(CStringView text) noexcept {
    for (std::size_t i = 0; i < text.size();)
        if (isSurrogate(nextScalar(text, i)))
            return true;
    return false;
}

CString decodeUtf8(std::string_view bytes, CodecReport* report) {
    return decodeUtf8As(bytes, true, report);
}

CString decodeWindows1252(std::string_view bytes, CodecReport* problems) {
    const Byte* const data = asBytes(bytes);
    CString out(data, data + bytes.size());
    for (std::size_t i = asciiPrefix(data, bytes.size()); i < out.size(); ++i) {
        if (out[i] < 0x80 || out[i] >= 0xA0)
            continue;
        const char16_t unit = windows1252High[out[i] - 0x80u];
        if (unit == out[i])
            report(problems, i);
        out[i] = unit;
    }
    return out;
}

CString decodeUtf16(std::string_view bytes, bool bigEndian, CodecReport* problems) {
    const Byte* const data = asBytes(bytes);
    CString out(bytes.size() / 2, u'\0');
    for (std::size_t i = 0; i < out.size(); ++i) {
        const unsigned high = data[2 * i + (bigEndian ? 0 : 1)];
        const unsigned low = data[2 * i + (bigEndian ? 1 : 0)];
        out[i] = static_cast<char16_t>(high << 8 | low);
    }
    for (std::size_t i = 0; i < out.size();) {
        const std::size_t at = i;
        if (isSurrogate(nextScalar(out, i)))
            report(problems, 2 * at);
    }
    if (bytes.size() % 2 != 0)
        report(problems, bytes.size() - 1);
    return out;
}

CString decode(std::string_view bytes, TextEncoding encoding, CodecReport* report) {
    switch (encoding) {
    case TextEncoding::utf8:
    case TextEncoding::utf8WithMark:
        break;
    case TextEncoding::utf16LittleEndian:
        return decodeUtf16(bytes, false, report);
    case TextEncoding::utf16BigEndian:
        return decodeUtf16(bytes, true, report);
    case TextEncoding::windows1252:
        return decodeWindows1252(bytes, report);
    }
    return decodeUtf8(bytes, report);
}

namespace {

constexpr std::size_t asciiBlock = 32;

/// True when a block of units is ASCII. Without a way out of the loop, so that it becomes a few wide
/// instructions.
bool isAsciiBlock(const char16_t* units) noexcept {
    char16_t any = 0;
    for (std::size_t k = 0; k < asciiBlock; ++k)
        any = static_cast<char16_t>(any | units[k]);
    return any < 0x80;
}

/// Appends the ASCII units at the start, a block at a time and then one by one; how many those were. Never
/// many at once, because room is made for all that might be ASCII.
std::size_t appendAscii(CStringView text, std::string& out) {
    text = text.substr(0, 4096);
    std::size_t few = 0; // short runs between other characters are the rule in many languages
    while (few < text.size() && few < asciiBlock && text[few] < 0x80)
        ++few;
    if (few < asciiBlock)
        text = text.substr(0, few);
    const std::size_t start = out.size();
    out.resize(start + text.size());
    char* const target = out.data() + start;
    const char16_t* const units = text.data();
    std::size_t i = 0;
    for (; i + asciiBlock <= text.size() && isAsciiBlock(units + i); i += asciiBlock)
        for (std::size_t k = 0; k < asciiBlock; ++k)
            target[i + k] = static_cast<char>(units[i + k]);
    for (; i < text.size() && units[i] < 0x80; ++i)
        target[i] = static_cast<char>(units[i]);
    out.resize(start + i);
    return i;
}

} // namespace

void encodeUtf8(CStringView text, std::string& out, CodecReport* problems) {
    out.reserve(out.size() + text.size());
    for (std::size_t i = 0; i < text.size();) {
        if (text[i] < 0x80) {
            i += appendAscii(text.substr(i), out);
            continue;
        }
        const std::size_t at = i;
        const char32_t value = nextScalar(text, i);
        if (isSurrogate(value))
            report(problems, at);
        appendUtf8(out, value);
    }
}

void encodeWindows1252(CStringView text, std::string& out, CodecReport* problems) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const int byte = windows1252Byte(text[i]);
        if (byte < 0)
            report(problems, i);
        out += byte < 0 ? '?' : static_cast<char>(static_cast<Byte>(byte));
    }
}

void encodeUtf16(CStringView text, bool bigEndian, std::string& out) {
    for (const char16_t unit : text) {
        const auto high = static_cast<char>(static_cast<Byte>(unit >> 8));
        const auto low = static_cast<char>(static_cast<Byte>(unit & 0xFF));
        out += bigEndian ? high : low;
        out += bigEndian ? low : high;
    }
}

void encode(CStringView text, TextEncoding encoding, std::string& out, CodecReport* report) {
    switch (encoding) {
    case TextEncoding::utf8:
    case TextEncoding::utf8WithMark:
        return encodeUtf8(text, out, report);
    case TextEncoding::utf16LittleEndian:
        return encodeUtf16(text, false, out);
    case TextEncoding::utf16BigEndian:
        return encodeUtf16(text, true, out);
    case TextEncoding::windows1252:
        return encodeWindows1252(text, out, report);
    }
}

std::string toUtf8(CStringView text) {
    std::string out;
    encodeUtf8(text, out);
    return out;
}

CString nameFromBytes(std::string_view bytes) {
    return decodeUtf8As(bytes, false, nullptr);
}

std::string nameToBytes(CStringView name) {
    std::string out;
    for (std::size_t i = 0; i < name.size();) {
        const char32_t value = nextScalar(name, i);
        if (value >= escapeBase + 0x80u && value <= escapeBase + 0xFFu)
            out += static_cast<char>(static_cast<Byte>(value - escapeBase));
        else
            appendUtf8(out, value);
    }
    return out;
}

} // namespace ryv
