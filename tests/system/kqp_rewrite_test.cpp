#include "base/fold.h"
#include "tests/system/kqp_fixture.h"

#include <filesystem>
#include <sstream>
#include <sys/stat.h>

namespace ryv::test {
namespace {

/// The lines that are default drawing settings, or all others.
std::string linesOf(const std::string& content, bool settings) {
    std::istringstream lines(content);
    std::string result;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("?[") == settings)
            result += line + "\n";
    }
    return result;
}

std::string utf16(const std::string& ascii) {
    std::string bytes = "\xFF\xFE";
    for (const char c : ascii)
        bytes.append(1, c).append(1, '\0');
    return bytes;
}

class KqpRewriteTest : public KqpTest {
protected:
    /// Without the settings lines; those have a test of their own.
    std::string rewritten(const std::string& name) const {
        expectDone(kqp({"rewrite", name}));
        return linesOf(folder.read(name), false);
    }
};

TEST_F(KqpRewriteTest, rewrite_inPlace_givesCanonicalForm) {
    folder.write("plant.kqp", plantProject);
    EXPECT_EQ(rewritten("plant.kqp"), "*[1]Pumping station\n"
                                      "*[3]Zürich\n"
                                      "+[1]%SL_DIR%/libs\n"
                                      "+[5]8\n"
                                      "=Cover sheet\n"
                                      "cover.dwg\n"
                                      "=Motor control\n"
                                      "==Sheet 2\n"
                                      "===North\n"
                                      "===South\n"
                                      "=====SUB=POWER/MOTORS\n"
                                      "power\\m1.dwg\n"
                                      "=====SUB=POWER/MOTORS\n"
                                      "power\\motor-two.dwg\n"
                                      "====REF\n"
                                      "=====SUB=POWER\n"
                                      "..\\other\\ref.dwg\n"
                                      "=====SUB=SPARE[Empty]\n"
                                      "=Last\n"
                                      "last.dwg\n");
    EXPECT_EQ(folder.names(), std::vector<std::string>{"plant.kqp"});
}

TEST_F(KqpRewriteTest, rewrite_settings_areAllButThoseOfOneDrawing) {
    folder.write("plant.kqp", plantProject);
    expectDone(kqp({"rewrite", "plant.kqp"}));
    const std::string settings = linesOf(folder.read("plant.kqp"), true);
    EXPECT_EQ(std::count(settings.begin(), settings.end(), '\n'), 75);
    EXPECT_TRUE(settings.starts_with("?[0]V\n?[1]1\n"));
    EXPECT_NE(settings.find("?[65]  x\n"), std::string::npos);
    EXPECT_EQ(settings.find("?[13]"), std::string::npos);
    EXPECT_EQ(settings.find("?[46]"), std::string::npos);
}

TEST_F(KqpRewriteTest, rewrite_canonicalFile_changesNothing) {
    folder.write("plant.kqp", plantProject);
    folder.write("copy.kqp", plantProject);
    expectDone(kqp({"rewrite", "plant.kqp"}));
    EXPECT_EQ(kqp({"equal", "copy.kqp", "plant.kqp"}).exitCode, 0);
    const std::string once = folder.read("plant.kqp");
    expectDone(kqp({"rewrite", "plant.kqp"}));
    EXPECT_EQ(folder.read("plant.kqp"), once);
}

TEST_F(KqpRewriteTest, rewrite_toOtherFolder_makesPathsRelativeToIt) {
    std::filesystem::create_directory(folder.native("out"));
    folder.write("plant.kqp", "a.dwg\nout/b.dwg\n\\far\\c.dwg\n");
    expectDone(kqp({"rewrite", "plant.kqp", "-o", "out/new.kqp"}));
    const std::string written = linesOf(folder.read("out/new.kqp"), false);
    EXPECT_TRUE(written.starts_with("..\\a.dwg\nb.dwg\n..\\..\\")) << written;
    EXPECT_EQ(folder.read("plant.kqp"), "a.dwg\nout/b.dwg\n\\far\\c.dwg\n");
    EXPECT_EQ(kqp({"equal", "plant.kqp", "out/new.kqp"}).exitCode, 0);
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"out", "plant.kqp"}));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.native("out")), {}), 1);
}

TEST_F(KqpRewriteTest, rewrite_toExistingFile_replacesIt) {
    folder.write("a.kqp", "a.dwg\n");
    folder.write("b.kqp", "\xFF\xFEold content that is no project");
    for (const std::vector<std::string>& words :
        std::vector<std::vector<std::string>>{{"rewrite", "-o", "b.kqp", "a.kqp"},
            {"rewrite", "a.kqp", "--output=b.kqp"}, {"rewrite", "-ob.kqp", "a.kqp"}}) {
        expectDone(kqp(words));
        EXPECT_EQ(linesOf(folder.read("b.kqp"), false), "a.dwg\n");
        folder.write("b.kqp", "old");
    }
}

TEST_F(KqpRewriteTest, rewrite_absolute_writesUpperCasePaths) {
    folder.write("plant.kqp", "=Keep case\n=====SUB=A\nsub/a.dwg\n\\far\\ü.dwg\n");
    expectDone(kqp({"rewrite", "--absolute", "plant.kqp"}));
    const std::string path = toUtf8(toUpper(folder.module()));
    EXPECT_EQ(linesOf(folder.read("plant.kqp"), false),
        "=Keep case\n=====SUB=A\n" + path + "\\SUB\\A.DWG\n\\FAR\\Ü.DWG\n");
}

TEST_F(KqpRewriteTest, rewrite_encoding_isKept) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"*[1]Z\xC3\xBCrich\r\n", "*[1]Z\xC3\xBCrich\n"},
        {"*[1]Z\xFCrich\n", "*[1]Z\xFCrich\n"},
        {"\xEF\xBB\xBF*[1]x\n", "\xEF\xBB\xBF*[1]x\n"},
        {utf16("*[1]x\r\n"), utf16("*[1]x\n")},
    };
    for (const auto& [before, start] : cases) {
        folder.write("a.kqp", before);
        expectDone(kqp({"rewrite", "a.kqp", "-o", "b.kqp"}));
        EXPECT_EQ(folder.read("b.kqp").substr(0, start.size()), start);
        expectDone(kqp({"rewrite", "a.kqp"}));
        EXPECT_EQ(folder.read("a.kqp"), folder.read("b.kqp"));
    }
}

TEST_F(KqpRewriteTest, rewrite_symbolicLink_writesBehindItAndKeepsIt) {
    std::filesystem::create_directory(folder.native("real"));
    folder.write("real/a.kqp", "x/./a.dwg\n");
    std::filesystem::create_symlink("real/a.kqp", folder.native("link.kqp"));
    expectDone(kqp({"rewrite", "link.kqp"}));
    EXPECT_TRUE(std::filesystem::is_symlink(folder.native("link.kqp")));
    EXPECT_EQ(linesOf(folder.read("real/a.kqp"), false), "x\\a.dwg\n");
}

TEST_F(KqpRewriteTest, rewrite_mode_isKept) {
    folder.write("a.kqp", "a.dwg\n");
    ASSERT_EQ(::chmod(folder.native("a.kqp").c_str(), 0640), 0);
    expectDone(kqp({"rewrite", "a.kqp"}));
    struct stat status {};
    ASSERT_EQ(::stat(folder.native("a.kqp").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777u, 0640u);
}

} // namespace
} // namespace ryv::test
