#include "programs/kqp/terminal/escape.h"

#include "base/encoding.h"
#include "programs/kqp/terminal/surrogates.h"

#include <algorithm>
#include <cstdio>

namespace kqp {

namespace {

bool isControl(char16_t unit) {
    return unit < 0x20 || (unit >= 0x7F && unit < 0xA0);
}

/// Line separators, byte-order marks and the controls of the writing direction: they move or hide what stands
/// beside them.
bool isInvisibleForce(char16_t unit) {
    return unit == 0x061C || unit == 0x200E || unit == 0x200F || (unit >= 0x2028 && unit <= 0x202E) ||
           (unit >= 0x2066 && unit <= 0x2069) || unit == 0xFEFF;
}

/// A byte that was no text, as the decoder keeps it, or a backslash inside a native name.
bool isKeptByte(char16_t unit) {
    return (unit >= 0xDC80 && unit <= 0xDCFF) || unit == 0xDC00 + u'\\';
}

std::string escaped(char16_t unit) {
    switch (unit) {
    case u'\n':
        return "\\n";
    case u'\r':
        return "\\r";
    case u'\t':
        return "\\t";
    default:
        break;
    }
    char digits[8];
    const unsigned value = isKeptByte(unit) ? unit - 0xDC00u : unit;
    std::snprintf(digits, sizeof digits, value < 0x100 ? "\\x%02X" : "\\u%04X", value);
    return digits;
}

} // namespace

std::string visible(ryv::CStringView text) {
    std::string result;
    std::size_t plain = 0; // where the stretch begins that is shown as it stands
    const auto showPlain = [&](std::size_t end) { ryv::encodeUtf8(text.substr(plain, end - plain), result); };
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char16_t unit = text[at];
        if (isPairAt(text, at)) {
            ++at;
        } else if (isControl(unit) || isInvisibleForce(unit) || isSurrogate(unit)) {
            showPlain(at);
            result += escaped(unit);
            plain = at + 1;
        }
    }
    showPlain(text.size());
    return result;
}

std::string visibleName(std::string_view native) {
    return visible(ryv::nameFromBytes(native));
}

std::string visibleShort(ryv::CStringView text, std::size_t units) {
    if (text.size() <= units)
        return visible(text);
    if (units > 0 && isPairAt(text, units - 1))
        ++units; // keep the pair whole
    return visible(text.substr(0, units)) + "...";
}

std::size_t columns(std::string_view utf8) noexcept {
    const auto beginsCharacter = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; };
    return static_cast<std::size_t>(std::count_if(utf8.begin(), utf8.end(), beginsCharacter));
}

} // namespace kqp
