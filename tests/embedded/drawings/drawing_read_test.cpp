// What views find in drawings that an independent library has written.
#include "tests/embedded/drawings/drawing_fixture.h"

namespace drafta::test {

class DrawingRead : public DrawingFixture {};

TEST_F(DrawingRead, settings_recordedDrawings_areFoundWhereTheyAre) {
    struct Case {
        const char* drawing;
        CString space;
        std::size_t attributes; // 0: no reference
        std::vector<std::pair<CString, std::string>> values;
    };
    const std::vector<Case> cases{
        {"panel", u"*Model_Space", 77, {{u"SHEET", ""}, {u"runghorv", "H"}, {u"WNUM_GAP", "0.0,0.0,0.0"}}},
        {"panel", u"*Paper_Space", 0, {}},
        {"paper", u"*Model_Space", 0, {}},
        {"paper", u"*PAPER_SPACE", 77, {{u"SHEET", "2"}, {u"WIREFMT", "%S%N"}}},
        {"short", u"*Model_Space", 76, {{u"SHEET", "(none)"}, {u"SHEET_", "17"}, {u"WIRELAYS", "WIRES,PWR"}}},
        {"nested", u"*Model_Space", 0, {}},
        {"nested", u"*Paper_Space", 0, {}},
        {"plain", u"*Model_Space", 0, {}},
        {"text", u"*Model_Space", 77,
            {{u"SHEET", "Ü-01"}, {u"SHEETDWGNAME", "電-01"}, {u"IEC_PROJ", "O'BRIEN \"6\""},
                {u"IEC_INST", ""}, {u"IEC_LOC", " A B "}, {u"MISC_DATA", "%%c\\P {x} ;"},
                {u"XREF_FILLWITH", std::string(255, 'x')}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.drawing + shown(c.space));
        DrawingView database = view(recorded(c.drawing));
        EXPECT_EQ(database.layoutCount(), 2u);
        ASSERT_TRUE(database.setSpace(c.space));
        EXPECT_EQ(database.firstReference(u"kq_m"), c.attributes != 0);
        EXPECT_EQ(database.hasOpenReference(), c.attributes != 0);
        EXPECT_EQ(database.attributes().size(), c.attributes);
        EXPECT_FALSE(database.nextReference());
        database.firstReference(u"KQ_M");
        for (const auto& [tag, value] : c.values)
            EXPECT_EQ(read(database, tag), value) << shown(tag);
    }
}

TEST_F(DrawingRead, references_ofLadders_comeInTheOrderOfTheDrawing) {
    DrawingView database = view(recorded("ladder"));
    std::string formats;
    for (bool found = database.firstReference(u"KQ_MLRV1"); found; found = database.nextReference())
        formats += read(database, u"WIREFMT") + "|";
    EXPECT_EQ(formats, "%n|%N|%N |");
    EXPECT_EQ(database.referredBlocks(),
        (ryv::CStringArray{u"KQ_MLRH", u"KQ_MLRV1", u"KQ_MLRV2", u"KQ_MLRH3", u"KQ_M"}));
    EXPECT_TRUE(database.firstReference(u"KQ_M"));
    EXPECT_FALSE(database.setSpace(u"*Paper_Space7"));
    EXPECT_TRUE(database.hasOpenReference()) << "a space that does not exist leaves all as it is";
    EXPECT_TRUE(database.setSpace(u"*Paper_Space"));
    EXPECT_FALSE(database.hasOpenReference());
    EXPECT_TRUE(database.firstReference(u"KQ_MLRH"));
    EXPECT_FALSE(database.nextReference());
}

TEST_F(DrawingRead, attributes_ofShort_haveTheirPlaces) {
    DrawingView database = view(recorded("short"));
    ASSERT_TRUE(database.firstReference(u"KQ_M"));
    std::vector<CString> lowest;
    for (const auto& [tag, value, position] : database.attributes())
        if (position.y == -200)
            lowest.push_back(tag);
    EXPECT_EQ(lowest, (std::vector<CString>{u"TAGFMT", u"XREFFMT"}));
}

std::string pairsOf(std::initializer_list<std::pair<int, const char*>> pairs) {
    std::string text;
    for (const auto& [code, value] : pairs)
        text += std::to_string(code) + "\n" + value + "\n";
    return text;
}

std::string entities(const std::string& content) {
    return pairsOf({{0, "SECTION"}, {2, "ENTITIES"}}) + content + pairsOf({{0, "ENDSEC"}, {0, "EOF"}});
}

// Shapes that occur in the field, each in the least drawing that shows it.
TEST_F(DrawingRead, references_ofUnusualForm_areUnderstood) {
    struct Case {
        const char* what;
        std::string content;
        std::string tags;
    };
    const std::string head = pairsOf({{0, "INSERT"}, {8, "0"}, {66, "1"}, {2, "B"}});
    const std::string bare = pairsOf({{0, "INSERT"}, {8, "0"}, {2, "B"}});
    const std::string a = pairsOf({{0, "ATTRIB"}, {10, "1"}, {40, "1"}, {1, "v"}, {2, "A"}});
    const std::string b = pairsOf({{0, "ATTRIB"}, {330, "FF"}, {10, "1"}, {2, "B "}});
    const std::string end = pairsOf({{0, "SEQEND"}, {8, "0"}});
    const std::string lines = pairsOf({{0, "MTEXT"}, {1, "v"}});
    const std::string extended = pairsOf({{0, "ATTRIB"}, {102, "{X"}, {2, "NOT"}, {102, "}"}, {2, "C"},
        {999, "note"}, {101, "Embedded Object"}, {2, "NOT"}, {1001, "X"}});
    const std::vector<Case> cases{
        {"an owner handle that points elsewhere", head + a + b + end, "A B "},
        {"attributes without the mark that they follow", bare + a + end, ""},
        {"the mark, and none follow", head + bare, ""},
        {"the mark, and only the end follows", head + end + bare + a + end, ""},
        {"lines of an attribute in a record of their own", head + a + lines + b + end, "A B "},
        {"groups, comments, embedded objects", head + extended + b + end, "C B "},
        {"a mark of several digits", pairsOf({{0, "INSERT"}, {66, "01"}, {2, "B"}}) + a + end, "A "},
        {"an array", pairsOf({{0, "INSERT"}, {66, "1"}, {2, "b"}, {70, "3"}, {71, "2"}}) + a + end, "A "},
        {"padded, blank behind, CR LF", "  0  \r\nINSERT \r\n 66\r\n     1\r\n  2\r\nB\r\n" + a + end, "A "},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        DrawingView database = view(entities(c.content));
        ASSERT_TRUE(database.firstReference(u"B"));
        std::string tags;
        for (const ryv::DrawingAttribute& attribute : database.attributes())
            tags += ryv::toUtf8(attribute.tag) + " ";
        EXPECT_EQ(tags, c.tags);
    }
}

TEST_F(DrawingRead, position_ofAnExtrudedAttribute_isInTheCoordinatesOfTheSpace) {
    const std::string turned = pairsOf({{210, "0"}, {220, "0"}, {230, "-1"}});
    DrawingView database = view(entities(pairsOf({{0, "INSERT"}, {2, "B"}, {66, "1"}, {0, "ATTRIB"},
                                             {10, "3"}, {20, "4"}, {30, "5"}, {2, "A"}}) +
                                         turned + pairsOf({{0, "SEQEND"}})));
    ASSERT_TRUE(database.firstReference(u"B"));
    const DrawingPoint position = database.attributes().front().position;
    EXPECT_EQ(position.x, -3);
    EXPECT_EQ(position.y, 4);
    EXPECT_EQ(position.z, -5);
}

TEST_F(DrawingRead, blocksNamedNearlyLikeSpaces_areNone) {
    std::string blocks = pairsOf({{0, "SECTION"}, {2, "BLOCKS"}});
    for (const char* const name :
        {"*Model_Space", "*MODEL_SPACE1", "*Paper_Space", "*Paper_Space12", "*Paper_Spaces"})
        blocks += pairsOf({{0, "BLOCK"}, {2, name}, {0, "INSERT"}, {2, "B"}, {0, "ENDBLK"}});
    DrawingView database = view(blocks + pairsOf({{0, "ENDSEC"}, {0, "EOF"}}));
    EXPECT_EQ(database.layoutCount(), 3u);
    EXPECT_TRUE(database.setSpace(u"*Paper_Space12"));
    EXPECT_FALSE(database.setSpace(u"*Paper_Spaces"));
    EXPECT_FALSE(database.setSpace(u"*Model_Space1"));
}

TEST_F(DrawingRead, byteOrderMark_inFront_isPassedOver) {
    EXPECT_TRUE(load("\xEF\xBB\xBF" + recorded("panel"))) << problem;
}

} // namespace drafta::test
