// Files that are damaged, cut off, of another kind or made to do harm.
#include "tests/embedded/drawings/drawing_fixture.h"

#include <filesystem>

namespace drafta::test {

class DrawingHostile : public DrawingFixture {
protected:
    /// Everything that can be asked and done; nothing may crash.
    void exercise(DrawingView& database) {
        for (const CStringView space : {u"*Model_Space", u"*Paper_Space", u"*Paper_Space0"}) {
            if (!database.setSpace(space))
                continue;
            for (const CString& block : database.referredBlocks())
                for (bool found = database.firstReference(block); found; found = database.nextReference())
                    touch(database);
            (void)database.insertBlock({u"KQ_M", folder.module(u"KQ_M.dwg"), {1, 2, 3}, {2, 2, 2}, 1});
        }
        DxfFault fault;
        ryv::ByteBuffer bytes;
        ASSERT_TRUE(bytes.allocate(database.drawing()->bytes().size()));
        std::ranges::copy(database.drawing()->bytes(), bytes.data());
        EXPECT_TRUE(DrawingContent::read(bytes, fault)) << shown(fault.reason ? fault.reason : u"");
    }
    static void touch(DrawingView& database) {
        const auto attributes = database.attributes();
        database.addAttribute(
            attributes.empty() ? CString() : attributes.back().tag, u"NEW", u"1", {0, -1, 0});
        for (const auto& attribute : attributes)
            database.writeAttribute(attribute.tag, attribute.value + u"ü電");
    }
};

TEST_F(DrawingHostile, load_whatIsNoDrawing_saysFileLineAndReason) {
    const std::string section = "0\nSECTION\n2\nENTITIES\n", end = "0\nENDSEC\n0\nEOF\n";
    const std::string blocks = "0\nSECTION\n2\nBLOCKS\n", tables = "0\nSECTION\n2\nTABLES\n";
    const std::string insert = "0\nINSERT\n2\nB\n66\n1\n0\nATTRIB\n2\nA\n";
    struct Case {
        std::string bytes;
        std::string place, reason;
    };
    const std::vector<Case> cases{
        {"", ":1:", "empty"},
        {std::string("AC1015\0\0\0\0", 10), ":1:", "binary drawing"},
        {std::string("Any Binary DXF\r\n\x1A\0", 18), ":1:", "binary DXF"},
        {section + std::string("0\n\0\n", 4) + end, ":6:", "zero byte"},
        {"hello\nworld\n", ":1:", "group code"},
        {section + "x1\nLINE\n" + end, ":5:", "group code"},
        {section + "99999999999999999999\nLINE\n" + end, ":5:", "group code"},
        {section + "\nLINE\n" + end, ":5:", "group code"},
        {section + "0\nENDSEC\n", ":6:", "before its EOF"},
        {section + "0\nENDSEC\n0", ":7:", "before its EOF"},
        {section + "0\nEOF\n", ":5:", "inside a section"},
        {section + section, ":5:", "inside another one"},
        {"0\nLINE\n" + end, ":1:", "outside of all sections"},
        {"0\nENDSEC\n0\nEOF\n", ":1:", "not begun"},
        {section + insert + end, ":15:", "SEQEND"},
        {section + insert + "0\nLINE\n" + end, ":15:", "SEQEND"},
        {section + "0\nINSERT\n66\n1\n0\nLINE\n" + end, ":5:", "names no block"},
        {blocks + "0\nBLOCK\n2\nA\n" + end, ":9:", "inside a block"},
        {blocks + "0\nBLOCK\n2\nA\n0\nBLOCK\n2\nB\n0\nENDBLK\n" + end, ":9:", "inside another one"},
        {blocks + "0\nENDBLK\n" + end, ":5:", "outside of all block"},
        {tables + "0\nTABLE\n2\nLAYER\n" + end, ":9:", "inside a table"},
        {tables + "0\nENDTAB\n" + end, ":5:", "not begun"},
        {"0\nSECTION\n0\nENDSEC\n0\nEOF\n", ":1:", "no name"},
        {"0\nSECTION\n2\n \n0\nLINE\n" + end, ":1:", "no name"},
    };
    for (const Case& c : cases) {
        EXPECT_FALSE(load(c.bytes)) << c.bytes;
        EXPECT_NE(problem.find("a.dwg" + c.place), std::string::npos) << problem << "\n" << c.bytes;
        EXPECT_NE(problem.find(c.reason), std::string::npos) << problem << "\n" << c.bytes;
    }
}

TEST_F(DrawingHostile, load_whatIsNoFileOrTooLarge_saysSo) {
    std::filesystem::create_directory(folder.native("folder"));
    folder.write("large", "");
    std::filesystem::resize_file(
        folder.native("large"), std::uintmax_t{3} << 30); // takes no room on the disk
    for (const CString name : {u"none", u"folder", u"large"}) {
        DrawingResult result;
        EXPECT_FALSE(Drawing::load(files, folder.module(name), result));
        EXPECT_NE(result.problem.find(name + u": "), CString::npos) << shown(result.problem);
    }
}

TEST_F(DrawingHostile, load_cutOffAnywhere_failsOrIsSane) {
    folder.write("KQ_M.dwg", settingsBlock());
    const std::string whole = ryv::test::readBytes(madeDrawings().native("R2018.dwg"));
    for (const std::string& bytes : {recorded("plain"), whole})
        for (std::size_t length = 0; length < bytes.size() - 3; length += 7) {
            ASSERT_FALSE(load(bytes.substr(0, length))) << length;
            ASSERT_NE(problem.find("a.dwg:"), std::string::npos) << problem;
        }
    for (std::size_t cut = 0; cut < whole.size(); cut += 97) { // a piece is missing in the middle
        const auto drawing = load(whole.substr(0, cut) + whole.substr(std::min(whole.size(), cut + 31)));
        if (!drawing)
            continue;
        DrawingView database(drawing);
        exercise(database);
    }
}

TEST_F(DrawingHostile, numbers_outOfRange_doNoHarm) {
    folder.write("KQ_M.dwg", settingsBlock());
    const std::string section = "0\nSECTION\n2\nENTITIES\n", end = "0\nENDSEC\n0\nEOF\n";
    const std::string header = "0\nSECTION\n2\nHEADER\n9\n$HANDLING\n70\n1\n9\n$HANDSEED\n5\n";
    for (const std::string number :
        {"1e999", "-1e308", "nan", "inf", "", "0x10", "FFFFFFFFFFFFFFFF", "99999999999"}) {
        const std::string entities = "0\nINSERT\n5\n" + number + "\n2\nB\n66\n1\n70\n" + number + "\n10\n" +
                                     number + "\n0\nATTRIB\n5\n1\n10\n" + number + "\n11\n" + number +
                                     "\n40\n" + number + "\n2\nA\n210\n" + number + "\n230\n" + number +
                                     "\n0\nSEQEND\n0\nINSERT\n2\nB\n";
        DrawingView database = view(header + number + "\n0\nENDSEC\n" + section + entities + end);
        exercise(database);
    }
}

TEST_F(DrawingHostile, insert_whenHandlesRunOut_isRefused) {
    folder.write("KQ_M.dwg", settingsBlock());
    std::string bytes = recorded("panel");
    bytes.replace(bytes.find("$HANDSEED\r\n  5\r\n") + 16, 2, "FFFFFFFFFFFFFFF0");
    DrawingView database = view(bytes);
    ASSERT_TRUE(database.firstReference(u"KQ_M"));
    EXPECT_TRUE(database.addAttribute(u"SHEET", u"ONE", u"", {}));
    const DrawingResult result = database.insertBlock({u"OTHER", folder.module(u"KQ_M.dwg"), {}});
    EXPECT_NE(result.problem.find(u"handle"), CString::npos) << shown(result.problem);
}

} // namespace drafta::test
