// Changes of attributes, byte by byte: what has to change changes, and nothing else.
#include "tests/embedded/drawings/drawing_fixture.h"

namespace drafta::test {

class DrawingEdit : public DrawingFixture {
protected:
    using Difference = std::pair<std::string, std::string>;
};

TEST_F(DrawingEdit, write_value_replacesItsBytesAlone) {
    struct Case {
        const char* drawing;
        CString tag, value;
        Difference expected;
    };
    const std::vector<Case> cases{
        {"panel", u"SHEETDWGNAME", u"E-100", {"", "E-100"}},
        {"panel", u"tagmode", u"%%c\\P {}", {"R", "%%c\\P {}"}},
        {"panel", u"IEC_PROJ", u"Ä 電", {"", "\xC4 \\U+96FB"}},
        {"text", u"SHEETDWGNAME", u"", {"\\U+96fb-01", ""}},
        {"text", u"IEC_LOC", u" A B ", {"", ""}},
        {"short", u"XREF_FILLWITH", CString(300, u'y'), {"", std::string(300, 'y')}},
    };
    for (const Case& c : cases)
        for (const bool returns : {true, false}) {
            SCOPED_TRACE(c.drawing + shown(c.tag) + (returns ? " CR LF" : " LF"));
            std::string before = recorded(c.drawing);
            if (!returns)
                std::erase(before, '\r');
            DrawingView database = view(before);
            ASSERT_TRUE(database.firstReference(u"KQ_M"));
            ASSERT_TRUE(database.writeAttribute(c.tag, c.value));
            EXPECT_EQ(read(database, c.tag), ryv::toUtf8(c.value));
            EXPECT_EQ(database.drawing()->isModified(), c.expected != Difference());
            saved(database);
            EXPECT_EQ(difference(before, folder.read("a.dwg")), c.expected);
        }
}

TEST_F(DrawingEdit, write_whatCannotBe_isRefusedWithoutAChange) {
    const std::string before = recorded("panel");
    DrawingView database = view(before);
    EXPECT_FALSE(database.writeAttribute(u"SHEET", u"1")) << "no reference is open";
    ASSERT_TRUE(database.firstReference(u"KQ_M"));
    EXPECT_FALSE(database.writeAttribute(u"NONE", u"1"));
    for (const CStringView value : {u"a\nb", u"a\r", u"\t", u"\x7F"})
        EXPECT_FALSE(database.writeAttribute(u"SHEET", value));
    const double infinite = std::numeric_limits<double>::infinity();
    EXPECT_FALSE(database.addAttribute(u"SHEET", u"a b", u"", {}));
    EXPECT_FALSE(database.addAttribute(u"SHEET", u"", u"", {}));
    EXPECT_FALSE(database.addAttribute(u"SHEET", u"loc_lay", u"", {})) << "taken";
    EXPECT_FALSE(database.addAttribute(u"NONE", u"NEW", u"", {}));
    EXPECT_FALSE(database.addAttribute(u"", u"NEW", u"", {})) << "there are attributes";
    EXPECT_FALSE(database.addAttribute(u"SHEET", u"NEW", u"\n", {}));
    EXPECT_FALSE(database.addAttribute(u"SHEET", u"NEW", u"", {0, infinite, 0}));
    EXPECT_FALSE(database.drawing()->isModified());
    EXPECT_EQ(database.drawing()->bytes(), before);
}

TEST_F(DrawingEdit, add_behindAnother_looksLikeItAndHasAHandleOfItsOwn) {
    DrawingView database = view(recorded("panel"));
    ASSERT_TRUE(database.firstReference(u"KQ_M"));
    ASSERT_TRUE(database.addAttribute(u"WNUM_GAP", u"EXTRA", u"ö", {0.5, -1.5, 0}));
    ASSERT_TRUE(database.addAttribute(u"extra", u"MORE", u"", {0, -1.5, 2}));
    const auto attributes = database.attributes();
    ASSERT_EQ(attributes.size(), 79u);
    EXPECT_EQ(attributes[78].tag, u"MORE");
    EXPECT_EQ(attributes[78].position.y, -117);
    EXPECT_EQ(attributes[78].position.z, 2);
    const auto lines = linesOf(saved(database), "attrib");
    ASSERT_EQ(lines.size(), 81u) << "with the two of TITLE_A";
    EXPECT_EQ(
        lines[79], (ReportLine{"attrib", "EXTRA", "ö", "0.5", "-115.5", "0.2", "0", "1", "SETTINGS", "-"}));
}

TEST_F(DrawingEdit, add_whereThereAreNoHandles_addsNone) {
    const std::string before = recorded("short");
    DrawingView database = view(before);
    ASSERT_TRUE(database.firstReference(u"KQ_M"));
    ASSERT_TRUE(database.addAttribute(u"TAGFMT", u"WNUM_GAP", u"0", {0, -1.5, 0}));
    saved(database);
    EXPECT_EQ(difference(before, folder.read("a.dwg")).first, "");
    EXPECT_EQ(folder.read("a.dwg").find("\r\n  5\r\n", before.find("ENTITIES")), std::string::npos);
    EXPECT_EQ(database.attributes()[6].position.y, -201.5);
}

TEST_F(DrawingEdit, add_first_makesTheSequenceAndTheMark) {
    std::string before = recorded("plain");
    const std::string insert =
        "  0\r\nINSERT\r\n  5\r\n7FFF\r\n  8\r\nWIRES\r\n  2\r\nTITLE_A\r\n 10\r\n7.0\r\n 20\r\n8.0\r\n";
    before.insert(before.rfind("  0\r\nENDSEC"), insert);
    for (const std::string& flag : {std::string(), std::string(" 66\r\n0\r\n")}) {
        std::string content = before;
        content.insert(content.find(" 10\r\n7.0"), flag);
        DrawingView database = view(content);
        ASSERT_TRUE(database.firstReference(u"TITLE_A"));
        ASSERT_TRUE(database.nextReference());
        ASSERT_TRUE(database.addAttribute(u"", u"FIRST", u"1", {9, 9, 9}));
        ASSERT_TRUE(database.addAttribute(u"FIRST", u"SECOND", u"2", {0, -1, 0}));
        const auto report = saved(database);
        const auto lines = linesOf(report, "attrib");
        ASSERT_EQ(lines.size(), 4u) << "with the two of the other reference";
        EXPECT_EQ(lines[2], (ReportLine{"attrib", "FIRST", "1", "7", "8", "2.5", "0", "1", "WIRES", "-"}));
        EXPECT_EQ(lines[3], (ReportLine{"attrib", "SECOND", "2", "7", "7", "2.5", "0", "1", "WIRES", "-"}));
        EXPECT_EQ(linesOf(report, "insert").back()[7], "WIRES");
    }
}

TEST_F(DrawingEdit, add_whereNothingHasAHandle_addsNone) {
    const std::string reference =
        "0\nINSERT\n100\nXxEntity\n8\n0\n100\nXxBlockReference\n66\n1\n2\nB\n10\n0\n20\n0\n";
    const std::string end = "0\nSEQEND\n100\nXxEntity\n8\n0\n0\nENDSEC\n0\nEOF\n";
    const std::string attribute =
        "0\nATTRIB\n5\n\n100\nXxEntity\n8\n0\n100\nXxText\n10\n0\n20\n0\n40\n1\n1\nv\n"
        "100\nXxAttribute\n2\nA\n70\n0\n";
    for (const std::string version : {"AC1009", "AC1015"}) {
        DrawingView database = view("0\nSECTION\n2\nHEADER\n9\n$XVER\n1\n" + version +
                                    "\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n" + reference + attribute + end);
        ASSERT_TRUE(database.firstReference(u"B"));
        ASSERT_TRUE(database.addAttribute(u"A", u"NEW", u"", {}));
        const std::string_view bytes = database.drawing()->bytes();
        EXPECT_EQ(bytes.find("\n5\n", bytes.find("ATTRIB\n5\n") + 9), std::string_view::npos) << bytes;
    }
}

// A row of edits through one view, against a fresh look at each result.
TEST_F(DrawingEdit, edits_oneBehindTheOther_leaveEveryAttributeRight) {
    for (const std::string& before :
        {recorded("panel"), ryv::test::readBytes(madeDrawings().native("R2018.dwg"))}) {
        DrawingView database = view(before);
        ASSERT_TRUE(database.firstReference(u"KQ_M"));
        database.nextReference() || database.firstReference(u"KQ_M");
        std::vector<CString> expected;
        const auto tags = database.attributes();
        for (std::size_t i = 0; i < tags.size(); ++i) {
            ASSERT_TRUE(database.writeAttribute(tags[i].tag, CString(i % 5 * 7, u'v')));
            const CString added = u"NEW" + ryv::toText(static_cast<int>(i));
            ASSERT_TRUE(database.addAttribute(tags[i].tag, added, u"n", {0, -1, 0}));
            ASSERT_TRUE(database.writeAttribute(added, CString(i % 3, u'w')));
            expected.insert(expected.end(), {CString(i % 5 * 7, u'v'), CString(i % 3, u'w')});
        }
        DrawingView fresh(database.drawing());
        ASSERT_TRUE(fresh.firstReference(u"KQ_M"));
        fresh.nextReference() || fresh.firstReference(u"KQ_M");
        std::vector<CString> values;
        for (const auto& attribute : fresh.attributes()) {
            values.push_back(attribute.value);
            EXPECT_EQ(read(database, attribute.tag), ryv::toUtf8(attribute.value));
        }
        EXPECT_EQ(values, expected);
        saved(database);
    }
}

TEST_F(DrawingEdit, views_ofOneDrawing_seeEachOthersChangesAndKeepTheirPlace) {
    DrawingView one = view(recorded("ladder"));
    DrawingView other(one.drawing());
    ASSERT_TRUE(one.firstReference(u"KQ_M"));
    ASSERT_TRUE(other.firstReference(u"KQ_MLRH"));
    ASSERT_TRUE(other.writeAttribute(u"WIREFMT", CString(1000, u'w')));
    ASSERT_TRUE(other.addAttribute(u"WIREFMT", u"EXTRA", u"", {0, -1, 0}));
    EXPECT_EQ(read(one, u"WNUM_GAP"), "0.0,0.0,0.0");
    ASSERT_TRUE(one.writeAttribute(u"WNUM_GAP", u"5"));
    ASSERT_TRUE(other.nextReference());
    EXPECT_EQ(read(other, u"WIREFMT"), "%n");
    ASSERT_TRUE(one.firstReference(u"KQ_MLRH"));
    EXPECT_EQ(read(one, u"WIREFMT").size(), 1000u);
    EXPECT_TRUE(one.hasAttribute(u"EXTRA"));
    EXPECT_TRUE(other.hasOpenReference());
}

} // namespace drafta::test
