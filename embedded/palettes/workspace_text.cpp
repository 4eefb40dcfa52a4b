#include "embedded/palettes/workspace_text.h"

#include "base/encoding.h"

namespace drafta {

namespace {

constexpr std::size_t digits = 4;

bool isHigh(char16_t unit) noexcept {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool isLow(char16_t unit) noexcept {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

bool isLone(ryv::CStringView text, std::size_t at) noexcept {
    if (isHigh(text[at]))
        return at + 1 == text.size() || !isLow(text[at + 1]);
    return isLow(text[at]) && (at == 0 || !isHigh(text[at - 1]));
}

/// Line ends are white space to XML, which makes blanks of them in attributes.
bool isKept(ryv::CStringView text, std::size_t at) noexcept {
    const char16_t unit = text[at];
    return unit >= 0x20 && unit != 0x7F && unit < 0xFFFE && !isLone(text, at);
}

void appendDigits(ryv::CString& text, char16_t unit) {
    for (int shift = 12; shift >= 0; shift -= 4)
        text += u"0123456789ABCDEF"[(unit >> shift) & 0xF];
}

std::optional<char16_t> unitOf(ryv::CStringView hexadecimal) {
    unsigned unit = 0;
    for (const char16_t digit : hexadecimal) {
        const std::size_t value = ryv::CStringView(u"0123456789ABCDEF").find(digit);
        if (value == ryv::CStringView::npos)
            return std::nullopt;
        unit = unit * 16 + static_cast<unsigned>(value);
    }
    return hexadecimal.size() == digits ? std::optional(static_cast<char16_t>(unit)) : std::nullopt;
}

} // namespace

std::string escapeText(ryv::CStringView text) {
    ryv::CString escaped;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == u'\\') {
            escaped += u"\\\\";
        } else if (isKept(text, at)) {
            escaped += text[at];
        } else {
            escaped += u'\\';
            appendDigits(escaped, text[at]);
        }
    }
    return ryv::toUtf8(escaped);
}

std::optional<ryv::CString> unescapeText(std::string_view bytes) {
    if (!ryv::isValidUtf8(bytes))
        return std::nullopt;
    const ryv::CString escaped = ryv::decodeUtf8(bytes);
    ryv::CString text;
    for (std::size_t at = 0; at < escaped.size(); ++at) {
        if (escaped[at] != u'\\') {
            text += escaped[at];
        } else if (escaped.compare(at + 1, 1, u"\\") == 0) {
            text += escaped[++at];
        } else {
            const std::optional<char16_t> unit = unitOf(ryv::CStringView(escaped).substr(at + 1, digits));
            if (!unit)
                return std::nullopt;
            text += *unit;
            at += digits;
        }
    }
    return text;
}

} // namespace drafta
