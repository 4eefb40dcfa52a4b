#include "embedded/os/posix_network.h"

#include "embedded/os/mount_table.h"
#include "embedded/os/posix_platform.h"
#include "embedded/os/share_files.h"
#include "tests/support/temp_folder.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <random>

namespace ryv::test {
namespace {

using drafta::MountedShare;
using drafta::SharedFolder;

TEST(MountTable, networkFileSystems_areFoundWithComputerShareAndPlace) {
    struct Case {
        const char* line;
        std::vector<MountedShare> expected;
    };
    const Case cases[] = {
        {"36 35 0:40 / /mnt/cad rw shared:1 - cifs //fs/cad rw", {{"fs", "cad", "/mnt/cad"}}},
        {"36 35 0:40 / /mnt/cad rw - smb3 //fs/cad/deep/ rw", {{"fs", "cad/deep", "/mnt/cad"}}},
        {"36 35 0:40 /sub /mnt/cad rw - cifs //fs/cad rw", {{"fs", "cad/sub", "/mnt/cad"}}},
        {"36 35 0:40 /deep /mnt/cad rw - cifs //fs/cad/deep rw", {{"fs", "cad/deep", "/mnt/cad"}}},
        {"36 35 0:40 / /mnt/a\\040b rw a:1 b:2 - cifs //fs/a\\040b rw", {{"fs", "a b", "/mnt/a b"}}},
        {"36 35 0:40 / /mnt/n rw - nfs4 nas.example:/vol/1 rw", {{"nas.example", "vol/1", "/mnt/n"}}},
        {"36 35 0:40 / /mnt/n rw - nfs [fe80::1]:/vol rw", {{"fe80::1", "vol", "/mnt/n"}}},
        {"36 35 8:1 / / rw - ext4 /dev/sda1 rw", {}},
        {"36 35 0:40 / /mnt/x rw - cifs //fs rw", {}},
        {"36 35 0:40 / /mnt/x rw - cifs ///share rw", {}},
        {"36 35 0:40 / /mnt/x rw - nfs nas rw", {}},
        {"36 35 0:40 / /mnt/x rw - nfs [fe80::1 rw", {}},
        {"36 35 0:40 / mnt rw - cifs //fs/cad rw", {}},
        {"36 35 0:40 / /mnt/x rw - cifs", {}},
        {"36 35 0:40 / /mnt/x rw cifs //fs/cad rw", {}},
        {"- - - - - - -", {}},
        {"", {}},
    };
    for (const Case& each : cases)
        EXPECT_EQ(drafta::mountedShares(each.line), each.expected) << each.line;
    EXPECT_EQ(drafta::mountedShares("1 1 0:1 / /m rw - cifs //a/x rw\n2 1 0:2 / /m rw - cifs //b/y rw\n"),
        (std::vector<MountedShare>{{"b", "y", "/m"}})); // over the first one
    EXPECT_EQ(drafta::withoutOctalEscapes("a\\134\\999\\04\\400\\"), "a\\\\999\\04\\400\\");
}

TEST(ShareFiles, samba_namesItsFoldersHoweverItIsWritten) {
    const char* const text = "path = /no/section\n"
                             "[global]\r\n path = /global\n"
                             "# [comment]\n; path = /comment\n"
                             "[Projects]\n  PA TH = /srv/projects/ \n"
                             "[two words]\n\tdirectory = \"/srv/two words\"\n"
                             "[long]\npath = /srv/\\\n  long\n"
                             "[off]\npath = /srv/off\navailable = No\n"
                             "[back on]\npath = /srv/on\navailable = TRUE\n"
                             "[printer]\npath = /srv/print\nprint ok = yes\n"
                             "[homes]\npath = /home/%S\n[user]\npath = /home/%u\n"
                             "[none]\n[relative]\npath = srv\n[]\npath = /srv\n[a/b]\npath = /srv\n"
                             "[broken\npath = /srv/broken\nnonsense\n= /x\n"
                             "[root]\npath = /";
    EXPECT_EQ(drafta::sambaShares(text),
        (std::vector<SharedFolder>{{"Projects", "/srv/projects"}, {"two words", "/srv/two words"},
            {"long", "/srv/long"}, {"back on", "/srv/on"}, {"root", "/"}}));
}

TEST(ShareFiles, exports_nameTheirFolders) {
    const char* const text = "# /comment\n/srv/a *(ro)\n\"/srv/b c\" host(rw)\n/srv/d\\040e/ -ro host\n"
                             "/srv/\\\nf\nrelative *(rw)\n\"/srv/open\n/\n\n-ro\n/srv/last";
    std::string found;
    for (const SharedFolder& each : drafta::nfsExports(text))
        found += each.name + ">" + each.folder + " | ";
    EXPECT_EQ(
        found, "srv/a>/srv/a | srv/b c>/srv/b c | srv/d e>/srv/d e | srv/f>/srv/f | srv/last>/srv/last | ");
}

TEST(ShareFiles, anyBytes_areRead) {
    std::mt19937 random(7);
    const std::string_view pieces = "[]=/\\\"#;%\n\r -:041apthnfsci\0\xff";
    for (int round = 0; round < 3000; ++round) {
        std::string text = round % 2 == 0 ? "1 1 0:1 / /m rw - cifs " : "[a]\npath=";
        for (int i = 0; i < 60; ++i)
            text += pieces[random() % pieces.size()];
        for (const MountedShare& each : drafta::mountedShares(text))
            EXPECT_FALSE(each.computer.empty() || each.share.empty() || each.folder.front() != '/');
        for (const SharedFolder& each : drafta::sambaShares(text))
            EXPECT_FALSE(each.name.empty() || each.folder.front() != '/');
        for (const SharedFolder& each : drafta::nfsExports(text))
            EXPECT_FALSE(each.name.empty() || each.folder.front() != '/');
    }
}

TEST(PosixNetwork, answersFromTheFilesOfThisMachine) {
    TempFolder folder;
    drafta::PosixPlatform system;
    folder.write("mounts", "1 1 0:1 / /mnt/b rw - cifs //FS/b rw\n1 1 0:1 / /mnt/a rw - cifs //fs/a rw\n");
    folder.write("smb", "[cad]\npath=/srv/cad\n");
    drafta::PosixNetwork network(*system.platform().os.paths, *system.platform().os.identity,
        {folder.native("mounts"), folder.native("smb"), folder.native("missing")});
    EXPECT_EQ(network.computers(), (CStringArray{u"FS"}));
    EXPECT_EQ(network.sharesOf(u"Fs"),
        (std::vector<NetworkShare>{{u"FS", u"b", u"\\mnt\\b"}, {u"fs", u"a", u"\\mnt\\a"}}));
    EXPECT_TRUE(network.sharesOf(u"other").empty());
    const CString computer = system.platform().os.identity->computerName();
    EXPECT_EQ(network.localShares(), (std::vector<NetworkShare>{{computer, u"cad", u"\\srv\\cad"}}));
    std::filesystem::create_directory_symlink(folder.native(), folder.native("link"));
    EXPECT_EQ(network.longPathName(folder.module(u"LINK\\Smb")),
        network.longPathName(folder.module()) + u"\\smb"); // as it is spelled, links followed
    EXPECT_EQ(network.longPathName(folder.module(u"nothing")), u"");
}

} // namespace
} // namespace ryv::test
