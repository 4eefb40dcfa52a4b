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
    EXPECT_EQ(rewritten("plant.kqp"),
        "*[1]Pumping station\n*[3]Zürich\n+[1]%SL_DIR%/libs\n+[5]8\n=Cover sheet\ncover.dwg\n"
        "=Motor control\n==Sheet 2\n===North\n===South\n=====SUB=POWER/MOTORS\npower\\m1.dwg\n"
        "=====SUB=POWER/MOTORS\npower\\motor-two.dwg\n====REF\n=====SUB=POWER\n..\\other\\ref.dwg\n"
        "=====SUB=SPARE[Empty]\n=Last\nlast.dwg\n");
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

} // namespace
} // namespace ryv::test
