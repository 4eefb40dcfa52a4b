#include "tests/support/project_fixture.h"

namespace ryv::test {
namespace {

class Reader : public ProjectFixture {
protected:
    std::string treeOf(const std::string& bytes) {
        RyvPrmProjectData project;
        read(bytes, project);
        return treeText(project);
    }
    const RyvPrmFileDetails& only(const std::string& bytes) {
        read(bytes, data);
        CArray<RyvPrmFileDetails*> drawings;
        data.generateFlatFileDetailsArray(drawings);
        EXPECT_EQ(drawings.size(), 1u) << bytes;
        return *drawings[0];
    }

    RyvPrmProjectData data;
};

struct TreeCase {
    const char* name;
    std::string file;
    std::string tree;
};

TEST_F(Reader, pathLines_becomeAbsolutePaths) {
    const TreeCase cases[] = {{"plain", "x.dwg\n", "C:\\P\\x.dwg"}, {"slashes", "a/b.dwg", "C:\\P\\a\\b.dwg"},
        {"upwards", "..\\x.dwg", "C:\\x.dwg"}, {"dots", ".\\a\\.\\..\\x.dwg", "C:\\P\\x.dwg"},
        {"absolute", "D:\\a\\..\\x.dwg", "D:\\a\\..\\x.dwg"},
        {"absolute with slashes", "D:/a/x.dwg", "D:\\a\\x.dwg"},
        {"network", "\\\\s\\h\\x.dwg", "\\\\s\\h\\x.dwg"}, {"without a drive", "\\x.dwg", "\\x.dwg"},
        {"blanks around", " \t x.dwg \t", "C:\\P\\x.dwg"},
        {"no-break blanks around", "\xC2\xA0x.dwg\xC2\xA0", "C:\\P\\x.dwg"},
        {"quote in front", "\"=odd.dwg", "C:\\P\\=odd.dwg"},
        {"quotes in front", "\"\"x.dwg", "C:\\P\\\"x.dwg"}, {"quotes around", " \"x.dwg\"", "C:\\P\\x.dwg\""},
        {"quote, then blanks", "\"  x.dwg", "C:\\P\\  x.dwg"},
        {"star without bracket", "*x.dwg", "C:\\P\\*x.dwg"}, {"bracket", "[x].dwg", "C:\\P\\[x].dwg"},
        {"quoted bracket", "\"+[1].dwg", "C:\\P\\+[1].dwg"},
        {"too long to join", std::string(256, 'x'), std::string(256, 'x')},
        {"just joined", std::string(254, 'x'), "C:\\P\\" + std::string(254, 'x')}};
    for (const TreeCase& each : cases)
        EXPECT_EQ(treeOf(each.file), each.tree) << each.name;
}

TEST_F(Reader, markers_placeDrawings) {
    const TreeCase cases[] = {{"nested, lower case", "=====SUB=a/b\nD:\\x", "A{B{D:\\x}}"},
        {"equal but for case", "=====SUB=A\nD:\\x\n=====SUB=a\nD:\\y", "A{D:\\x D:\\y}"},
        {"top level in between", "=====SUB=A\nD:\\x\nD:\\y\n=====SUB=A\nD:\\z", "A{D:\\x D:\\z} D:\\y"},
        {"name of the marker's letters", "=====SUB=SUBBUS\nD:\\x", "SUBBUS{D:\\x}"},
        {"more equals signs", "=====SUB===A\nD:\\x", "A{D:\\x}"},
        {"blanks in front of the name", "=====SUB= \t A B\nD:\\x", "A B{D:\\x}"},
        {"slashes too many", "=====SUB=/A//B/\nD:\\x", "A{B{D:\\x}}"},
        {"no name", "=====SUB=\nD:\\x", "D:\\x"}, {"blank name", "=====SUB=  \nD:\\x", "D:\\x"},
        {"slashes for a name", "=====SUB=//\nD:\\x", "D:\\x"},
        {"empty subfolder", "=====SUB=A[Empty]\nD:\\x", "A{} D:\\x"},
        {"empty subfolder of no name", "=====SUB=[Empty]\nD:\\x", "D:\\x"},
        {"empty ones, nested", "=====SUB=A/B[Empty]\n=====SUB=A/C[Empty]", "A{B{} C{}}"},
        {"text behind the mark", "=====SUB=ABCDEF[Empty]xy\nD:\\x", "ABCDEF[E{} D:\\x"},
        {"other characters behind the mark", "=====SUB=A[Empty]\xC3\xA4\xC3\xB6\nD:\\x", "A[E{} D:\\x"},
        {"mark twice", "=====SUB=A[Empty][Empty]\nD:\\x", "A[EMPTY]{} D:\\x"},
        {"mark in another case", "=====SUB=A[EMPTY]\nD:\\x", "A[EMPTY]{D:\\x}"},
        {"marker in lower case is a description", "=====sub=A\nD:\\x", "D:\\x"},
        {"second marker moves", "=====SUB=A\n=====SUB=B\nD:\\x", "A{} B{D:\\x}"},
        {"second marker starts at the top", "=====SUB=A\n=====SUB=A/B\nD:\\x", "A{B{D:\\x}}"},
        {"same marker twice moves to the end", "=====SUB=A\nD:\\x\n=====SUB=A\n=====SUB=A\nD:\\y",
            "A{D:\\x D:\\y}"},
        {"empty mark behind a marker", "=====SUB=A\n=====SUB=B[Empty]\nD:\\x", "A{D:\\x} B{}"},
        {"marker of no name behind a marker", "=====SUB=A\n=====SUB=\nD:\\x", "A{D:\\x}"},
        {"pending to the end", "D:\\x\n=one\n=====SUB=A", "D:\\x A{}"},
        {"in the order of markers", "=====SUB=B\nD:\\1\n=====SUB=A\nD:\\2\nD:\\3",
            "B{D:\\1} A{D:\\2} D:\\3"}};
    for (const TreeCase& each : cases)
        EXPECT_EQ(treeOf(each.file), each.tree) << each.name;
}

TEST_F(Reader, attributeLines_fillTheDrawingThatFollows) {
    RyvPrmFileDetails expected(u"C:\\P\\x.dwg");
    expected.setDescription1(u"one");
    expected.setDescription2(u" two =2");
    expected.setDescriptions({u"three", u"", u"four"});
    expected.setReferenceOnly(true);
    EXPECT_EQ(only("=one\n== two =2\n===three\n===\n===four\n====REF\n=====SUB=A\nx.dwg\n"), expected);
    EXPECT_EQ(only("=====SUB=A\n===three\n===\n====REF\n===four\n== two =2\n=one\nx.dwg"), expected)
        << "in any order";
}

TEST_F(Reader, laterDescription_replacesTheEarlier) {
    const RyvPrmFileDetails& drawing = only("=one\n==two\n=ONE\n==TWO\n=\nx.dwg");
    EXPECT_EQ(drawing.getDescription1(), u"");
    EXPECT_EQ(drawing.getDescription2(), u"TWO");
}

TEST_F(Reader, unknownAttributes_areDescriptionsOfTheirLength) {
    EXPECT_EQ(linesOf(only("====XYZ\nx.dwg")), CStringList{u"XYZ"});
    EXPECT_EQ(linesOf(only("=======\nx.dwg")), CStringList{u""});
    EXPECT_TRUE(only("====REFERENCE\nx.dwg").isReferenceOnly());
    EXPECT_FALSE(only("====ref\nx.dwg").isReferenceOnly());
}

/// An empty subfolder stands in front of a drawing without taking its descriptions.
TEST_F(Reader, emptySubfolder_leavesThePendingDrawing) {
    const RyvPrmFileDetails& drawing = only("=one\n=====SUB=A[Empty]\n==two\nx.dwg");
    EXPECT_EQ(drawing.getDescription1(), u"one");
    EXPECT_EQ(drawing.getDescription2(), u"two");
}

TEST_F(Reader, indexedLines_areSorted) {
    read("*[1]one\n*[3] three \n+[5]8\n+[255]last\n+[7]\n?[0]V\n?[76]gap\nx.dwg\n", data);
    EXPECT_EQ(data.getProjDescriptions(), (CStringList{u"one", u"", u" three "}));
    EXPECT_EQ(
        data.getMiscProjSettings().values(), (std::map<int, CString>{{5, u"8"}, {7, u""}, {255, u"last"}}));
    EXPECT_EQ(*data.getProjDefKQMVals().find(0), u"V");
    EXPECT_EQ(*data.getProjDefKQMVals().find(76), u"gap");
    EXPECT_EQ(*data.getProjDefKQMVals().find(60), u"1") << "by the miscellaneous settings";
}

TEST_F(Reader, settingValues_loseLeadingBlanksButForTwo) {
    read("?[62]  a \n?[63]  b\n?[65] \n?[64] \xC2\xA0\n", data);
    EXPECT_EQ(*data.getProjDefKQMVals().find(62), u"a ");
    EXPECT_EQ(*data.getProjDefKQMVals().find(63), u"  b");
    EXPECT_EQ(*data.getProjDefKQMVals().find(64), u"");
    EXPECT_EQ(*data.getProjDefKQMVals().find(65), u" ");
}

TEST_F(Reader, missingSettings_areTheDefaults) {
    for (const std::string file : {"", "\n", "+[5]8\n+[8]1\n"}) {
        read(file, data);
        RyvCfgDrawingSettings expected;
        expected.fillWithDefaults(data.getMiscProjSettings());
        EXPECT_TRUE(data.getProjDefKQMVals() == expected) << file;
        EXPECT_EQ(treeText(data), "");
    }
    read("?[0]V\n", data);
    RyvCfgDrawingSettings expected;
    expected.fillWithDefaults(nullptr, false);
    const CString vertical = u"V";
    expected.setValue(0, &vertical);
    EXPECT_TRUE(data.getProjDefKQMVals() == expected);
}

TEST_F(Reader, secondRead_replacesTheFirst) {
    read("*[1]one\n*[2]two\n+[9]x\n?[0]V\n=====SUB=A\nx.dwg\n", data);
    read("*[1]ONE\ny.dwg\n", data);
    RyvPrmProjectData fresh;
    read("*[1]ONE\ny.dwg\n", fresh);
    EXPECT_TRUE(data == fresh);
    EXPECT_FALSE(data.isFileInProject(u"C:\\P\\x.dwg"));
}

TEST_F(Reader, identifiers_comeFromTheStore) {
    files.put(u"C:\\P\\a.rypx", "RYPX 1\nnext=9\nlocal=me\there\nid=7\tx.dwg\nid=8\tD:\\z.dwg\n");
    read("x.dwg\nSUB\\y.dwg\n=====SUB=A\nd:\\Z.DWG\n", data);
    EXPECT_EQ(data.findFile(u"C:\\P\\x.dwg")->getFileId(), 7);
    EXPECT_EQ(data.findFile(u"C:\\P\\SUB\\y.dwg")->getFileId(), 0);
    EXPECT_EQ(data.findFile(u"D:\\z.dwg")->getFileId(), 8);
    RyvPrmKQPFiler filer(path, false, true);
    CString a;
    CString b;
    EXPECT_TRUE(filer.getLocalProjectInfo(a, b));
    EXPECT_EQ(a + u"," + b, u"me,here");
    EXPECT_FALSE(filer.getOZMProjectInfo(a, b));
}

TEST_F(Reader, failedRead_leavesAnEmptyProjectWithDefaults) {
    read("*[1]one\n+[9]x\n?[0]V\nx.dwg\n", data);
    RyvPrmKQPFiler filer(true);
    EXPECT_TRUE(filer.readProject(data)) << "whatever happens";
    EXPECT_EQ(filer.getLastError(), RyvPmUtilsKQPFiler::notOpen);
    RyvPrmProjectData expected;
    read("", expected);
    EXPECT_TRUE(data == expected);
    EXPECT_TRUE(data.getProjDescriptions().empty());
}

TEST_F(Reader, sectionsOutOfOrder_areReadAlike) {
    RyvPrmProjectData shuffled;
    read("x.dwg\n?[0]V\n+[5]8\n*[1]one\n", shuffled);
    read("*[1]one\n+[5]8\n?[0]V\nx.dwg\n", data);
    EXPECT_TRUE(shuffled == data);
}

} // namespace
} // namespace ryv::test
