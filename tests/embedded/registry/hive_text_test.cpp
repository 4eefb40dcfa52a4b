#include "embedded/registry/hive_text.h"

#include "tests/support/random.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

namespace drafta {
namespace {

using namespace std::string_literals;
using ryv::CString;

const std::string header = "drafta registry 1\n";

TEST(HiveText, hive_isWrittenForPeople) {
    Hive hive;
    hive.makeKey(u"Software\\drafta\\Settings");
    hive.set(u"SOFTWARE\\drafta\\settings", u"Folder", CString(u"C:\\Łódź [1]"));
    hive.set(u"Software\\drafta\\Settings", u"50%", CString(u"a\n\"b\""));
    hive.set(u"software", u"Count", 4294967295u);
    EXPECT_EQ(printHive(hive), header + "\n[Software]\n\"Count\"=4294967295\n"
                                        "\n[Software\\drafta\\Settings]\n\"50%0025\"=\"a%000A%0022b%0022\"\n"
                                        "\"Folder\"=\"C:\\Łódź [1]\"\n");
}

TEST(HiveText, anyUnits_roundTrip) {
    ryv::test::Random random(5);
    const CString special = u"\0\r\n\"%[]\\= \t\x2028\xFEFF\xD83D\xDE00\xDC5C"s;
    const auto text = [&] {
        CString result;
        for (std::size_t left = random.below(12); left != 0; --left)
            result += random.below(2) ? special[random.below(special.size())]
                                      : static_cast<char16_t>(random.below(0x10000));
        return result;
    };
    Hive hive;
    struct Entry {
        CString key, name;
    };
    std::vector<Entry> entries;
    for (int i = 0; i < 2000; ++i) {
        entries.push_back({text() + u"\\k", text()});
        hive.makeKey(entries.back().key);
        hive.set(entries.back().key, entries.back().name, text());
    }
    const std::string bytes = printHive(hive);
    const std::optional<Hive> read = parseHive(bytes);
    ASSERT_TRUE(read);
    EXPECT_EQ(printHive(*read), bytes);
    for (const auto& [key, name] : entries) {
        const Hive::Value* const value = read->find(key, name);
        ASSERT_NE(value, nullptr);
        EXPECT_EQ(*value, *hive.find(key, name));
    }
}

TEST(HiveText, editedByHand_isUnderstood) {
    const auto hive = parseHive("\xEF\xBB\xBF"
                                "drafta registry 1\r\n[A]\r\n\r\n\"x\"=\"%000a\"\r\n[a]\r\n\"y\"=1");
    ASSERT_TRUE(hive);
    EXPECT_EQ(*hive->find(u"a", u"X"), Hive::Value(CString(u"\n")));
    EXPECT_EQ(*hive->find(u"A", u"Y"), Hive::Value(1u));
}

TEST(HiveText, whatWouldBeLost_isRefused) {
    for (const char* const rest :
        {"\"x\"=1\n", "[A\n", "[A]\nx=1\n", "[A]\n\"x\"\n", "[A]\n\"x\"=\n", "[A]\n\"x\"=-1\n",
            "[A]\n\"x\"=4294967296\n", "[A]\n\"x\"=\"a\n", "[A]\n\"x\"=\"a\"b\"\n", "[A]\n\"x\"=\"%12\"\n",
            "[A]\n\"x\"=\"%00G0\"\n", "[A]\n\"x\"=1\n\"X\"=2\n", "# comment\n", "[A]\n\"x\"=\"\xFF\"\n"})
        EXPECT_FALSE(parseHive(header + rest)) << rest;
    EXPECT_TRUE(parseHive(header));
    for (const char* const whole : {"", "\n", "drafta registry 2\n", "REGEDIT\n"})
        EXPECT_FALSE(parseHive(whole)) << whole;
}

} // namespace
} // namespace drafta
