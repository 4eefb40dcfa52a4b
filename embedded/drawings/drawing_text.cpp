#include "embedded/drawings/drawing_text.h"
#include "base/encoding.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <iconv.h>
#include <optional>

namespace drafta {

using ryv::CString;
using ryv::CStringView;

namespace {

constexpr char16_t byteEscape = 0xDC00; // U+DC80 to U+DCFF are the bytes 80 to FF

bool isHigh(char16_t unit) noexcept {
    return (unit & 0xFC00) == 0xD800;
}
bool isLow(char16_t unit) noexcept {
    return (unit & 0xFC00) == 0xDC00;
}
bool isPlain(char byte) noexcept {
    return static_cast<unsigned char>(byte) < 0x80;
}
bool isByteEscape(char16_t unit) noexcept {
    return unit >= byteEscape + 0x80 && unit <= byteEscape + 0xFF;
}

/// How many units the character at a place has; 1 for a lone surrogate.
std::size_t characterLength(CStringView text, std::size_t at) noexcept {
    return isHigh(text[at]) && at + 1 < text.size() && isLow(text[at + 1]) ? 2 : 1;
}

/// A converter of the C library, from one encoding to another; it may be missing.
class Converter {
public:
    Converter(const char* to, const char* from) : handle_(iconv_open(to, from)) {}
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;
    ~Converter() {
        if (works())
            iconv_close(handle_);
    }

    bool works() const noexcept { return handle_ != reinterpret_cast<iconv_t>(-1); }

