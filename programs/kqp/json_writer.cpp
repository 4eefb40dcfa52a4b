#include "programs/kqp/json_writer.h"

#include "base/encoding.h"
#include "programs/kqp/terminal/surrogates.h"

#include <algorithm>
#include <cstdio>

namespace kqp {

namespace {

bool standsForItself(ryv::CStringView text, std::size_t at) {
    const char16_t unit = text[at];
    if (unit == u'"' || unit == u'\\' || unit < 0x20 || (unit >= 0x7F && unit < 0xA0))
        return false;
    return !isSurrogate(unit) && unit != 0x2028 && unit != 0x2029;
}

char shortEscapeOf(char16_t unit) {
    switch (unit) {
    case u'"':
        return '"';
    case u'\\':
        return '\\';
    case u'\b':
        return 'b';
    case u'\f':
        return 'f';
    case u'\n':
        return 'n';
    case u'\r':
        return 'r';
    case u'\t':
        return 't';
    default:
        return '\0';
    }
}

void appendEscaped(char16_t unit, std::string& result) {
    if (const char letter = shortEscapeOf(unit); letter != '\0') {
        result += '\\';
        result += letter;
        return;
    }
    char digits[8];
    std::snprintf(digits, sizeof digits, "\\u%04X", static_cast<unsigned>(unit));
    result += digits;
}

} // namespace

void JsonWriter::begin(char opening, Layout layout) {
    beforeValue();
    out_.write({&opening, 1});
    open_.push_back({opening == '{' ? '}' : ']', layout, true});
    if (layout == Layout::lines)
        ++indent_;
}

void JsonWriter::end() {
    const Level level = open_.back();
    open_.pop_back();
    if (level.layout == Layout::lines) {
        --indent_;
        if (!level.empty)
            breakLine();
    }
    out_.write({&level.closing, 1});
}

void JsonWriter::key(ryv::CStringView name) {
    separate();
    quote(name);
    out_.write(": ");
    keyGiven_ = true;
}

void JsonWriter::text(ryv::CStringView value) {
    beforeValue();
    quote(value);
}

void JsonWriter::number(long long value) {
    beforeValue();
    out_.write(std::to_string(value));
}

void JsonWriter::boolean(bool value) {
    beforeValue();
    out_.write(value ? "true" : "false");
}

void JsonWriter::null() {
    beforeValue();
    out_.write("null");
}

void JsonWriter::beforeValue() {
    if (keyGiven_)
        keyGiven_ = false;
    else
        separate();
}

void JsonWriter::separate() {
    if (open_.empty())
        return;
    Level& level = open_.back();
    if (!level.empty)
        out_.write(level.layout == Layout::lines ? "," : ", ");
    level.empty = false;
    if (level.layout == Layout::lines)
        breakLine();
}

void JsonWriter::breakLine() {
    static constexpr std::string_view blanks =
        "                                                                ";
    static_assert(blanks.size() == 2 * deepestIndent);
    out_.write("\n").write(blanks.substr(0, 2 * std::min(indent_, deepestIndent)));
}

void JsonWriter::quote(ryv::CStringView value) {
    std::string result = "\"";
    std::size_t plain = 0; // where the stretch begins that stands for itself
    const auto putPlain = [&](std::size_t end) { ryv::encodeUtf8(value.substr(plain, end - plain), result); };
    for (std::size_t at = 0; at < value.size(); ++at) {
        if (standsForItself(value, at))
            continue;
        if (isPairAt(value, at)) {
            ++at;
            continue;
        }
        putPlain(at);
        appendEscaped(value[at], result);
        plain = at + 1;
    }
    putPlain(value.size());
    result += '"';
    out_.write(result);
}

} // namespace kqp
