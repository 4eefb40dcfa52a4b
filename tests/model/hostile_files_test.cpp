// Files that no writer made. Each has to be read in bounded time and memory; the sanitizers look for the
// rest.
#include "tests/support/project_fixture.h"

#include <chrono>

namespace ryv::test {
namespace {

class HostileFiles : public ProjectFixture {
protected:
    /// Reads, writes and reads again: the second project equals the first.
    void readAndWrite(const std::string& bytes) {
        const auto start = std::chrono::steady_clock::now();
        read(bytes, project);
        const std::string written = write(project);
        RyvPrmProjectData again;
        read(written, again);
        EXPECT_TRUE(again == project);
        const auto seconds = std::chrono::steady_clock::now() - start;
        EXPECT_LT(seconds, std::chrono::seconds(patienceSeconds));
        recorder.findings.clear();
    }

    RyvPrmProjectData project;
};

TEST_F(HostileFiles, numbersOutOfRange_reserveNothing) {
    readAndWrite(
        "*[4294967296]x\n*[-1]x\n*[65536]x\n*[9223372036854775807]x\n*[0]x\n?[-1]x\n?[77]x\n?[4294967296]x\n"
        "+[0]x\n+[-1]x\n+[256]x\n+[4294967297]x\n");
    EXPECT_EQ(project.getProjDescriptions().size(), 65536u);
    EXPECT_EQ(project.getProjDescriptions().back(), u"x");
    EXPECT_TRUE(project.getMiscProjSettings().values().empty());
}

TEST_F(HostileFiles, traceOfManyComponents_isBuilt) {
    std::string trace = "=====SUB=A";
    for (int i = 1; i < 100'000; ++i)
        trace += i % 3 ? "/B" : "/c";
    const std::string one = trace + "\nx.dwg\n" + trace + "\ny.dwg\n" + trace + "/D[Empty]\n";
    readAndWrite(one);
    EXPECT_EQ(drawingNames(project), (std::vector<CString>{u"C:\\P\\x.dwg", u"C:\\P\\y.dwg"}));
    RyvPrmSubfolder* const deepest = project.findSubfolder(fromAscii(trace.substr(9)));
    ASSERT_NE(deepest, nullptr);
    EXPECT_EQ(treeText(deepest->getItems()), "C:\\P\\x.dwg C:\\P\\y.dwg D{}");
}

TEST_F(HostileFiles, lineOfFiftyMegabytes_isRead) {
    constexpr std::size_t size = 50'000'000;
    readAndWrite(std::string(size, 'x') + "\n=" + std::string(1000, 'y') + "\nz\n");
    const std::vector<CString> names = drawingNames(project);
    ASSERT_EQ(names.size(), 2u);
    EXPECT_EQ(names[0].size(), size);
}

TEST_F(HostileFiles, manyEqualsSignsAndBlanks_areRead) {
    readAndWrite(std::string(5'000'000, '=') + "\n" + std::string(5'000'000, ' ') +
                 "x\n=====SUB=" + std::string(1'000'000, 'S') + std::string(1'000'000, '=') +
                 "\ny\n=====SUB=" + std::string(1'000'000, '/') + "\nz\n");
    EXPECT_EQ(drawingNames(project).size(), 3u);
}

TEST_F(HostileFiles, manyDrawingsOfOneName_areRead) {
    constexpr int count = 100'000;
    std::string bytes;
    for (int i = 0; i < count; ++i)
        bytes += i % 2 ? "=====SUB=A\nx.dwg\n" : "=====sub=A\nX.DWG\n";
    readAndWrite(bytes);
    EXPECT_EQ(drawingNames(project).size(), std::size_t{count});
    EXPECT_TRUE(project.removeFiles(CStringArray(std::size_t{count}, CString(u"c:\\p\\X.dwg"))));
    EXPECT_TRUE(drawingNames(project).empty());
}

/// A drawing that moves from marker to marker must not cost a search through the subfolder each time.
TEST_F(HostileFiles, manyMarkersInFrontOfOnePath_areRead) {
    std::string bytes;
    for (int i = 0; i < 50'000; ++i)
        bytes += "=====SUB=A\nx" + std::to_string(i) + "\n";
    for (int i = 0; i < 50'000; ++i)
        bytes += i % 2 ? "=====SUB=A\n" : "=====SUB=A/B\n";
    readAndWrite(bytes + "last\n");
    EXPECT_EQ(drawingNames(project).back(), u"C:\\P\\last");
}

TEST_F(HostileFiles, linesWithoutContent_areNone) {
    readAndWrite(std::string(5'000'000, '\n'));
    EXPECT_EQ(treeText(project), "");
    readAndWrite(std::string(1'000'000, '\r'));
    EXPECT_EQ(treeText(project), "");
}

TEST_F(HostileFiles, undecodableTexts_areKept) {
    using namespace std::string_literals;
    const std::string contents[] = {"=\0\0x\n\0y.dwg\n*[1]\0\n+[9]\0\n?[5]\0\n=====SUB=\0A\nz\n"s,
        "\xEF\xBB\xBF=\xED\xA0\x80\n==\xED\xB0\x80\n=====SUB=\xED\xA0\x80/\xED\xB0\x80\n\xED\xB0\x80.dwg\n",
        "\xEF\xBB\xBF\xFF\xFE\x80\n=\xC0\x80\n\xF4\x90\x80\x80\n",
        "\x81\x8D\x8F\x90\x9D.dwg\n=\x81\n=====SUB=\x8D\nz\n", "\xFF\xFE=\0\x00\xD8\n\0\x00\xDC.\0d\0\n\0"s,
        "\xFE\xFF\0=\xD8\x00\0\n\xDC\x00\0.\0d\0\n\0"s, "\xFF\xFE", "\xFE\xFF\0",
        "\xEF\xBB\xBF\xEF\xBB\xBFx.dwg\n", "\xEF\xBB"};
    for (const std::string& bytes : contents)
        readAndWrite(bytes);
}

} // namespace
} // namespace ryv::test
