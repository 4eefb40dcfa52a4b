#include "base/format.h"

#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <limits>

namespace ryv {
namespace {

TEST(Format, arguments_ofTheRightKind_replacePlaceholdersInOrder) {
    EXPECT_EQ(format(u"%d of %d in %s", {3, 10, u"Demo"}), u"3 of 10 in Demo");
    EXPECT_EQ(format(u"%s%s", {CString(u"a"), CStringView(u"b")}), u"ab");
    EXPECT_EQ(format(u"%d", {std::numeric_limits<long long>::min()}), u"-9223372036854775808");
}

TEST(Format, percentSigns_doubledOrUnknown_areText) {
    EXPECT_EQ(format(u"100%%", {}), u"100%");
    EXPECT_EQ(format(u"%%d %d", {1}), u"%d 1");
    EXPECT_EQ(format(u"%x %5d %", {1}), u"%x %5d %");
    EXPECT_EQ(format(u"%%%d", {1}), u"%1");
}

TEST(Format, arguments_missingOrOfAnotherKind_leaveThePlaceholder) {
    EXPECT_EQ(format(u"%s and %s", {u"a"}), u"a and %s");
    EXPECT_EQ(format(u"%d", {u"a"}), u"%d");
    EXPECT_EQ(format(u"%d-%s", {u"a"}), u"%d-a");
    EXPECT_EQ(format(u"%s", {1, u"b"}), u"%s");
}

TEST(Format, texts_withPlaceholders_areNotSearched) {
    EXPECT_EQ(format(u"%s|%s", {u"%s%d%%", u"b"}), u"%s%d%%|b");
}

TEST(Format, placeholders_patterns_giveKindsInOrder) {
    EXPECT_EQ(placeholders(u"%s is %d, %%d, 100%% %s"), u"sds");
    EXPECT_EQ(placeholders(u"%x %"), u"");
    EXPECT_EQ(placeholders(u"%%%s"), u"s");
    EXPECT_EQ(placeholders(u""), u"");
}

} // namespace
} // namespace ryv
