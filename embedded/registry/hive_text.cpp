#include "embedded/registry/hive_text.h"

#include "base/encoding.h"
#include "base/text.h"

namespace drafta {

using ryv::CString;
using ryv::CStringView;

namespace {

constexpr CStringView header = u"drafta registry 1";
constexpr CStringView digits = u"0123456789ABCDEF";
constexpr char16_t escapeMark = u'%';
constexpr std::size_t escapeLength = 5; // the mark and four digits

bool isHighSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool isLowSurrogate(char16_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

bool isPair(CStringView text, std::size_t at) {
    return at + 1 < text.size() && isHighSurrogate(text[at]) && isLowSurrogate(text[at + 1]);
}

/// A byte-order mark inside the text and the line separators of Unicode are what editors would mend.
bool needsEscape(char16_t unit) {
    return unit < 0x20 || (unit >= 0x7F && unit <= 0x9F) || unit == u'"' || unit == escapeMark ||
           unit == 0x2028 || unit == 0x2029 || unit == 0xFEFF || isHighSurrogate(unit) ||
           isLowSurrogate(unit);
}

void appendEscaped(CString& out, CStringView text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (isPair(text, i)) {
            out.append(text.substr(i++, 2));
        } else if (!needsEscape(text[i])) {
            out += text[i];
        } else {
            out += escapeMark;
            for (unsigned shift = 16; shift != 0; shift -= 4)
                out += digits[(text[i] >> (shift - 4)) & 0xFu];
        }
    }
}

std::optional<char16_t> unitOf(CStringView escape) {
    unsigned unit = 0;
    for (const char16_t digit : escape.substr(1)) {
        const std::size_t value = digits.find(digit >= u'a' && digit <= u'f' ? char16_t(digit - 32) : digit);
        if (value == CStringView::npos)
            return std::nullopt;
        unit = unit << 4 | static_cast<unsigned>(value);
    }
    return escape.size() == escapeLength ? std::optional(static_cast<char16_t>(unit)) : std::nullopt;
}

std::optional<CString> unescaped(CStringView text) {
    CString result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != escapeMark) {
            result += text[i];
            continue;
        }
        const std::optional<char16_t> unit = unitOf(text.substr(i, escapeLength));
        if (!unit)
            return std::nullopt;
        result += *unit;
        i += escapeLength - 1;
    }
    return result;
}

/// What stands between two quotes that hold no third one.
std::optional<CString> quoted(CStringView text) {
    if (text.size() < 2 || text.front() != u'"' || text.find(u'"', 1) != text.size() - 1)
        return std::nullopt;
    return unescaped(text.substr(1, text.size() - 2));
}

std::optional<Hive::Value> valueOf(CStringView text) {
    if (text.starts_with(u'"')) {
        if (std::optional<CString> string = quoted(text))
            return *std::move(string);
        return std::nullopt;
    }
    const std::optional<long long> number = ryv::parseInteger(text);
    if (!number || *number < 0 || *number > 0xFFFFFFFF)
        return std::nullopt;
    return static_cast<std::uint32_t>(*number);
}

class Parser {
public:
    std::optional<Hive> parse(CStringView text) {
        const ryv::CStringArray lines = ryv::split(text, u'\n');
        if (withoutReturn(lines[0]) != header)
            return std::nullopt;
        for (std::size_t i = 1; i < lines.size(); ++i)
            if (!take(withoutReturn(lines[i])))
                return std::nullopt;
        return std::move(hive_);
    }

private:
    static CStringView withoutReturn(CStringView line) {
        return line.ends_with(u'\r') ? line.substr(0, line.size() - 1) : line;
    }

    bool take(CStringView line) {
        if (line.empty())
            return true;
        return line.front() == u'[' ? takeKey(line) : takeValue(line);
    }

    bool takeKey(CStringView line) {
        key_ = line.ends_with(u']') ? unescaped(line.substr(1, line.size() - 2)) : std::nullopt;
        if (key_)
            hive_.makeKey(*key_);
        return key_.has_value();
    }

    bool takeValue(CStringView line) {
        const std::size_t end = line.find(u'"', 1);
        if (!key_ || end == CStringView::npos || line.substr(end + 1, 1) != u"=")
            return false;
        const std::optional<CString> name = quoted(line.substr(0, end + 1));
        std::optional<Hive::Value> value = valueOf(line.substr(end + 2));
        if (!name || !value || hive_.find(*key_, *name))
            return false;
        hive_.set(*key_, *name, *std::move(value));
        return true;
    }

    Hive hive_;
    std::optional<CString> key_;
};

void appendQuoted(CString& out, CStringView text) {
    out += u'"';
    appendEscaped(out, text);
    out += u'"';
}

void appendKey(CString& out, const Hive::Key& key) {
    out += u"\n[";
    appendEscaped(out, key.path);
    out += u"]\n";
    for (const auto& [folded, value] : key.values) {
        appendQuoted(out, value.name);
        out += u'=';
        if (const CString* const string = std::get_if<CString>(&value.value))
            appendQuoted(out, *string);
        else
            out += ryv::toText(std::get<std::uint32_t>(value.value));
        out += u'\n';
    }
}

} // namespace

std::optional<Hive> parseHive(std::string_view bytes) {
    const std::string_view mark = ryv::mark(ryv::TextEncoding::utf8WithMark);
    if (bytes.starts_with(mark))
        bytes.remove_prefix(mark.size());
    if (!ryv::isValidUtf8(bytes))
        return std::nullopt;
    return Parser().parse(ryv::decodeUtf8(bytes));
}

std::string printHive(const Hive& hive) {
    CString out(header);
    out += u'\n';
    for (const auto& [folded, key] : hive.keys())
        appendKey(out, key);
    return ryv::toUtf8(out);
}

} // namespace drafta
