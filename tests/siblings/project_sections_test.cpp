#include "siblings/project_sections.h"

#include "siblings/misc_proj_settings.h"
#include "siblings/token.h"
#include "tests/support/finding_recorder.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace ryv::test {
namespace {

class Sections : public ::testing::Test {
protected:
    void load(std::string_view bytes) {
        ByteBuffer buffer;
        ASSERT_TRUE(buffer.allocate(bytes.size()));
        std::copy(bytes.begin(), bytes.end(), buffer.data());
        ASSERT_TRUE(sections.load(std::move(buffer), &recorder));
    }
    std::vector<CString> drawingLines() const {
        std::vector<CString> lines;
        for (std::size_t i = 0; i < sections.drawingLineCount(); ++i)
            lines.emplace_back(sections.drawingLine(i));
        return lines;
    }

    ProjectSections sections;
    FindingRecorder recorder;
};

using Lines = std::vector<CString>;

TEST_F(Sections, lines_areSortedAndKeepTheirOrderAndText) {
    load("x\n*[2]b\n+[1]m\n?[0]s\n =1 \n*[1]a\n[z]\n*x\n+x\n?x\n!");
    EXPECT_EQ(drawingLines(), (Lines{u"x", u" =1 ", u"[z]", u"*x", u"+x", u"?x", u"!"}));
    EXPECT_EQ(sections.descriptionLines(), (CStringList{u"a", u"b"}));
    EXPECT_EQ(sections.settings(), (std::map<int, CString>{{0, u"s"}}));
    RyvPmMiscProjSettings misc;
    sections.initMiscProjSettings(misc);
    EXPECT_EQ(misc.values(), (std::map<int, CString>{{1, u"m"}}));
}

TEST_F(Sections, lineNumbers_countEveryLineOfTheFile) {
    load("\r\n*[1]a\n\n x\r\n\n?[5]s\ny");
    ASSERT_EQ(drawingLines(), (Lines{u" x", u"y"}));
    EXPECT_EQ(sections.lineNumberOf(1), 7u);
    EXPECT_EQ(sections.lineNumberOf(0), 4u) << "also asked in another order";
    EXPECT_EQ(sections.settingLine(5), 6u);
    EXPECT_EQ(sections.settingLine(6), 0u);
}

TEST_F(Sections, lineFeedsNextToBytesOfOtherCharacters_areFound) {
    load("\xC3\xA4\n\xE2\x82\xAC\r\n\xF0\x9F\x98\x80\nx");
    EXPECT_EQ(drawingLines(), (Lines{u"\u00E4", u"\u20AC", u"\U0001F600", u"x"}));
    load("\xE4\n\xFC\r\nx");
    EXPECT_EQ(drawingLines(), (Lines{u"\u00E4", u"\u00FC", u"x"}));
    load("\xEF\xBB\xBF\xFF\n\xC3\n\xA4");
    EXPECT_EQ(drawingLines(),
        (Lines{CString(1, char16_t{0xDCFF}), CString(1, char16_t{0xDCC3}), CString(1, char16_t{0xDCA4})}));
}

// -- The records and services that the sections are read into and with.

TEST(MiscProjSettings, indices_goFromOneToTheLargest) {
    using Status = RyvPmMiscProjSettings::Status;
    RyvPmMiscProjSettings misc;
    const CString text = u"x";
    for (const int index : {-1, 0, 256, 2147483647}) {
        CString value = u"before";
        EXPECT_EQ(misc.setValue(index, &text), Status::badIndex) << index;
        EXPECT_EQ(misc.getValue(index, value), Status::badIndex) << index;
        EXPECT_EQ(value, u"before");
    }
    for (const int index : {1, 255}) {
        CString value = u"before";
        EXPECT_EQ(misc.getValue(index, value), Status::absent) << index;
        EXPECT_EQ(value, u"before");
        EXPECT_EQ(misc.setValue(index, &text), Status::present) << index;
        EXPECT_EQ(misc.getValue(index, value), Status::present) << index;
        EXPECT_EQ(value, u"x");
    }
    EXPECT_EQ(misc.setValue(255, nullptr), Status::present);
    EXPECT_EQ(misc.values(), (std::map<int, CString>{{1, u"x"}}));
}

TEST(Token, getToken_takesOneItemOffTheFront) {
    CString text = u" a ,b,, c ";
    CString token = u"before";
    Lines taken;
    while (GetToken(text, token, u','))
        taken.push_back(token);
    EXPECT_EQ(taken, (Lines{u"a", u"b", u""}));
    EXPECT_EQ(text, u" c ") << "the last item stays";
    EXPECT_EQ(token, u"") << "and the token is left alone";
}

TEST(Token, listItems_areTrimmed) {
    EXPECT_EQ(listItems(u" a ,b,, c ", u','), (CStringArray{u"a", u"b", u"", u"c"}));
    EXPECT_EQ(listItems(u"", u','), CStringArray{});
    EXPECT_EQ(listItems(u" ", u','), CStringArray{u""});
    EXPECT_EQ(listItems(u",", u','), (CStringArray{u"", u""}));
}

TEST_F(Sections, bracketsWithBlanks_areRead) {
    load("*[ 1 ]x\n+[\t7]y\n?[076]z\n");
    EXPECT_EQ(sections.descriptionLines(), CStringList{u"x"});
    EXPECT_EQ(sections.settings(), (std::map<int, CString>{{76, u"z"}}));
    EXPECT_TRUE(recorder.findings.empty());
}

} // namespace
} // namespace ryv::test
