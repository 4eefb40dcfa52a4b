#include "base/encoding.h"

#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <set>

namespace ryv {
namespace {

using namespace std::string_literals;
using test::RandomText;
using test::shown;

/// Bytes that make up valid, broken and half sequences of UTF-8 often.
const CString byteAlphabet = u"a\x7F\x80\x8D\xA0\xBF\xC0\xC2\xC3\xE0\xE2\xED\xEF\xF0\xF4\xF5\xFF";

std::string randomBytes(RandomText& random, std::size_t length) {
    std::string bytes;
    for (const char16_t unit : random.text(length))
        bytes += static_cast<char>(unit);
    return bytes;
}

const CString textAlphabet =
    u"aZ\0\x7F\x80\x00E4\x07FF\x0800\x20AC\xD7FF\xD800\xDBFF\xDC00\xDC80\xDCFF\xDFFF\xE000\xFFFF"s;

TEST(Encoding, names_anyBytes_comeBack) {
    for (unsigned value = 0; value < 0x10000; ++value) {
        const std::string bytes = {static_cast<char>(value >> 8), static_cast<char>(value & 0xFF)};
        ASSERT_EQ(nameToBytes(nameFromBytes(bytes)), bytes);
    }
    RandomText random(21, byteAlphabet);
    for (int i = 0; i < 50000; ++i) {
        const std::string bytes = randomBytes(random, random.below(20));
        ASSERT_EQ(nameToBytes(nameFromBytes(bytes)), bytes) << testing::PrintToString(bytes);
    }
}

TEST(Encoding, utf8_anyText_comesBack) {
    RandomText random(23, textAlphabet);
    for (int i = 0; i < 50000; ++i) {
        const CString text = random.text(random.below(40));
        ASSERT_EQ(decodeUtf8(toUtf8(text)), text) << shown(text);
    }
}

TEST(Encoding, decodeUtf8_anyBytes_reportsExactlyWhenInvalid) {
    RandomText random(24, byteAlphabet);
    for (int i = 0; i < 50000; ++i) {
        const std::string bytes = randomBytes(random, random.below(24));
        CodecReport report;
        const CString text = decodeUtf8(bytes, &report);
        ASSERT_EQ(report.problems == 0, isValidUtf8(bytes)) << testing::PrintToString(bytes);
        ASSERT_EQ(decodeUtf8(toUtf8(text)), text) << testing::PrintToString(bytes);
        if (report.problems == 0) {
            ASSERT_EQ(toUtf8(text), bytes);
        } else {
            ASSERT_TRUE(isValidUtf8(bytes.substr(0, report.first))) << testing::PrintToString(bytes);
        }
    }
}

TEST(Encoding, decodeUtf8_undecodableBytes_stayLone) {
    RandomText random(25, byteAlphabet);
    for (int i = 0; i < 50000; ++i) {
        const std::string bytes = randomBytes(random, random.below(24));
        CodecReport decoded;
        CodecReport encoded;
        std::string again;
        encodeUtf8(decodeUtf8(bytes, &decoded), again, &encoded);
        ASSERT_EQ(decoded.problems == 0, encoded.problems == 0) << testing::PrintToString(bytes);
    }
    EXPECT_EQ(decodeUtf8("\xED\xA0\x80\xFF"), u"\xDCED\xDCA0\xDC80\xDCFF"s);
    EXPECT_EQ(decodeUtf8("\xED\xA0\x80\xED\xA0\x81\xED\xB0\x80").size(), 9u);
}

struct Malformed {
    const char* what;
    std::string bytes;
    CString text;
    std::size_t problems;
    std::size_t first;
};

TEST(Encoding, decodeUtf8_malformed_isPlacedAndCounted) {
    const std::vector<Malformed> cases = {{"stray continuation", "ab\x80", u"ab\xDC80"s, 1, 2},
        {"overlong of two", "\xC0\xAF", u"\xDCC0\xDCAF"s, 2, 0},
        {"overlong of two, last", "\xC1\xBF", u"\xDCC1\xDCBF"s, 2, 0},
        {"overlong of three", "x\xE0\x9F\xBF", u"x\xDCE0\xDC9F\xDCBF"s, 3, 1},
        {"overlong of four", "\xF0\x8F\xBF\xBF", u"\xDCF0\xDC8F\xDCBF\xDCBF"s, 4, 0},
        {"above U+10FFFF", "\xF4\x90\x80\x80", u"\xDCF4\xDC90\xDC80\xDC80"s, 4, 0},
        {"first byte F5", "\xF5\x80\x80\x80", u"\xDCF5\xDC80\xDC80\xDC80"s, 4, 0},
        {"bytes FE and FF", "x\xFE\xFF", u"x\xDCFE\xDCFF"s, 2, 1},
        {"cut off", "a\xE2\x82", u"a\xDCE2\xDC82"s, 2, 1},
        {"cut off by ASCII", "\xE2\x82z", u"\xDCE2\xDC82z"s, 2, 0},
        {"high surrogate", "ab\xED\xA0\x80z", u"ab\xD800z"s, 1, 2},
        {"low surrogate", "\xED\xBF\xBF", u"\xDFFF"s, 1, 0}};
    for (const auto& [what, bytes, text, problems, first] : cases) {
        CodecReport report;
        EXPECT_EQ(decodeUtf8(bytes, &report), text) << what;
        EXPECT_EQ(report.problems, problems) << what;
        EXPECT_EQ(report.first, first) << what;
        EXPECT_FALSE(isValidUtf8(bytes)) << what;
        EXPECT_EQ(detectEncoding(bytes), TextEncoding::windows1252) << what;
    }
}

TEST(Encoding, decodeUtf8_limitsOfEachLength_areValid) {
    const std::string bytes =
        "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF\xF0\x90\x80\x80"
        "\xF4\x8F\xBF\xBF";
    CodecReport report;
    EXPECT_EQ(decodeUtf8(bytes, &report), u"\x7F\x80\x7FF\x800\xD7FF\xE000\xFFFF\xD800\xDC00\xDBFF\xDFFF"s);
    EXPECT_EQ(report.problems, 0u);
    EXPECT_EQ(report.first, CodecReport::none);
}

TEST(Encoding, encodeUtf8_loneSurrogates_areReportedByUnit) {
    CodecReport report;
    std::string out = "kept";
    encodeUtf8(u"\u00E4\xD83D\xDE00\xDC00z\xD800", out, &report);
    EXPECT_EQ(out, "kept\xC3\xA4\xF0\x9F\x98\x80\xED\xB0\x80z\xED\xA0\x80");
    EXPECT_EQ(report.problems, 2u);
    EXPECT_EQ(report.first, 3u);
}

TEST(Encoding, windows1252_all256Bytes_comeBack) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    CodecReport decoded;
    const CString text = decodeWindows1252(all, &decoded);
    EXPECT_EQ(decoded.problems, 5u);
    EXPECT_EQ(decoded.first, 0x81u);
    EXPECT_EQ(std::set<char16_t>(text.begin(), text.end()).size(), 256u);
    CodecReport encoded;
    std::string again;
    encodeWindows1252(text, again, &encoded);
    EXPECT_EQ(again, all);
    EXPECT_EQ(encoded.problems, 0u);
}

TEST(Encoding, windows1252_knownBytes_haveTheirCharacters) {
    EXPECT_EQ(decodeWindows1252("\x80\x82\x8A\x99\x9F\xA0\xC4\xFF"),
        u"\u20AC\u201A\u0160\u2122\u0178\u00A0\u00C4\u00FF");
    for (const char16_t byte : u"\x81\x8D\x8F\x90\x9D"s) {
        CodecReport report;
        const std::string bytes = {'a', static_cast<char>(byte)};
        EXPECT_EQ(decodeWindows1252(bytes, &report), (CString{u'a', byte}));
        EXPECT_EQ(report.problems, 1u);
        EXPECT_EQ(report.first, 1u);
    }
}

TEST(Encoding, encodeWindows1252_unitsItLacks_becomeQuestionMarks) {
    CodecReport report;
    std::string out;
    encodeWindows1252(u"a\u0080\u56F3\u20AC\xD83D\xDE00", out, &report);
    EXPECT_EQ(out, "a??\x80??");
    EXPECT_EQ(report.problems, 4u);
    EXPECT_EQ(report.first, 1u);
}

TEST(Encoding, utf16_anyText_comesBackInBothByteOrders) {
    RandomText random(26, textAlphabet);
    for (const bool bigEndian : {false, true})
        for (int i = 0; i < 2000; ++i) {
            const CString text = random.text(random.below(20));
            std::string bytes;
            encodeUtf16(text, bigEndian, bytes);
            ASSERT_EQ(decodeUtf16(bytes, bigEndian), text) << shown(text);
        }
    std::string little;
    encodeUtf16(u"\u0141", false, little);
    EXPECT_EQ(little, "\x41\x01");
    EXPECT_EQ(decodeUtf16("\x01\x41", true), u"\u0141");
}

TEST(Encoding, decodeUtf16_oddByteAndLoneSurrogates_areReported) {
    CodecReport odd;
    EXPECT_EQ(decodeUtf16("a\0b"s, false, &odd), u"a");
    EXPECT_EQ(odd.problems, 1u);
    EXPECT_EQ(odd.first, 2u);
    CodecReport lone;
    EXPECT_EQ(
        decodeUtf16("a\0\x3D\xD8\x00\xDE\x00\xDC\x00\xD8"s, false, &lone), u"a\xD83D\xDE00\xDC00\xD800"s);
    EXPECT_EQ(lone.problems, 2u);
    EXPECT_EQ(lone.first, 6u);
    CodecReport single;
    EXPECT_EQ(decodeUtf16("a", true, &single), u"");
    EXPECT_EQ(single.first, 0u);
}

TEST(Encoding, detectEncoding_marksAndContent_decide) {
    const std::pair<std::string, TextEncoding> cases[] = {{"", TextEncoding::utf8},
        {"plain", TextEncoding::utf8}, {"\xC3\xA4", TextEncoding::utf8}, {"\xE4", TextEncoding::windows1252},
        {std::string(100, 'a') + "\xC3", TextEncoding::windows1252},
        {"\xEF\xBB\xBF", TextEncoding::utf8WithMark}, {"\xEF\xBB\xBF\xE4", TextEncoding::utf8WithMark},
        {"\xEF\xBB", TextEncoding::windows1252},
        {"\xFF\xFE"
         "a"s,
            TextEncoding::utf16LittleEndian},
        {"\xFE\xFF", TextEncoding::utf16BigEndian}, {"\xFF", TextEncoding::windows1252}};
    for (const auto& [bytes, expected] : cases)
        EXPECT_STREQ(encodingName(detectEncoding(bytes)), encodingName(expected))
            << testing::PrintToString(bytes);
}

TEST(Encoding, encode_withMark_isDetectedAndComesBack) {
    const CString text = u"Stra\u00DFe 1\r\n\u00C4";
    for (const TextEncoding encoding : {TextEncoding::utf8, TextEncoding::utf8WithMark,
             TextEncoding::utf16LittleEndian, TextEncoding::utf16BigEndian, TextEncoding::windows1252}) {
        std::string bytes(mark(encoding));
        encode(text, encoding, bytes);
        EXPECT_EQ(detectEncoding(bytes), encoding) << encodingName(encoding);
        EXPECT_EQ(decode(bytes.substr(markLength(encoding)), encoding), text) << encodingName(encoding);
    }
}

TEST(Encoding, decodeUtf8_nonAsciiAtEveryOffset_isFound) {
    for (std::size_t offset = 0; offset < 40; ++offset) {
        std::string bytes(40, 'a');
        bytes[offset] = '\xE4';
        CodecReport report;
        EXPECT_EQ(decodeUtf8(bytes, &report)[offset], 0xDCE4);
        EXPECT_EQ(report.first, offset);
        EXPECT_FALSE(isValidUtf8(bytes)) << offset;
    }
}

} // namespace
} // namespace ryv
