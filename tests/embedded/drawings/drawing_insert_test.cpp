// Inserting blocks: what is made, where it stands, and what is refused.
#include "tests/embedded/drawings/drawing_fixture.h"

#include <numbers>

namespace drafta::test {

class DrawingInsert : public DrawingFixture {
protected:
    void SetUp() override { folder.write("KQ_M.dwg", settingsBlock()); }
    ryv::BlockInsertion settings(DrawingPoint position = {}) const {
        return {u"KQ_M", folder.module(u"KQ_M.dwg"), position};
    }
    /// A drawing of release 12 with these tables and model space entities.
    static std::string early(const std::string& entities, const std::string& header = {}) {
        return "0\nSECTION\n2\nHEADER\n9\n$HANDLING\n70\n0\n" + header +
               "0\nENDSEC\n0\nSECTION\n2\nENTITIES\n" + entities + "0\nENDSEC\n0\nEOF\n";
    }
};

TEST_F(DrawingInsert, settings_intoADrawingWithoutThem_haveAllAttributes) {
    DrawingView database = view(recorded("plain"));
    ASSERT_TRUE(database.insertBlock(settings({10, 20, 0})).ok());
    EXPECT_TRUE(database.hasOpenReference());
    EXPECT_EQ(database.attributes().size(), 77u);
    EXPECT_EQ(read(database, u"FAN_INOUT_LAYS"), "_MULTI_WIRE");
    ASSERT_TRUE(database.writeAttribute(u"SHEET", u"7"));
    ASSERT_TRUE(database.setSpace(u"*Paper_Space"));
    ASSERT_TRUE(database.insertBlock({u"kq_m", u"\\not\\read.dwg", {}}).ok()) << "the block is there by now";
    const auto report = saved(database);
    EXPECT_EQ(
        linesOf(report, "insert")[1], (ReportLine{"insert", "Model", "KQ_M", "10", "20", "1", "0", "0"}));
    EXPECT_EQ(linesOf(report, "insert").back()[1], "Layout1");
    EXPECT_EQ(linesOf(report, "insert").size(), 3u);
    EXPECT_EQ(linesOf(report, "attrib").size(), 2u + 77 + 77);
    EXPECT_EQ(linesOf(report, "attrib")[15],
        (ReportLine{"attrib", "SHEET", "7", "10", "0.5", "0.2", "0", "1", "SETTINGS", "-"}));
    EXPECT_EQ(std::ranges::count(linesOf(report, "layer"), ReportLine{"layer", "SETTINGS"}), 1);
    DrawingView again(load(folder.read("a.dwg")));
    EXPECT_TRUE(again.firstReference(u"KQ_M"));
    EXPECT_EQ(again.attributes().size(), 77u);
}

TEST_F(DrawingInsert, attributes_followPositionScaleAndRotation) {
    folder.write("b.dwg", early("0\nATTDEF\n8\nTAGS\n10\n3\n20\n2\n40\n0."
                                "5\n1\ndefault\n3\nPrompt\n2\nT\n70\n8\n50\n90\n72\n1\n11\n4\n21\n2\n"
                                "0\nATTDEF\n8\n0\n10\n1\n20\n1\n40\n1\n1\nfixed\n2\nF\n70\n2\n"
                                "0\nATTDEF\n8\n0\n67\n1\n10\n0\n20\n0\n40\n1\n1\n\n2\nPAPER\n70\n0\n",
                              "9\n$INSBASE\n10\n1.0\n20\n2.0\n30\n0.0\n"));
    struct Case {
        DrawingPoint scale;
        double rotation;                   // in quarters of a turn
        std::vector<std::string> expected; // x, y, height, rotation
    };
    const std::vector<Case> cases{
        {{1, 1, 1}, 0, {"102", "50", "0.5", "90"}},
        {{3, 3, 3}, 0, {"106", "50", "1.5", "90"}},
        {{1, 1, 1}, 1, {"100", "52", "0.5", "180"}},
        {{2, 2, 2}, -1, {"100", "46", "1", "0"}},
        {{2, 4, 1}, 2, {"96", "50", "2", "270"}},
        {{-1, 1, 1}, 0, {"98", "50", "0.5", "90"}},
    };
    for (const Case& c : cases) {
        DrawingView database = view(recorded("plain"));
        const DrawingResult result = database.insertBlock(
            {u"B", folder.module(u"b.dwg"), {100, 50, 0}, c.scale, c.rotation * std::numbers::pi / 2});
        ASSERT_TRUE(result.ok()) << shown(result.problem);
        EXPECT_EQ(database.attributes().size(), 1u) << "constant ones and those of paper space are none";
        const auto report = saved(database);
        const ReportLine line = linesOf(report, "attrib").back();
        EXPECT_EQ((std::vector<std::string>{line[3], line[4], line[5], line[6]}), c.expected);
        EXPECT_EQ((std::vector<std::string>{line[1], line[2], line[7], line[8]}),
            (std::vector<std::string>{"T", "default", "8", "TAGS"}));
        EXPECT_EQ(linesOf(report, "block").back(), (ReportLine{"block", "B", "1", "2", "ATTDEF ATTDEF"}));
    }
}

// A drawing of many kinds of entities, with a block in it and its own layers and styles.
TEST_F(DrawingInsert, entities_ofEveryEarlyKind_comeAlong) {
    const std::string tables =
        "0\nENDSEC\n0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nLTYPE\n70\n1\n0\nLTYPE\n2\nDASHED\n70\n0\n3\n__ "
        "__\n72\n65\n73\n2\n40\n0.75\n"
        "49\n0.5\n49\n-0."
        "25\n0\nENDTAB\n0\nTABLE\n2\nLAYER\n70\n1\n0\nLAYER\n2\nW\xC4RME\n70\n0\n62\n3\n6\nDASHED\n0\nENDTAB"
        "\n0\nTABLE\n"
        "2\nSTYLE\n70\n1\n0\nSTYLE\n2\nROMANS\n70\n0\n40\n0.0\n41\n0.8\n50\n0.0\n71\n0\n42\n2.5\n3\nromans."
        "shx\n4\n\n0\nENDTAB\n"
        "0\nENDSEC\n0\nSECTION\n2\nBLOCKS\n0\nBLOCK\n8\n0\n2\nINNER\n70\n0\n10\n1.0\n20\n1."
        "0\n3\nINNER\n0\nCIRCLE\n8\nDEEP\n10\n0.0\n20\n0.0\n40\n1.0\n0\nENDBLK\n8\n0\n";
    const std::string corner = "8\nW\xC4RME\n10\n0.0\n20\n0.0\n30\n0.0\n11\n1.0\n21\n0.0\n31\n0.0\n";
    const std::string corners = corner + "12\n1.0\n22\n1.0\n32\n0.0\n13\n0.0\n23\n1.0\n33\n0.0\n";
    const auto polyline = [](const std::string& flags, const std::string& extra, const std::string& vertex) {
        return "0\nPOLYLINE\n8\n0\n66\n1\n10\n0.0\n20\n0.0\n30\n0.0\n70\n" + flags + "\n" + extra + vertex +
               vertex + vertex + vertex;
    };
    const auto vertex = [](const std::string& flags) {
        return "0\nVERTEX\n8\n0\n10\n1.0\n20\n2.0\n30\n0.0\n70\n" + flags + "\n";
    };
    const std::string face =
        "0\nVERTEX\n8\n0\n10\n0.0\n20\n0.0\n30\n0.0\n70\n128\n71\n1\n72\n2\n73\n3\n74\n4\n";
    const std::string end = "0\nSEQEND\n8\n0\n";
    const std::string entities =
        "0\nLINE\n6\nDASHED\n62\n1\n" + corner +
        "0\nPOINT\n8\n0\n10\n1.0\n20\n1.0\n0\nCIRCLE\n8\n0\n10\n0.0\n20\n0.0\n40\n2.0\n"
        "0\nARC\n8\n0\n10\n0.0\n20\n0.0\n40\n2.0\n50\n0.0\n51\n90.0\n0\nTEXT\n8\n0\n10\n0.0\n20\n0.0\n40\n1."
        "0\n1\n\xC4 text\n7\nROMANS\n72\n1\n11\n1.0\n21\n0.0\n73\n2\n"
        "0\nSOLID\n" +
        corners + "0\nTRACE\n" + corners + "0\n3DFACE\n" + corners + polyline("1", "40\n0.5\n", vertex("0")) +
        end + polyline("8", "", vertex("32")) + end + polyline("16", "71\n2\n72\n2\n", vertex("64")) + end +
        polyline("64", "71\n4\n72\n1\n", vertex("192")) + face + end +
        "0\nINSERT\n8\n0\n2\ninner\n10\n5.0\n20\n5.0\n0\nINSERT\n8\n0\n66\n1\n2\nINNER\n10\n6.0\n20\n5.0\n"
        "0\nATTRIB\n8\n0\n10\n1.0\n20\n1.0\n40\n1.0\n1\nv\n2\nT\n70\n0\n" +
        end +
        "0\nINSERT\n8\n0\n2\nINNER\n10\n5.0\n20\n5.0\n70\n3\n71\n2\n44\n1.0\n45\n1.0\n0\nATTDEF\n8\n0\n10\n0."
        "0\n20\n0.0\n40\n1.0\n1\nd\n3\np\n2\nA\n70\n0\n";
    folder.write("b.dwg", early(entities, tables));
    for (const std::string target : {"R12", "R2000", "R2007", "R2018"}) {
        SCOPED_TRACE(target);
        DrawingView database = view(ryv::test::readBytes(madeDrawings().native(target + ".dwg")));
        const DrawingResult result = database.insertBlock({u"MANY", folder.module(u"b.dwg"), {1, 1, 0}});
        ASSERT_TRUE(result.ok()) << shown(result.problem);
        const auto report = saved(database);
        const auto blocks = linesOf(report, "block");
        const auto has = [&](const ReportLine& line) { return std::ranges::count(report, line) == 1; };
        EXPECT_TRUE(has({"block", "MANY", "0", "0",
            "LINE POINT CIRCLE ARC TEXT SOLID TRACE 3DFACE POLYLINE POLYLINE POLYLINE "
            "POLYLINE INSERT INSERT INSERT ATTDEF"}));
        EXPECT_TRUE(std::ranges::any_of(
            blocks, [](const ReportLine& line) { return line[1] == "inner" && line[2] == "1"; }));
        EXPECT_TRUE(has({"layer", "WÄRME"}) && has({"layer", "DEEP"}) && has({"linetype", "DASHED"}) &&
                    has({"style", "ROMANS"}));
        EXPECT_EQ(linesOf(report, "attrib").back().front(), "attrib");
    }
}

TEST_F(DrawingInsert, fromALaterRelease_whatHasAFormThere) {
    const std::string source = "R2018.dwg";
    for (const std::string target : {"R12", "R2000", "R2018"}) {
        SCOPED_TRACE(target);
        DrawingView database = view(ryv::test::readBytes(madeDrawings().native(target + ".dwg")));
        ASSERT_TRUE(database.setSpace(target == "R12" ? u"*Paper_Space" : u"*Paper_Space0"));
        const DrawingResult result =
            database.insertBlock({u"WHOLE", madeDrawings().module(u"R2018.dwg"), {}});
        ASSERT_TRUE(result.ok()) << shown(result.problem);
        const auto report = saved(database);
        EXPECT_EQ(std::ranges::count(report, ReportLine{"block", "WHOLE", "0", "0",
                                                 "LINE TEXT INSERT INSERT INSERT INSERT CIRCLE INSERT"}),
            1);
        EXPECT_EQ(linesOf(report, "insert").back()[1], target == "R12" ? "Layout1" : "Second");
    }
}

TEST_F(DrawingInsert, whatCannotBe_isRefusedWithoutAChange) {
    const std::string lightweight =
        "0\nSECTION\n2\nHEADER\n9\n$XVER\n1\nAC1015\n0\nENDSEC\n" +
        early("0\nLWPOLYLINE\n8\n0\n90\n0\n")
            .substr(std::string("0\nSECTION\n2\nHEADER\n9\n$HANDLING\n70\n0\n0\nENDSEC\n").size());
    const double infinite = std::numeric_limits<double>::infinity();
    const std::string definition = "0\nATTDEF\n8\n0\n10\n1e308\n20\n0\n40\n1\n1\n\n3\n\n2\nT\n70\n0\n";
    struct Case {
        std::string source;
        ryv::BlockInsertion insertion;
        CString reason;
    };
    const std::vector<Case> cases{
        {"", {u"B", {}, {}}, u"b.dwg:1: the file is empty"},
        {early(""), {u"", {}, {}}, u"no name for a block"},
        {early(""), {u"*Model_Space", {}, {}}, u"no name for a block"},
        {early(""), {u"a\nb", {}, {}}, u"no name for a block"},
        {early(""), {u" B", {}, {}}, u"begin or end with a blank"},
        {early(""), {u"B ", {}, {}}, u"no name for a block"},
        {early(""), {u"B", {}, {}, {1, 1, 1}, 1e307}, u"such a place"},
        {early(""), {u"B", {}, {}, {1, 0, 1}}, u"such a place"},
        {early(""), {u"B", {}, {infinite, 0, 0}}, u"such a place"},
        {early("0\nDIMENSION\n8\n0\n2\n*D1\n"), {u"B", {}, {}}, u"b.dwg:15: a DIMENSION cannot be brought"},
        {lightweight, {u"B", {}, {}}, u"b.dwg:15: a LWPOLYLINE cannot be brought"},
        {early("0\nINSERT\n8\n0\n2\nB\n"), {u"B", {}, {}}, u"hold itself"},
        {early(definition), {u"B", {}, {}, {10, 10, 10}}, u"such a place"},
        {early("0\nINSERT\n8\n0\n2\n*U7\n"), {u"B", {}, {}}, u"without a name of its own"},
        {early("0\nINSERT\n8\n0\n2\nGONE\n"), {u"B", {}, {}},
            u"GONE, which is inserted in B, is not defined"},
    };
    for (const Case& c : cases) {
        folder.write("b.dwg", c.source);
        DrawingView database = view(recorded("panel"));
        database.firstReference(u"KQ_M");
        ryv::BlockInsertion insertion = c.insertion;
        insertion.file = folder.module(u"b.dwg");
        const DrawingResult result = database.insertBlock(insertion);
        EXPECT_FALSE(result.ok());
        EXPECT_NE(result.problem.find(c.reason), CString::npos) << shown(result.problem);
        EXPECT_FALSE(database.drawing()->isModified());
        EXPECT_TRUE(database.hasOpenReference());
    }
    DrawingView database = view("0\nEOF\n");
    EXPECT_FALSE(database.insertBlock(settings()).ok());
    for (const char16_t mark : CStringView(u"<>/\\\":;?*|,=`"))
        EXPECT_FALSE(view(recorded("panel")).insertBlock({CString(u"A") + mark + u"B", {}, {}}).ok());
}

TEST_F(DrawingInsert, afterARefusal_theNextHandleIsStillTheSame) {
    folder.write("b.dwg", early("0\nLINE\n8\n0\n0\nDIMENSION\n8\n0\n"));
    std::vector<std::string> contents;
    for (const bool failsFirst : {false, true}) {
        DrawingView database = view(recorded("panel"));
        if (failsFirst) {
            EXPECT_FALSE(database.insertBlock({u"B", folder.module(u"b.dwg"), {}}).ok());
            EXPECT_FALSE(database.insertBlock({u"KQ_M", {}, {1, 1, 1}, {1, 1, 1}, 1e307}).ok());
            EXPECT_TRUE(database.firstReference(u"KQ_M"));
            EXPECT_TRUE(database.addAttribute(u"SHEET", u"FAR", u"", {1e308, 0, 0}));
            EXPECT_FALSE(database.addAttribute(u"FAR", u"FARTHER", u"", {1e308, 0, 0}));
        } else {
            EXPECT_TRUE(database.firstReference(u"KQ_M"));
            EXPECT_TRUE(database.addAttribute(u"SHEET", u"FAR", u"", {1e308, 0, 0}));
        }
        EXPECT_TRUE(database.insertBlock(settings()).ok());
        contents.emplace_back(database.drawing()->bytes());
    }
    EXPECT_EQ(contents[0], contents[1]);
}

TEST_F(DrawingInsert, attributesWithoutAllCoordinates_standWhereTheReferencePutsThem) {
    folder.write("b.dwg", early("0\nATTDEF\n8\n0\n10\n1\n20\n2\n40\n1\n1\n\n3\n\n2\nFLAT\n70\n0\n"
                                "0\nATTDEF\n8\n0\n40\n1\n1\n\n3\n\n2\nNOWHERE\n70\n0\n"));
    DrawingView database = view(recorded("plain"));
    ASSERT_TRUE(database.insertBlock({u"B", folder.module(u"b.dwg"), {5, 6, 7}}).ok());
    ASSERT_TRUE(database.addAttribute(u"NOWHERE", u"ADDED", u"", {1, 1, 1}));
    std::vector<std::array<double, 3>> places;
    for (const auto& attribute : database.attributes())
        places.push_back({attribute.position.x, attribute.position.y, attribute.position.z});
    EXPECT_EQ(places, (std::vector<std::array<double, 3>>{{6, 8, 7}, {5, 6, 7}, {6, 7, 8}}));
    saved(database);
}

// What the plane of the text is turned over by, its direction has to be seen from there.
TEST_F(DrawingInsert, directionOfAnExtrudedAttribute_isTurnedInItsOwnPlane) {
    folder.write("b.dwg", early("0\nATTDEF\n8\n0\n10\n1\n20\n2\n40\n1\n50\n35\n1\n\n3\n\n2\nT\n70\n0\n"
                                "210\n0\n220\n0\n230\n-1\n"));
    const std::vector<std::pair<DrawingPoint, std::string>> cases{
        {{1, 1, 1}, "305"}, {{2, 2, 2}, "305"}, {{-1, 1, 1}, "55"}};
    for (const auto& [scale, direction] : cases) {
        DrawingView database = view(recorded("plain"));
        ASSERT_TRUE(
            database.insertBlock({u"B", folder.module(u"b.dwg"), {}, scale, std::numbers::pi / 2}).ok());
        EXPECT_EQ(linesOf(saved(database), "attrib").back()[6], direction);
    }
}

TEST_F(DrawingInsert, tablesThatTheTargetLacks_areMadeOrMissed) {
    const std::string tables = "0\nSECTION\n2\nTABLES\n0\nENDSEC\n";
    folder.write("b.dwg", early("0\nTEXT\n8\nL\n6\nDASHX\n10\n0\n20\n0\n40\n1\n1\nt\n7\nROMANS\n"));
    std::string withTables = early("");
    withTables.insert(withTables.find("0\nSECTION\n2\nENTITIES"), tables);
    for (const std::string& target : {early(""), withTables}) {
        DrawingView database = view(target);
        ASSERT_TRUE(database.insertBlock({u"B", folder.module(u"b.dwg"), {}}).ok());
        ASSERT_TRUE(database.insertBlock({u"C", folder.module(u"b.dwg"), {}}).ok());
        const auto report = saved(database);
        for (const ReportLine& line :
            {ReportLine{"layer", "L"}, ReportLine{"linetype", "DASHX"}, ReportLine{"style", "ROMANS"}})
            EXPECT_EQ(std::ranges::count(report, line), 1) << line[1];
    }
    std::string later = ryv::test::readBytes(madeDrawings().native("R2000.dwg"));
    const std::size_t begin = later.find("  0\nTABLE\n  2\nSTYLE\n");
    ASSERT_NE(begin, std::string::npos);
    later.erase(begin, later.find("ENDTAB\n", begin) + 7 - begin);
    const DrawingResult result = view(later).insertBlock({u"B", folder.module(u"b.dwg"), {}});
    EXPECT_NE(result.problem.find(u"no table of text styles"), CString::npos) << shown(result.problem);
}

TEST_F(DrawingInsert, intoTheLeastDrawing_makesWhatIsMissing) {
    DrawingView database = view(early(""));
    ASSERT_TRUE(database.insertBlock(settings()).ok());
    ASSERT_TRUE(database.insertBlock({u"TWICE", folder.module(u"KQ_M.dwg"), {}}).ok());
    const auto report = saved(database);
    EXPECT_EQ(linesOf(report, "block").size(), 2u);
    EXPECT_EQ(linesOf(report, "attrib").size(), 154u);
}

} // namespace drafta::test
