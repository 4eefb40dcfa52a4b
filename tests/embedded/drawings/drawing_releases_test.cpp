// Drawings of every release, made and read back by an independent library.
#include "tests/embedded/drawings/drawing_fixture.h"

namespace drafta::test {

class DrawingReleases : public DrawingFixture {
protected:
    void SetUp() override { folder.write("KQ_M.dwg", settingsBlock()); }
    static std::string made(const std::string& name) {
        return ryv::test::readBytes(madeDrawings().native(name + ".dwg"));
    }
};

const std::vector<std::string>& releases() {
    static const std::vector<std::string> names{"R12", "R2000", "R2004", "R2007", "R2010", "R2013", "R2018"};
    return names;
}

TEST_F(DrawingReleases, references_inAllSpaces_areFound) {
    for (const std::string& release : releases()) {
        SCOPED_TRACE(release);
        const bool isEarly = release == "R12";
        DrawingView database = view(made(release));
        EXPECT_EQ(database.layoutCount(), isEarly ? 2u : 3u);
        EXPECT_EQ(database.referredBlocks(), (ryv::CStringArray{u"NEST", u"TITLE", u"KQ_M", u"BARE"}));
        ASSERT_TRUE(database.firstReference(u"kq_m"));
        EXPECT_EQ(read(database, u"SHEET"), "Ü-01");
        EXPECT_EQ(read(database, u"LOC"), " blanks ");
        EXPECT_EQ(database.nextReference(), release == "R2018");
        ASSERT_TRUE(database.firstReference(u"BARE"));
        EXPECT_TRUE(database.attributes().empty());
        ASSERT_TRUE(database.setSpace(u"*paper_space"));
        EXPECT_FALSE(database.firstReference(u"KQ_M"));
        ASSERT_TRUE(database.firstReference(u"TITLE"));
        EXPECT_EQ(read(database, u"SHEET"), "paper");
        ASSERT_EQ(database.setSpace(u"*Paper_Space0"), !isEarly);
        if (isEarly)
            continue;
        ASSERT_TRUE(database.firstReference(u"KQ_M"));
        EXPECT_EQ(read(database, u"SHEET"), "second");
        EXPECT_EQ(database.attributes()[1].position.y, 18.5);
    }
}

TEST_F(DrawingReleases, edits_inAllSpaces_areReadBackByOthers) {
    for (const std::string& release : releases()) {
        SCOPED_TRACE(release);
        const bool isEarly = release == "R12";
        DrawingView database = view(made(release));
        ASSERT_TRUE(database.firstReference(u"BARE"));
        ASSERT_TRUE(database.addAttribute(u"", u"FIRST", u"電 ä", {}));
        ASSERT_TRUE(database.firstReference(u"KQ_M"));
        ASSERT_TRUE(database.writeAttribute(u"SHEET", u"S-Ä 電"));
        ASSERT_TRUE(database.addAttribute(u"LOC", u"ADDED", u"new", {0, -1.5, 0}));
        ASSERT_TRUE(database.setSpace(isEarly ? u"*Paper_Space" : u"*Paper_Space0"));
        if (!isEarly) {
            ASSERT_TRUE(database.firstReference(u"KQ_M"));
            ASSERT_TRUE(database.writeAttribute(u"LOC", u"kept"));
        }
        ASSERT_TRUE(database.insertBlock({u"KQ_M", u"", {3, 4, 0}}).ok());
        ASSERT_TRUE(database.insertBlock({u"SETTINGS", folder.module(u"KQ_M.dwg"), {5, 6, 0}}).ok());
        ASSERT_TRUE(database.writeAttribute(u"SHEET", u"inserted"));
        const auto report = saved(database);
        const auto has = [&report](const ReportLine& line) { return std::ranges::count(report, line) == 1; };
        const std::string layout = isEarly ? "Layout1" : "Second";
        EXPECT_TRUE(has({"attrib", "FIRST", "電 ä", "5", "5", "2.5", "0", "1", "0", "-"}));
        EXPECT_TRUE(has({"attrib", "SHEET", "S-Ä 電", "0", "0", "0.2", "0", "1", "SETTINGS", "-"}));
        EXPECT_TRUE(has({"attrib", "ADDED", "new", "0", "-3", "0.2", "0", "1", "SETTINGS", "-"}));
        EXPECT_EQ(has({"attrib", "LOC", "kept", "10", "18.5", "0.2", "0", "1", "SETTINGS", "-"}), !isEarly);
        EXPECT_TRUE(has({"insert", layout, "KQ_M", "3", "4", "1", "0", "0"}));
        EXPECT_TRUE(has({"attrib", "LOC", "x", "3", "2.5", "0.2", "0", "1", "0", "-"}));
        EXPECT_TRUE(has({"insert", layout, "SETTINGS", "5", "6", "1", "0", "0"}));
        EXPECT_TRUE(has({"attrib", "SHEET", "inserted", "5", "-13.5", "0.2", "0", "1", "SETTINGS", "-"}));
        EXPECT_EQ(linesOf(report, "block").back()[1], "SETTINGS");
    }
}

// Before 2000 a record did not name its owner.
TEST_F(DrawingReleases, newRecords_whereNoneNamesItsOwner_doNotEither) {
    std::string bytes = made("R2000");
    bytes.replace(bytes.find("AC1015"), 6, "AC1014");
    const auto owners = [&bytes] {
        std::vector<std::size_t> places;
        const std::size_t end = bytes.find("\nOBJECTS\n");
        for (std::size_t at = 0; (at = bytes.find("\n330\n", at)) < end; ++at)
            places.push_back(at);
        return places;
    };
    const auto all = owners();
    for (auto place = all.rbegin(); place != all.rend(); ++place)
        bytes.erase(*place, bytes.find('\n', *place + 5) - *place);
    ASSERT_TRUE(owners().empty() && !all.empty());
    DrawingView database = view(bytes);
    ASSERT_TRUE(database.insertBlock({u"NEW", folder.module(u"KQ_M.dwg"), {}}).ok());
    ASSERT_TRUE(database.addAttribute(u"SHEET", u"MORE", u"", {0, 1, 0}));
    ASSERT_TRUE(database.save().ok());
    bytes = folder.read("a.dwg");
    EXPECT_NE(bytes.find("NEW"), std::string::npos);
    EXPECT_TRUE(owners().empty());
}

TEST_F(DrawingReleases, attributeOfSeveralLines_takesTheValueInBothForms) {
    DrawingView database = view(made("R2018"));
    ASSERT_TRUE(database.firstReference(u"KQ_M") && database.nextReference());
    EXPECT_EQ(read(database, u"SHEET"), "first line");
    ASSERT_TRUE(database.writeAttribute(u"SHEET", u"a{b}\\c"));
    ASSERT_TRUE(database.addAttribute(u"SHEET", u"PLAIN", u"p", {0, -1, 0}));
    const auto report = saved(database);
    EXPECT_EQ(std::ranges::count(report, ReportLine{"attrib", "SHEET", "a{b}\\c", "30", "30", "2.5", "0", "1",
                                             "0", "a\\{b\\}\\\\c"}),
        1);
    EXPECT_EQ(
        std::ranges::count(report, ReportLine{"attrib", "PLAIN", "p", "30", "29", "2.5", "0", "1", "0", "-"}),
        1);
}

TEST_F(DrawingReleases, texts_ofEachCodePage_areReadAndWritten) {
    const std::vector<std::pair<std::string, std::string>> pages{{"ANSI_1250", "Łódź"}, {"ANSI_1251", "Щит"},
        {"ANSI_1253", "Πίνακας"}, {"ANSI_932", "表ソ電"}, {"ANSI_936", "电气"}, {"ANSI_949", "전기"},
        {"ANSI_950", "許功"}};
    for (const auto& [page, text] : pages)
        for (const std::string release : {"R12-", "R2000-"}) {
            SCOPED_TRACE(release + page);
            DrawingView database = view(made(release + page));
            ASSERT_TRUE(database.firstReference(u"KQ_M"));
            EXPECT_EQ(read(database, u"SHEET"), text);
            const std::string value = "2 " + text + " ☃";
            ASSERT_TRUE(database.writeAttribute(u"LOC", ryv::decodeUtf8(value)));
            const auto report = saved(database);
            EXPECT_EQ(std::ranges::count(report,
                          ReportLine{"attrib", "LOC", value, "0", "-1.5", "0.2", "0", "1", "SETTINGS", "-"}),
                1);
        }
}

} // namespace drafta::test
