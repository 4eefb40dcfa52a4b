#include "resources/messages.h"

#include "base/format.h"
#include "base/text.h"

#include <gtest/gtest.h>

#include <set>

namespace ryv::test {
namespace {

struct Entry {
    int number;
    const char16_t* arguments;
    bool isMessage = false; ///< a sentence or several; else a title, a name or a label
};

// The numbers as callers, LISP and answer files know them, whatever the constants are called.
constexpr Entry entries[] = {{101, u""}, {102, u""}, {103, u""}, {104, u""}, {105, u""}, {106, u""},
    {107, u""}, {108, u""}, {121, u""}, {122, u""}, {127, u""}, {128, u""}, {129, u""}, {130, u""},
    {131, u""}, {132, u"ss", true}, {133, u""}, {134, u"s", true}, {135, u""}, {136, u"ss", true}, {137, u""},
    {138, u"s"}, {173, u"", true}, {174, u"s"}, {179, u""}, {180, u"s", true}, {181, u"ss", true},
    {182, u"", true}, {183, u"", true}, {184, u""}, {185, u"s", true}, {268, u"", true}, {269, u""},
    {291, u""}, {292, u""}, {300, u""}, {301, u"", true}, {302, u""}, {303, u""}, {601, u""}, {602, u""},
    {603, u"s"}, {604, u"s"}, {605, u""}, {606, u""}, {607, u""}, {608, u""}, {611, u""}, {612, u""},
    {613, u""}, {614, u""}, {615, u""}, {616, u"d"}, {617, u"dd"}, {618, u"dd"}, {621, u""}, {622, u""},
    {623, u""}, {624, u""}, {625, u""}, {626, u""}, {627, u""}, {628, u""}, {629, u""}, {640, u""},
    {641, u""}, {642, u""}, {643, u""}, {644, u""}, {645, u""}, {646, u""}, {647, u""}, {648, u""},
    {649, u"", true}, {650, u"", true}, {651, u"", true}};

bool endsSentence(CStringView text) {
    return text.ends_with(u'.') || text.ends_with(u'?');
}

TEST(Messages, eachNumber_hasATextWithItsArguments) {
    for (const Entry& entry : entries) {
        const CStringView text = messageText(entry.number);
        ASSERT_FALSE(text.empty()) << entry.number;
        EXPECT_EQ(toAscii(placeholders(text)), toAscii(entry.arguments)) << entry.number;
        EXPECT_EQ(sameText(trim(text), text), true) << entry.number;
        EXPECT_EQ(endsSentence(text), entry.isMessage) << entry.number << ": " << toAscii(text);
        EXPECT_TRUE(entry.isMessage || text.find(u'\n') == CStringView::npos) << entry.number;
    }
}

TEST(Messages, fieldsAndLockStates_canBeToldApart) {
    std::set<CStringView> texts;
    for (const int number : {101, 102, 103, 104, 105, 106, 107, 108, 291, 292, 121, 122, 127})
        EXPECT_TRUE(texts.insert(messageText(number)).second) << number;
}

TEST(Messages, otherNumbers_haveNone) {
    for (const int number : {-1, 0, 100, 109, 267, 270, 1 << 30})
        EXPECT_TRUE(messageText(number).empty()) << number;
}

} // namespace
} // namespace ryv::test
