#include "base/fold.h"

#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace ryv {
namespace {

using test::RandomText;
using test::shown;

int hexadecimal(const CString& text) {
    return std::stoi(toAscii(text), nullptr, 16);
}

/// Lower-case unit to upper-case unit, as recorded.
std::map<char16_t, char16_t> recordedPairs() {
    std::map<char16_t, char16_t> pairs;
    for (const test::Row& row : test::readTable(RYV_TEST_DATA "/vectors/case_pairs.tsv", 4)) {
        const int first = hexadecimal(row.cells[0]);
        for (int lower = first; lower <= hexadecimal(row.cells[1]); lower += std::stoi(toAscii(row.cells[2])))
            pairs[static_cast<char16_t>(lower)] =
                static_cast<char16_t>(hexadecimal(row.cells[3]) + lower - first);
    }
    return pairs;
}

TEST(Fold, mapping_everyUnit_followsTheRecordedPairs) {
    const auto upperOf = recordedPairs();
    std::map<char16_t, char16_t> lowerOf;
    for (const auto& [lower, upper] : upperOf)
        lowerOf[upper] = lower;
    ASSERT_EQ(upperOf.size(), 873u);
    ASSERT_EQ(lowerOf.size(), 873u);
    for (unsigned code = 0; code < 0x10000; ++code) {
        const auto unit = static_cast<char16_t>(code);
        const auto upper = upperOf.find(unit);
        const auto lower = lowerOf.find(unit);
        EXPECT_EQ(toUpper(unit), upper == upperOf.end() ? unit : upper->second) << std::hex << code;
        EXPECT_EQ(toLower(unit), lower == lowerOf.end() ? unit : lower->second) << std::hex << code;
    }
}

TEST(Fold, compareNoCase_recordedCases_agree) {
    for (const test::Row& row : test::readTable(RYV_TEST_DATA "/vectors/compare_ignore_case.tsv", 4)) {
        const auto& [a, b, sign] = std::tie(row.cells[0], row.cells[1], row.cells[2]);
        const int expected = static_cast<int>(parseInteger(sign).value());
        const int actual = compareNoCase(a, b);
        EXPECT_EQ((actual > 0) - (actual < 0), expected)
            << "line " << row.line << ": " << shown(a) << " | " << shown(b);
        EXPECT_EQ(equalNoCase(a, b), expected == 0) << "line " << row.line;
    }
}

// The neighbours of the ASCII letters are here because they are what folding several units at once can get
// wrong.
const CString alphabet =
    u"azAZ@[`{0_ .\\\x007F\x0080\x00E4\x00C4\x00B5\x03BC\x2170\x2160\xFF21\xFF41\xD800\xDC61";

void checkAgreement(const CString& a, const CString& b) {
    const CString upperA = toUpper(CStringView(a));
    const CString upperB = toUpper(CStringView(b));
    const int order = upperA.compare(upperB);
    const int actual = compareNoCase(a, b);
    ASSERT_EQ((actual > 0) - (actual < 0), (order > 0) - (order < 0)) << shown(a) << " | " << shown(b);
    ASSERT_EQ(equalNoCase(a, b), order == 0) << shown(a) << " | " << shown(b);
    if (order == 0) {
        ASSERT_EQ(hashNoCase(a), hashNoCase(b)) << shown(a) << " | " << shown(b);
    }
}

TEST(Fold, comparisons_randomTexts_agreeWithMappingBothSides) {
    RandomText random(11, alphabet);
    for (std::size_t length = 0; length <= 40; ++length)
        for (int i = 0; i < 200; ++i) {
            const CString text = random.text(length);
            checkAgreement(text, random.text(random.below(41)));
            checkAgreement(text, toLower(CStringView(text)));
            checkAgreement(toUpper(CStringView(text)), toLower(CStringView(text)));
        }
}

TEST(Fold, comparisons_oneUnitDiffers_seeIt) {
    RandomText random(12, alphabet);
    for (std::size_t length = 1; length <= 40; ++length)
        for (std::size_t at = 0; at < length; ++at) {
            const CString text = random.text(length);
            for (const char16_t unit : alphabet) {
                CString other = toLower(CStringView(text));
                other[at] = unit;
                checkAgreement(text, other);
            }
        }
}

} // namespace
} // namespace ryv
