// A project on a disk that is really full, and on one that is really read-only.
#include "tests/system/real_manager.h"

#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

namespace ryv::test {
namespace {

/// Mounts of this process only; without superuser's rights by way of a user namespace.
bool mayMount() {
    const uid_t user = ::geteuid();
    if (user == 0)
        return ::unshare(CLONE_NEWNS) == 0 &&
               ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
    if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0)
        return false;
    std::ofstream("/proc/self/uid_map") << "0 " << user << " 1";
    return ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

const std::string oldProject = "one.dwg\n";

class ManagerDiskReliability : public RealManager {
protected:
    void SetUp() override {
        mounted = mayMount() && ::mount("none", folder.native().c_str(), "tmpfs", 0, "size=64k") == 0;
        if (!mounted)
            GTEST_SKIP() << "this user may not mount: " << std::strerror(errno);
        folder.write("a.kqp", oldProject);
        ASSERT_TRUE(manager->openProject(id, true));
        recorder->story();
    }
    void TearDown() override {
        manager->closeProject(id, true);
        if (mounted) {
            ::umount2(folder.native("a.kqp").c_str(), MNT_DETACH); // where it is mounted by itself
            ::umount2(folder.native().c_str(), MNT_DETACH);
        }
    }
    bool remount(unsigned long flags, const std::string& name = {}) {
        return ::mount(nullptr, folder.native(name).c_str(), nullptr, MS_REMOUNT | flags, nullptr) == 0;
    }
    bool bindToItself(const std::string& name) {
        const std::string path = folder.native(name);
        return ::mount(path.c_str(), path.c_str(), nullptr, MS_BIND, nullptr) == 0;
    }
    /// Takes all the room that there is, up to the last byte.
    void fill() {
        std::ofstream file(folder.native("filler"), std::ios::binary);
        const std::string page(4096, 'x');
        while (file << page << std::flush) {
        }
    }
    bool add(const char* name) {
        return manager->addFileToProject(drawing(folder.module(decodeUtf8(name))), id);
    }
    bool hasInMemory(const char* name) {
        return manager->isFileInProject(folder.module(decodeUtf8(name)), id);
    }
    _lockStatus whoHasIt() {
        CString who;
        return manager->whoHasProjectFileLocked(id, &who);
    }
    void expectRefusals() {
        EXPECT_FALSE(add("new.dwg"));
        EXPECT_FALSE(manager->removeFileFromProject(folder.module(u"one.dwg"), id));
        EXPECT_NE(project().getLastError(), 0);
        EXPECT_EQ(recorder->story(), "");
        EXPECT_EQ(folder.read("a.kqp"), oldProject);
        EXPECT_TRUE(hasInMemory("new.dwg"));
        EXPECT_TRUE(manager->reReadProject(id));
        EXPECT_TRUE(hasInMemory("one.dwg"));
        EXPECT_FALSE(hasInMemory("new.dwg"));
        recorder->story();
    }
    bool mounted = false;
};

TEST_F(ManagerDiskReliability, fullDisk_refusesChanges_andTakesThemWhenThereIsRoom) {
    fill();
    expectRefusals();
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"a.kqp", "filler"}));
    std::filesystem::remove(folder.native("filler"));
    EXPECT_TRUE(add("new.dwg"));
    EXPECT_EQ(recorder->story(), "add a.kqp new.dwg");
}

TEST_F(
    ManagerDiskReliability, diskMountedReadOnly_refusesChangesAndLocks_andIsFollowedWhenItIsWritableAgain) {
    ASSERT_TRUE(remount(MS_RDONLY));
    expectRefusals();
    EXPECT_EQ(whoHasIt(), lockReadOnly);
    EXPECT_FALSE(manager->lockProjectFile(id));
    EXPECT_TRUE(manager->isProjectFileLocked(id));
    EXPECT_EQ(folder.names(), std::vector<std::string>{"a.kqp"});
    ASSERT_TRUE(remount(0));
    EXPECT_EQ(whoHasIt(), lockNone);
    folder.write("a.kqp", oldProject + "two.dwg\n");
    EXPECT_TRUE(waitFor([&] { return hasInMemory("two.dwg"); }));
    EXPECT_TRUE(add("new.dwg"));
}

TEST_F(ManagerDiskReliability, folderAloneReadOnly_refusesChangesAndLocks_andFollowsTheFile) {
    ASSERT_TRUE(bindToItself("") && bindToItself("a.kqp") && remount(MS_BIND | MS_RDONLY));
    expectRefusals();
    EXPECT_EQ(whoHasIt(), lockFolderReadOnly);
    EXPECT_FALSE(manager->lockProjectFile(id));
    EXPECT_FALSE(manager->isProjectFileLocked(id));
    folder.write("a.kqp", oldProject + "two.dwg\n");
    EXPECT_TRUE(waitFor([&] { return hasInMemory("two.dwg"); }));
}

} // namespace
} // namespace ryv::test
