// Texts and their bytes in the encodings of drawings.
#include "embedded/drawings/drawing_text.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

namespace drafta {

using ryv::CString;
using ryv::test::shown;

TEST(DrawingText, values_ofEachCodePage_survive) {
    struct Case {
        const char* page; // null: UTF-8
        const char* bytes;
        CString text;
        const char* written; // null: the same bytes
    };
    const std::vector<Case> cases{
        {"ANSI_1252", "\xC4 \x80", u"Ä €", nullptr},
        {"", "\xC4", u"Ä", nullptr},
        {"no such page", "\xC4", u"Ä", nullptr},
        {"ansi_1250", "\xA3\xF3", u"Łó", nullptr},
        {"ANSI_1251", "\xD9", u"Щ", nullptr},
        {"ANSI_1253", "\xD0\xDF", u"Πί", nullptr},
        {"ANSI_1254", "\xDD", u"İ", nullptr},
        {"ANSI_1257", "\xE0", u"ą", nullptr},
        {"ANSI_932", "\x95\x5C\xB1", u"表ｱ", nullptr}, // the second byte is a backslash
        {"ANSI_936", "\xB5\xE7", u"电", nullptr},
        {"ANSI_949", "\xC0\xFC", u"전", nullptr},
        {"ANSI_950", "\xB3\x5C", u"許", nullptr},
        {"dos850", "\x8E", u"Ä", nullptr},
        {"dos737", "\x80", u"Α", nullptr},
        {"DOS775", "\x80", u"Ć", nullptr},
        {"dos862", "\x80", u"א", nullptr},
        {"MACINTOSH", "\x80", u"Ä", nullptr},
        {"ISO8859-2", "\xB3", u"ł", nullptr},
        {"iso8859-5", "\xB6", u"Ж", nullptr},
        {"ISO8859-7", "\xC1", u"Α", nullptr},
        {"ISO8859-9", "\xDD", u"İ", nullptr},
        {"UTF-8", "\xE9\x9B\xBB", u"電", nullptr},
        {"ansi_65001", "\xC3\x84", u"Ä", nullptr},
        {"ascii", "\xC4", u"Ä", "\\U+00C4"},
        {nullptr, "\xC3\x84\xF0\x9F\x94\x8C", u"Ä\U0001F50C", nullptr},
        {"ANSI_1252", "\\U+96fb\\U+D83D\\U+DD0C", u"電\U0001F50C", "\\U+96FB\\U+D83D\\U+DD0C"},
        {nullptr, "\\U+96FB", u"電", "\xE9\x9B\xBB"},
        {"ANSI_1252", "\\M+1955C\\M+5B5E7", u"表电", "\\U+8868\\U+7535"},
        {"ANSI_1252", "\\M+60000 \\U+12G4 \\U+000A \\P", u"\\M+60000 \\U+12G4 \\U+000A \\P",
            "\\M+60000 \\U+12G4 \\U+005CU+000A \\P"},
        {"ANSI_1252", "\\U+005CU+0041", u"\\U+0041", nullptr},
        {"ANSI_1252", "\x81", u"\xDC81", nullptr}, // no character
        {"ANSI_932", "\x95", u"\xDC95", nullptr},  // half a character
        {nullptr, "\xFF", u"\xDCFF", nullptr},
        {"ANSI_1252", "%%c {x} \\P \\", u"%%c {x} \\P \\", nullptr},
    };
    for (const Case& c : cases) {
        const DrawingText text(c.page == nullptr, c.page ? c.page : "");
        EXPECT_EQ(shown(text.decode(c.bytes)), shown(c.text));
        std::string written;
        EXPECT_TRUE(text.encode(c.text, written));
        EXPECT_EQ(written, c.written ? c.written : c.bytes);
        EXPECT_EQ(shown(text.decode(written)), shown(c.text));
    }
}

TEST(DrawingText, anyText_survives) {
    ryv::test::RandomText random(7, u"aU+M1\\0056CxÄ電\x0081\xD83D\xDD0C\xDCC3\xDCA9\xDC95Щ 표");
    for (const char* const page : {"ANSI_1252", "ANSI_932", "ANSI_950", "ascii", "utf-8"}) {
        const DrawingText text(page == std::string_view("utf-8"), page);
        for (int i = 0; i < 2000; ++i) {
            const CString value = random.text(random.below(12));
            std::string written;
            ASSERT_TRUE(text.encode(value, written));
            ASSERT_EQ(shown(text.decode(written)), shown(value)) << page << " " << written;
        }
    }
}

} // namespace drafta