    /// Converts one character; empty when `bytes` is none, a part of one or more than one.
    std::string convert(std::string_view bytes) const {
        std::array<char, 16> in{}, out{};
        if (!works() || bytes.size() > in.size())
            return {};
        std::copy(bytes.begin(), bytes.end(), in.begin());
        char *from = in.data(), *to = out.data();
        std::size_t inLeft = bytes.size(), outLeft = out.size();
        iconv(handle_, nullptr, nullptr, nullptr, nullptr);
        // A positive result counts characters that were replaced by similar ones.
        if (iconv(handle_, &from, &inLeft, &to, &outLeft) != 0 || inLeft != 0)
            return {};
        return {out.data(), out.size() - outLeft};
    }

private:
    iconv_t handle_;
};

CString unitsOf(std::string_view littleEndian) {
    return ryv::decodeUtf16(littleEndian, false);
}

struct PageName {
    std::string_view inDrawings;
    const char* inLibrary;
};

constexpr auto pageNames = std::to_array<PageName>({{"ANSI_874", "CP874"}, {"ANSI_932", "CP932"},
    {"ANSI_936", "CP936"}, {"ANSI_949", "CP949"}, {"ANSI_950", "CP950"}, {"ANSI_1250", "CP1250"},
    {"ANSI_1251", "CP1251"}, {"ANSI_1252", "CP1252"}, {"ANSI_1253", "CP1253"}, {"ANSI_1254", "CP1254"},
    {"ANSI_1255", "CP1255"}, {"ANSI_1256", "CP1256"}, {"ANSI_1257", "CP1257"}, {"ANSI_1258", "CP1258"},
    {"ANSI_1361", "JOHAB"}, {"JOHAB", "JOHAB"}, {"GB2312", "CP936"}, {"BIG5", "CP950"}, {"KSC5601", "CP949"},
    {"DOS932", "CP932"}, {"DOS437", "CP437"}, {"DOS850", "CP850"}, {"DOS852", "CP852"}, {"DOS855", "CP855"},
    {"DOS857", "CP857"}, {"DOS860", "CP860"}, {"DOS861", "CP861"}, {"DOS863", "CP863"}, {"DOS864", "CP864"},
    {"DOS865", "CP865"}, {"DOS866", "CP866"}, {"DOS869", "CP869"}, {"MAC-ROMAN", "MACINTOSH"},
    {"MACINTOSH", "MACINTOSH"}, {"DOS737", "CP737"}, {"DOS775", "CP775"}, {"DOS862", "CP862"},
    {"ISO8859-1", "ISO-8859-1"}, {"ISO8859-2", "ISO-8859-2"}, {"ISO8859-3", "ISO-8859-3"},
    {"ISO8859-4", "ISO-8859-4"}, {"ISO8859-5", "ISO-8859-5"}, {"ISO8859-6", "ISO-8859-6"},
    {"ISO8859-7", "ISO-8859-7"}, {"ISO8859-8", "ISO-8859-8"}, {"ISO8859-9", "ISO-8859-9"}});

std::string upperCase(std::string_view name) {
    std::string upper(name);
    std::transform(upper.begin(), upper.end(), upper.begin(),
        [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    return upper;
}

bool isUtf8Name(std::string_view codePage) {
    const std::string upper = upperCase(codePage);
    return upper == "UTF-8" || upper == "UTF8" || upper == "ANSI_65001";
}

const char* libraryName(std::string_view codePage) {
    const std::string upper = upperCase(codePage);
    for (const PageName& name : pageNames)
        if (name.inDrawings == upper)
            return name.inLibrary;
    return "CP1252";
}

bool isDoubleByte(std::string_view libraryName) noexcept {
    return libraryName == "CP932" || libraryName == "CP936" || libraryName == "CP949" ||
           libraryName == "CP950" || libraryName == "JOHAB";
}

int hexDigit(char16_t unit) noexcept {
    if (unit >= u'0' && unit <= u'9')
        return unit - u'0';
    if (unit >= u'a' && unit <= u'f')
        return unit - u'a' + 10;
    return unit >= u'A' && unit <= u'F' ? unit - u'A' + 10 : -1;
}

/// The number that four hexadecimal digits make.
std::optional<char16_t> fourDigits(CStringView text) noexcept {
    unsigned value = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        if (i >= text.size() || hexDigit(text[i]) < 0)
            return std::nullopt;
        value = value * 16 + static_cast<unsigned>(hexDigit(text[i]));
    }
    return static_cast<char16_t>(value);
}

constexpr std::array<const char*, 6> asianPages = {nullptr, "CP932", "CP950", "CP949", "JOHAB", "CP936"};
constexpr std::size_t unicodeLength = 7; // \U+XXXX
constexpr std::size_t asianLength = 8;   // \M+nXXXX

bool isUnicodeEscape(CStringView text) noexcept {
    return text.starts_with(u"\\U+") && fourDigits(text.substr(3));
}
bool isAsianEscape(CStringView text) noexcept {
    return text.starts_with(u"\\M+") && text.size() >= asianLength && text[3] >= u'1' && text[3] <= u'5' &&
           fourDigits(text.substr(4));
}

/// The character of an `\M+nXXXX` escape; empty when the code page has none there.
CString asianCharacter(CStringView escape) {
    const char16_t code = *fourDigits(escape.substr(4));
    std::string bytes{static_cast<char>(code >> 8), static_cast<char>(code & 0xFF)};
    if (code < 0x100)
        bytes.erase(0, 1);
    const Converter converter("UTF-16LE", asianPages[static_cast<std::size_t>(escape[3] - u'0')]);
    const CString character = unitsOf(converter.convert(bytes));
    return character.size() == 1 && character[0] < u' ' ? CString() : character;
}

/// The text with its escapes replaced. One that stands for nothing, or for a control character, stays.
CString withoutEscapes(CString text) {
    std::size_t at = text.find(u'\\');
    if (at == CString::npos)
        return text;
    CString result(text, 0, at);
    while (at < text.size()) {
        const CStringView rest = CStringView(text).substr(at);
        CString character;
        std::size_t length = unicodeLength;
        if (isUnicodeEscape(rest) && *fourDigits(rest.substr(3)) >= u' ') {
            character = *fourDigits(rest.substr(3));
        } else if (isAsianEscape(rest)) {
            character = asianCharacter(rest);
            length = asianLength;
        }
        result += character.empty() ? CString(1, text[at]) : character;
        at += character.empty() ? 1 : length;
    }
    return result;
}

void appendEscape(char16_t unit, std::string& out) {
    std::array<char, 8> escape{};
    std::snprintf(escape.data(), escape.size(), "\\U+%04X", static_cast<unsigned>(unit));
    out += escape.data();
}

} // namespace

/// A code page: its characters one at a time. Values in other than plain characters are short and rare.
class DrawingText::CodePage {
public:
    explicit CodePage(std::string_view name)
        : isDoubleByte_(isDoubleByte(libraryName(name))), isAscii_(name == "ascii" || name == "ASCII"),
          toUnits_("UTF-16LE", libraryName(name)), toBytes_(libraryName(name), "UTF-16LE") {}

