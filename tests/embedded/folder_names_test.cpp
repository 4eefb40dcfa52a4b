#include "embedded/os/folder_names.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

namespace ryv::test {
namespace {

/// The folder was changed last an hour ago.
void settle(const std::string& folder, int minutes = 60) {
    std::filesystem::last_write_time(
        folder, std::filesystem::file_time_type::clock::now() - std::chrono::minutes(minutes));
}

TEST(FolderNames, settledFolder_isListedOnce) {
    TempFolder folder;
    folder.write("A.dwg", "");
    folder.write("a.DWG", "");
    settle(folder.native());
    drafta::FolderNames names;
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(names.find(folder.native(), u"none.FLL"), "");
    EXPECT_EQ(names.find(folder.native(), u"a.dwg"), "A.dwg") << "the first in byte order";
    EXPECT_EQ(names.listings(), 1u);
    EXPECT_EQ(names.find(folder.native("none"), u"a.dwg"), "");
}

TEST(FolderNames, changes_areSeen) {
    TempFolder folder;
    settle(folder.native());
    drafta::FolderNames names;
    EXPECT_EQ(names.find(folder.native(), u"x.dwg"), "");
    folder.write("X.dwg", "");
    EXPECT_EQ(names.find(folder.native(), u"x.dwg"), "X.dwg") << "the folder's time says so";
    // Right behind a change nothing is kept: another one may fall into the same step of the folder's time.
    const auto time = std::filesystem::last_write_time(folder.native());
    std::filesystem::remove(folder.native("X.dwg"));
    std::filesystem::last_write_time(folder.native(), time);
    EXPECT_EQ(names.find(folder.native(), u"x.dwg"), "");
    // Nor is another folder taken for it.
    settle(folder.native());
    std::filesystem::create_directory(folder.native("sub"));
    folder.write("sub/Y.dwg", "");
    settle(folder.native("sub"), 30);
    EXPECT_EQ(names.find(folder.native(), u"y.dwg"), "");
    EXPECT_EQ(names.find(folder.native("sub"), u"y.dwg"), "Y.dwg");
}

} // namespace
} // namespace ryv::test
