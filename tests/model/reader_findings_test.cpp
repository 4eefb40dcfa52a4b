// What reading reports, with the line that it concerns.
#include "tests/support/project_fixture.h"

namespace ryv::test {
namespace {

using F = ProjectFinding;

class ReaderFindings : public ProjectFixture {
protected:
    std::vector<Finding> findingsOf(const std::string& bytes) {
        recorder.findings.clear();
        RyvPrmProjectData project;
        read(bytes, project);
        return recorder.findings;
    }
};

struct Case {
    const char* name;
    std::string file;
    std::vector<Finding> findings;
};

TEST_F(ReaderFindings, wellFormedFile_hasNone) {
    const std::string contents[] = {"", "\n",
        "*[1]one\n*[3]three\n+[1]a\n+[255]b\n?[0]H\n?[63] x\n?[76]\n=1\n==2\n===3\n===4\n====REF\n"
        "=====SUB=A/B\nx.dwg\n\n=====SUB=C[Empty]\ny.dwg\n",
        "x.dwg\n\n=====SUB=A[Empty]\n", "\xEF\xBB\xBF\xC3\xA4.dwg\r\n\r\n", "\"=x.dwg\nD:\\y\n"};
    for (const std::string& content : contents)
        EXPECT_EQ(findingsOf(content), std::vector<Finding>{}) << content;
}

TEST_F(ReaderFindings, indexedLines_areJudgedByTheirNumber) {
    const Case cases[] = {{"nothing in brackets", "\n*[]x\n", {{2, F::malformedIndex, u"*[]x"}}},
        {"no end", "+[1x\n", {{1, F::malformedIndex, u"+[1x"}}},
        {"no number", "?[1a]x\n", {{1, F::malformedIndex, u"?[1a]x"}}},
        {"signs", "?[+1]x\n", {{1, F::malformedIndex, u"?[+1]x"}}},
        {"end far away", "*[" + std::string(30, '0') + "1]x",
            {{1, F::malformedIndex, u"*[0000000000000000000000000000001]x"}}},
        {"description zero", "*[0]x\n", {{1, F::indexOutOfRange, u"*[0]x"}}},
        {"description too far", "*[65537]x\n", {{1, F::indexOutOfRange, u"*[65537]x"}}},
        {"past 32 bits", "*[4294967297]x\n", {{1, F::indexOutOfRange, u"*[4294967297]x"}}},
        {"past 64 bits", "*[18446744073709551617]x\n", {{1, F::malformedIndex, u"*[18446744073709551617]x"}}},
        {"misc zero", "+[0]x\n", {{1, F::indexOutOfRange, u"+[0]x"}}},
        {"misc too far", "+[256]x\n", {{1, F::indexOutOfRange, u"+[256]x"}}},
        {"setting below", "?[-1]x\n", {{1, F::indexOutOfRange, u"?[-1]x"}}},
        {"setting too far", "?[77]x\n", {{1, F::indexOutOfRange, u"?[77]x"}}},
        {"twice", "*[1]x\n*[1]y\n+[9]x\n+[9]\n?[5]x\n?[5]x\n",
            {{2, F::repeatedIndex, u"*[1]y"}, {4, F::repeatedIndex, u"+[9]"},
                {6, F::repeatedIndex, u"?[5]x"}}},
        {"order", "x.dwg\n?[0]V\n+[5]8\n*[1]one\ny.dwg\n",
            {{2, F::sectionOrder, u"?[0]V"}, {3, F::sectionOrder, u"+[5]8"},
                {4, F::sectionOrder, u"*[1]one"}}},
        {"blanks", "?[62]  a\n\n?[5]\t\n", {{3, F::blanksDropped, u"\t"}, {1, F::blanksDropped, u"  a"}}}};
    for (const Case& each : cases)
        EXPECT_EQ(findingsOf(each.file), each.findings) << each.name;
}

TEST_F(ReaderFindings, drawingLines_areJudgedByWhatIsLost) {
    const std::string longName(256, 'x');
    const Case cases[] = {{"overwritten", "=1\n==2\n=3\n==4\nx.dwg\n=1\ny.dwg",
                              {{3, F::attributeOverwritten, u"=3"}, {4, F::attributeOverwritten, u"==4"}}},
        {"unknown", "====XYZ\n====REFS\n=====sub=A\nx.dwg",
            {{1, F::unknownAttribute, u"====XYZ"}, {2, F::unknownAttribute, u"====REFS"},
                {3, F::unknownAttribute, u"=====sub=A"}}},
        {"nameless subfolder", "=====SUB=\nx.dwg", {{1, F::emptyTrace, u"=====SUB="}}},
        {"second marker", "=====SUB=A\n=====SUB=B\nx.dwg", {{2, F::markerRepeated, u"=====SUB=B"}}},
        {"text behind the mark", "=====SUB=A[Empty]x\nx.dwg",
            {{1, F::emptyMarkerTail, u"=====SUB=A[Empty]x"}}},
        {"nothing follows", "x.dwg\n=1\n==2\n", {{3, F::attributesWithoutDrawing, u"==2"}}},
        {"nothing follows a marker", "x.dwg\n=====SUB=A\n",
            {{2, F::attributesWithoutDrawing, u"=====SUB=A"}}},
        {"nothing follows but an empty subfolder", "=1\n=====SUB=A[Empty]\n",
            {{2, F::attributesWithoutDrawing, u"=====SUB=A[Empty]"}}},
        {"not joined", longName, {{1, F::pathNotJoined, fromAscii(longName)}}},
        {"no path", " \" ", {{1, F::emptyPath, u" \" "}}},
        {"again", "x.dwg\n\nC:\\p\\X.dwg\n", {{3, F::duplicateDrawing, u"C:\\p\\X.dwg"}}}};
    for (const Case& each : cases)
        EXPECT_EQ(findingsOf(each.file), each.findings) << each.name;
}

TEST_F(ReaderFindings, textThatCannotBeRead_isPlaced) {
    const std::string nul("a\0b.dwg", 7);
    const Case cases[] = {{"undefined byte", "x.dwg\r\n\x81.dwg", {{2, F::undecodableBytes, u"\u0081.dwg"}}},
        {"bad byte in marked UTF-8", "\xEF\xBB\xBFx.dwg\n\xFFy.dwg\n",
            {{2, F::undecodableBytes, CString(1, char16_t{0xDCFF}) + u"y.dwg"}}},
        {"NUL", "\n" + nul, {{2, F::nulCharacter, CString(u"a\0b.dwg", 7)}}},
        {"odd byte in UTF-16", std::string("\xFF\xFEx\0\n\0y", 7), {{2, F::undecodableBytes, u""}}}};
    for (const Case& each : cases)
        EXPECT_EQ(findingsOf(each.file), each.findings) << each.name;
}

} // namespace
} // namespace ryv::test