    CString decode(std::string_view bytes) const {
        CString text;
        for (std::size_t at = 0; at < bytes.size();) {
            if (static_cast<unsigned char>(bytes[at]) < 0x80) {
                text += static_cast<char16_t>(bytes[at++]);
                continue;
            }
            std::size_t length = 1;
            CString character = unitsOf(toUnits_.convert(bytes.substr(at, 1)));
            if (character.empty() && isDoubleByte_ && at + 1 < bytes.size())
                character = unitsOf(toUnits_.convert(bytes.substr(at, length = 2)));
            if (character.empty()) {
                length = 1;
                character = static_cast<char16_t>(byteEscape + static_cast<unsigned char>(bytes[at]));
            }
            text += character;
            at += length;
        }
        return text;
    }

    /// The bytes of one character; empty when the code page has none that read as this character again.
    std::string encode(CStringView character) const {
        std::string units;
        ryv::encodeUtf16(character, false, units);
        std::string bytes = isAscii_ ? std::string() : toBytes_.convert(units);
        return decode(bytes) == character ? bytes : std::string();
    }

private:
    bool isDoubleByte_;
    bool isAscii_; // read as if it were ANSI_1252, but only plain characters are written
    Converter toUnits_, toBytes_;
};

DrawingText::DrawingText(bool isUtf8, std::string_view codePage)
    : isUtf8_(isUtf8 || isUtf8Name(codePage)), pageName_(codePage) {}
DrawingText::DrawingText(DrawingText&&) noexcept = default;
DrawingText& DrawingText::operator=(DrawingText&&) noexcept = default;
DrawingText::~DrawingText() = default;

const DrawingText::CodePage& DrawingText::page() const {
    if (!page_)
        page_ = std::make_unique<CodePage>(pageName_);
    return *page_;
}

CString DrawingText::decodeBytes(std::string_view bytes) const {
    if (isUtf8_)
        return ryv::decodeUtf8(bytes);
    if (std::all_of(bytes.begin(), bytes.end(), isPlain))
        return {bytes.begin(), bytes.end()};
    return page().decode(bytes);
}

CString DrawingText::decode(std::string_view value) const {
    return withoutEscapes(decodeBytes(value));
}

/// The bytes of text that a line can hold. `keepsBytes`: surrogates that stand for a byte become that byte.
std::string DrawingText::encodeUnits(CStringView text, bool keepsBytes) const {
    std::string bytes;
    for (std::size_t at = 0; at < text.size();) {
        const char16_t unit = text[at];
        const CStringView rest = text.substr(at);
        const CStringView character = rest.substr(0, characterLength(text, at));
        at += character.size();
        const bool isLone = character.size() == 1 && (isHigh(unit) || isLow(unit));
        if (unit < 0x80 && !isUnicodeEscape(rest) && !isAsianEscape(rest))
            bytes += static_cast<char>(unit);
        else if (isLone && keepsBytes && isByteEscape(unit))
            bytes += static_cast<char>(unit - byteEscape);
        else if (isUtf8_ && unit >= 0x80 && !isLone)
            ryv::encodeUtf8(character, bytes);
        else if (const std::string own =
                     isUtf8_ || isLone || unit < 0x80 ? std::string() : page().encode(character);
                 !own.empty())
            bytes += own;
        else
            for (const char16_t part : character)
                appendEscape(part, bytes);
    }
    return bytes;
}

bool DrawingText::encode(CStringView text, std::string& value) const {
    if (std::any_of(text.begin(), text.end(), [](char16_t unit) { return unit < u' ' || unit == 0x7F; }))
        return false;
    std::string bytes = encodeUnits(text, true);
    // Bytes kept from elsewhere may form a character here.
    if (decode(bytes) != text)
        bytes = encodeUnits(text, false);
    value += bytes;
    return true;
}

} // namespace drafta
