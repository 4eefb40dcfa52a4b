#include "base/text.h"

#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <limits>

namespace ryv {
namespace {

using namespace std::string_literals;
using test::shown;

TEST(Text, trim_whiteSpaceAtTheEnds_goes) {
    const std::tuple<CString, CString, CString, CString> cases[] = {{u"", u"", u"", u""},
        {u" \t\r\n\v\f", u"", u"", u""}, {u" a b ", u"a b ", u" a b", u"a b"},
        {u"\u00A0\u3000a\u2003\u2028", u"a\u2003\u2028", u"\u00A0\u3000a", u"a"},
        {u"\0a\0"s, u"\0a\0"s, u"\0a\0"s, u"\0a\0"s}, {u"\u200Ba", u"\u200Ba", u"\u200Ba", u"\u200Ba"}};
    for (const auto& [text, left, right, both] : cases) {
        EXPECT_EQ(CString(trimLeft(text)), left) << shown(text);
        EXPECT_EQ(CString(trimRight(text)), right) << shown(text);
        EXPECT_EQ(CString(trim(text)), both) << shown(text);
    }
}

TEST(Text, split_separators_giveAllParts) {
    const std::pair<CString, std::vector<CString>> cases[] = {{u"", {u""}}, {u"a", {u"a"}},
        {u";", {u"", u""}}, {u"a;;b;", {u"a", u"", u"b", u""}}, {u";a\0b"s, {u"", u"a\0b"s}}};
    for (const auto& [text, parts] : cases) {
        const CStringArray actual = split(text, u';');
        EXPECT_EQ(std::vector<CString>(actual.begin(), actual.end()), parts) << shown(text);
    }
}

TEST(Text, replaceAll_occurrences_areReplacedOnceFromTheLeft) {
    const std::tuple<CString, CString, CString, CString> cases[] = {{u"abcabc", u"bc", u"x", u"axax"},
        {u"aaa", u"aa", u"b", u"ba"}, {u"aa", u"a", u"aa", u"aaaa"}, {u"aba", u"a", u"", u"b"},
        {u"Abc", u"abc", u"x", u"Abc"}, {u"abc", u"", u"x", u"abc"}, {u"", u"a", u"x", u""},
        {u"%P%\\a", u"%P%", u"C:\\%P%", u"C:\\%P%\\a"}};
    for (const auto& [text, from, to, expected] : cases)
        EXPECT_EQ(replaceAll(text, from, to), expected) << shown(text) << " | " << shown(from);
    EXPECT_EQ(replaceAll(u"/a//b", u'/', u'\\'), u"\\a\\\\b");
}

TEST(Text, parseInteger_wholeText_orNothing) {
    const std::pair<CString, std::optional<long long>> cases[] = {{u"0", 0}, {u"-0", 0}, {u"0042", 42},
        {u"-7", -7}, {u"999999999999999999", 999999999999999999},
        {u"-999999999999999999", -999999999999999999}, {u"1000000000000000000", std::nullopt},
        {u"", std::nullopt}, {u"-", std::nullopt}, {u"--1", std::nullopt}, {u"+1", std::nullopt},
        {u" 1", std::nullopt}, {u"1 ", std::nullopt}, {u"1.5", std::nullopt}, {u"\u0661", std::nullopt},
        {u"1\0"s, std::nullopt}};
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(parseInteger(text), expected) << shown(text);
}

TEST(Text, leadingInteger_beginning_isReadWithinLimits) {
    struct Case {
        CString text;
        int expected;
    };
    constexpr int largest = std::numeric_limits<int>::max();
    constexpr int smallest = std::numeric_limits<int>::min();
    const std::vector<Case> cases = {{u"", 0}, {u"abc", 0}, {u"-", 0}, {u"+-1", 0}, {u"12abc", 12},
        {u" \t+7", 7}, {u"-12-", -12}, {u"- 1", 0}, {u"2147483647", largest}, {u"2147483648", largest},
        {u"-2147483647", smallest + 1}, {u"-2147483648", smallest}, {u"-2147483649", smallest},
        {CString(1000, u'9'), largest}, {u"-" + CString(1000, u'9'), smallest},
        {CString(1000, u'0') + u"5", 5}};
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(leadingInteger(text), expected) << shown(text);
}

TEST(Text, ascii_otherUnits_becomeQuestionMarks) {
    EXPECT_EQ(fromAscii("a\x7F\x80\xFF"), u"a\x7F??");
    EXPECT_EQ(toAscii(u"a\x7F\x80\u56F3"), "a\x7F??");
}

} // namespace
} // namespace ryv
