#include "embedded/os/posix_paths.h"
#include "embedded/os/posix_platform.h"
#include "tests/embedded/current_folder.h"
#include "tests/support/temp_folder.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace ryv::test {
namespace {

class PosixPathsTest : public ::testing::Test {
protected:
    drafta::PosixPlatform system;
    SystemPaths& paths = *system.platform().os.paths;
    TempFolder folder;
};

TEST_F(PosixPathsTest, relativePaths_startFromTheCurrentFolder) {
    const CurrentFolder there(folder.native());
    EXPECT_EQ(paths.currentFolder(), folder.module());
    EXPECT_EQ(paths.fullPath(u"sub\\..\\x.dwg"), folder.module(u"x.dwg"));
    EXPECT_EQ(paths.fullPath(u"C:/a/../x.dwg"), u"C:\\x.dwg");
    EXPECT_EQ(paths.fullPath(u"\\a\\x.dwg"), u"\\a\\x.dwg");
}

TEST_F(PosixPathsTest, textWithoutCounterpart_isShownAsItStands) {
    EXPECT_EQ(paths.toNative(u"D:\\Ä.dwg"), "D:\\Ä.dwg");
    system.mapper().mapDrive(u'D', folder.native());
    EXPECT_EQ(paths.toNative(u"D:\\Ä.dwg"), folder.native("Ä.dwg"));
}

TEST_F(PosixPathsTest, temporaryFolder_isTheOneNamed) {
    const char* const old = std::getenv("TMPDIR");
    const std::string kept = old ? old : "";
    ::setenv("TMPDIR", folder.native().c_str(), 1);
    EXPECT_EQ(paths.temporaryFolder(), folder.module());
    ::setenv("TMPDIR", "relative", 1);
    EXPECT_EQ(paths.temporaryFolder(), u"\\tmp");
    old ? ::setenv("TMPDIR", kept.c_str(), 1) : ::unsetenv("TMPDIR");
}

} // namespace
} // namespace ryv::test
