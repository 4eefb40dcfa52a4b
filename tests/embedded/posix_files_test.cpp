#include "embedded/os/file_error.h"
#include "embedded/os/posix_files.h"
#include "embedded/os/remote_file_systems.h"
#include "tests/support/temp_folder.h"

#include <array>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace ryv::test {
namespace {

using std::chrono::milliseconds;

class PosixFilesTest : public ::testing::Test {
protected:
    FileHandle opened(const CString& name, OpenMode mode) {
        FileHandle handle = FileHandle::none;
        EXPECT_TRUE(files.open(folder.module(name), mode, handle).ok());
        return handle;
    }
    FileError openError(const CString& path, OpenMode mode) {
        FileHandle handle = FileHandle::none;
        const FileError error = files.open(path, mode, handle).error;
        EXPECT_EQ(handle, FileHandle::none);
        return error;
    }
    FileInformation information(const CString& name) {
        FileInformation found;
        EXPECT_TRUE(files.information(folder.module(name), found).ok());
        return found;
    }
    CString resolved(const CString& name) {
        CString found;
        EXPECT_TRUE(files.resolve(folder.module(name), found).ok());
        return found;
    }
    TempFolder folder;
    drafta::PathMapper mapper;
    drafta::PosixFiles files{mapper};
};

TEST_F(PosixFilesTest, writtenContent_isReadBack) {
    FileHandle handle = opened(u"x", OpenMode::createExclusive);
    std::size_t count = 0;
    ASSERT_TRUE(files.write(handle, "some bytes", count).ok());
    EXPECT_EQ(count, 10u);
    EXPECT_TRUE(files.sync(handle).ok());
    EXPECT_TRUE(files.truncate(handle, 4).ok());
    std::array<char, 16> buffer{};
    ASSERT_TRUE(files.read(handle, buffer, count).ok());
    EXPECT_EQ(std::string_view(buffer.data(), count), "some");
    ASSERT_TRUE(files.read(handle, buffer, count).ok());
    EXPECT_EQ(count, 0u);
    EXPECT_TRUE(files.close(handle).ok());
    EXPECT_EQ(folder.read("x"), "some");
}

TEST_F(PosixFilesTest, openModes_doWhatTheySay) {
    const CString path = folder.module(u"x");
    EXPECT_EQ(openError(path, OpenMode::read), FileError::missing);
    EXPECT_EQ(openError(path, OpenMode::readWrite), FileError::missing);
    EXPECT_TRUE(files.close(opened(u"x", OpenMode::openOrCreate)).ok());
    folder.write("x", "kept");
    EXPECT_TRUE(files.close(opened(u"x", OpenMode::openOrCreate)).ok());
    EXPECT_EQ(folder.read("x"), "kept");
    EXPECT_EQ(openError(path, OpenMode::createExclusive), FileError::exists);
    EXPECT_EQ(openError(folder.module(u"X"), OpenMode::createExclusive), FileError::exists);
    EXPECT_EQ(openError(folder.module(u"none\\x"), OpenMode::openOrCreate), FileError::missing);
    EXPECT_EQ(openError(folder.module(u"x\\y"), OpenMode::read), FileError::notFolder);
}

TEST_F(PosixFilesTest, handles_areNotInherited) {
    const FileHandle handle = opened(u"x", OpenMode::createExclusive);
    EXPECT_NE(::fcntl(static_cast<int>(handle), F_GETFD) & FD_CLOEXEC, 0);
    EXPECT_TRUE(files.close(handle).ok());
}

TEST_F(PosixFilesTest, whatIsNoRegularFile_isRefusedWithoutWaiting) {
    ASSERT_EQ(::mkfifo(folder.native("pipe").c_str(), 0600), 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    folder.native("socket").copy(address.sun_path, sizeof address.sun_path - 1);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    ASSERT_EQ(::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    for (const OpenMode mode : {OpenMode::read, OpenMode::readWrite, OpenMode::openOrCreate}) {
        EXPECT_EQ(openError(folder.module(u"pipe"), mode), FileError::notRegular);
        EXPECT_EQ(openError(folder.module(u"socket"), mode), FileError::notRegular);
        EXPECT_EQ(openError(u"\\dev\\null", mode), FileError::notRegular);
        EXPECT_EQ(openError(folder.module(), mode), FileError::isFolder);
    }
    ::close(socket);
}

TEST_F(PosixFilesTest, impossibleNames_areBadNames) {
    EXPECT_EQ(openError(u"", OpenMode::read), FileError::badName);
    EXPECT_EQ(openError(folder.module(CString(256, u'n')), OpenMode::openOrCreate), FileError::badName);
    EXPECT_EQ(openError(folder.module(CString(u"a\0b", 3)), OpenMode::openOrCreate), FileError::badName);
    std::filesystem::create_symlink("loop", folder.native("loop"));
    EXPECT_EQ(openError(folder.module(u"loop"), OpenMode::read), FileError::badName);
    CString found;
    EXPECT_EQ(files.resolve(folder.module(u"loop"), found).error, FileError::badName);
}

TEST_F(PosixFilesTest, rename_replacesAndRespectsANewSpelling) {
    folder.write("a", "new");
    folder.write("B", "old");
    ASSERT_TRUE(files.rename(folder.module(u"a"), folder.module(u"b")).ok());
    EXPECT_EQ(folder.names(), std::vector<std::string>{"B"});
    EXPECT_EQ(folder.read("B"), "new");
    ASSERT_TRUE(files.rename(folder.module(u"B"), folder.module(u"b")).ok());
    EXPECT_EQ(folder.names(), std::vector<std::string>{"b"});
    EXPECT_EQ(files.rename(folder.module(u"none"), folder.module(u"b")).error, FileError::missing);
}

TEST_F(PosixFilesTest, remove_takesFilesAndNoFolders) {
    folder.write("x", "");
    std::filesystem::create_directory(folder.native("sub"));
    EXPECT_TRUE(files.remove(folder.module(u"X")).ok());
    EXPECT_EQ(files.remove(folder.module(u"x")).error, FileError::missing);
    EXPECT_EQ(files.remove(folder.module(u"sub")).error, FileError::isFolder);
}

TEST_F(PosixFilesTest, information_isTheSameByPathAndByHandle) {
    folder.write("x", "12345");
    const FileHandle handle = opened(u"x", OpenMode::readWrite);
    FileInformation byHandle;
    ASSERT_TRUE(files.information(handle, byHandle).ok());
    EXPECT_TRUE(files.close(handle).ok());
    const FileInformation byPath = information(u"x");
    EXPECT_EQ(byHandle.device, byPath.device);
    EXPECT_EQ(byHandle.inode, byPath.inode);
    EXPECT_EQ(byHandle.modifiedNanoseconds, byPath.modifiedNanoseconds);
    EXPECT_EQ(byPath.size, 5u);
    EXPECT_TRUE(byPath.isRegular);
    EXPECT_FALSE(byPath.isFolder || byPath.readOnly || byHandle.readOnly);
    const FileInformation ofFolder = information({});
    EXPECT_TRUE(ofFolder.isFolder);
    EXPECT_FALSE(ofFolder.isRegular);
}

/// In a process of its own, as a user without rights to the file: 0 when it is read-only by path and by
/// handle.
int askAsNobody(Files& files, const CString& path) {
    if (::setresgid(65534, 65534, 65534) != 0 || ::setresuid(0, 65534, 0) != 0)
        return 3;
    FileInformation byPath;
    FileInformation byHandle;
    FileHandle handle = FileHandle::none;
    if (!files.information(path, byPath).ok() || !files.open(path, OpenMode::read, handle).ok())
        return 2;
    return files.information(handle, byHandle).ok() && byPath.readOnly && byHandle.readOnly ? 0 : 1;
}

TEST_F(PosixFilesTest, readOnly_isToldForTheEffectiveUser) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "needs another user";
    folder.write("x", "");
    ASSERT_EQ(::chmod(folder.native("x").c_str(), 0644), 0);
    ASSERT_EQ(::chmod(folder.native().c_str(), 0755), 0);
    EXPECT_FALSE(information(u"x").readOnly);
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(askAsNobody(files, folder.module(u"x")));
    int ended = -1;
    ::waitpid(child, &ended, 0);
    ASSERT_TRUE(WIFEXITED(ended));
    EXPECT_EQ(WEXITSTATUS(ended), 0);
}

TEST_F(PosixFilesTest, lock_isBusyUntilTheOtherHolderCloses) {
    folder.write("x", "");
    const FileHandle first = opened(u"x", OpenMode::readWrite);
    const FileHandle second = opened(u"x", OpenMode::readWrite);
    EXPECT_TRUE(files.lock(first, milliseconds(0)).ok());
    EXPECT_EQ(files.lock(second, milliseconds(0)).error, FileError::busy);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(files.lock(second, milliseconds(50)).error, FileError::busy);
    EXPECT_GE(std::chrono::steady_clock::now() - start, milliseconds(50));
    EXPECT_TRUE(files.close(first).ok());
    EXPECT_TRUE(files.lock(second, milliseconds(0)).ok());
    EXPECT_TRUE(files.close(second).ok());
}

TEST_F(PosixFilesTest, mark_isSeenByOthersOnlyAndWithoutTakingAnything) {
    folder.write("x", "");
    const FileHandle holder = opened(u"x", OpenMode::readWrite);
    const FileHandle reader = opened(u"x", OpenMode::read);
    bool marked = true;
    EXPECT_TRUE(files.isLockMarked(reader, marked).ok());
    EXPECT_FALSE(marked);
    ASSERT_TRUE(files.lock(holder, milliseconds(0)).ok());
    EXPECT_TRUE(files.isLockMarked(reader, marked).ok());
    EXPECT_FALSE(marked) << "a lock alone is no mark";
    ASSERT_TRUE(files.markLock(holder).ok());
    for (int again = 0; again < 2; ++again) {
        EXPECT_TRUE(files.isLockMarked(reader, marked).ok());
        EXPECT_TRUE(marked);
    }
    EXPECT_TRUE(files.isLockMarked(holder, marked).ok());
    EXPECT_FALSE(marked) << "one's own";
    struct flock content {};
    content.l_type = F_RDLCK;
    content.l_len = 1 << 30;
    EXPECT_EQ(::fcntl(static_cast<int>(reader), F_OFD_SETLK, &content), 0)
        << "the mark is not on the content";
    EXPECT_EQ(files.markLock(reader).error, FileError::unsupported);
    EXPECT_TRUE(files.close(holder).ok());
    EXPECT_TRUE(files.isLockMarked(reader, marked).ok());
    EXPECT_FALSE(marked);
    EXPECT_TRUE(files.close(reader).ok());
}

TEST_F(PosixFilesTest, locks_mayBeLocalOnRemoteFileSystemsThatDoNotShareThem) {
    struct Case {
        std::uint32_t type;
        bool remote, local;
    };
    for (const Case& each : {Case{0xEF53, false, false}, Case{0x6969, true, false},
             Case{0xFF534D42, true, true}, Case{0x65735546, true, true}}) {
        EXPECT_EQ(drafta::isRemoteFileSystem(each.type), each.remote) << std::hex << each.type;
        EXPECT_EQ(drafta::mayKeepLocksLocal(each.type), each.local) << std::hex << each.type;
    }
    FileHandle handle = FileHandle::none;
    ASSERT_TRUE(files.open(u"\\proc\\self\\status", OpenMode::read, handle).ok());
    bool local = true;
    EXPECT_TRUE(files.mayLockBeLocal(handle, local).ok());
    EXPECT_FALSE(local);
    EXPECT_TRUE(files.close(handle).ok());
    EXPECT_FALSE(files.mayLockBeLocal(handle, local).ok());
    EXPECT_TRUE(local) << "doubt";
}

TEST_F(PosixFilesTest, folder_isWritableForWhoMayMakeFilesInIt) {
    folder.write("x", "");
    ASSERT_EQ(::chmod(folder.native().c_str(), 0755), 0);
    EXPECT_TRUE(files.checkFolderWritable(folder.module()).ok());
    EXPECT_EQ(files.checkFolderWritable(folder.module(u"x")).error, FileError::notFolder);
    EXPECT_EQ(files.checkFolderWritable(folder.module(u"y")).error, FileError::missing);
    if (::geteuid() != 0)
        GTEST_SKIP() << "needs another user";
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(::seteuid(65534) == 0 && files.checkFolderWritable(folder.module()).error == FileError::denied
                    ? 0
                    : 1);
    int ended = -1;
    ::waitpid(child, &ended, 0);
    EXPECT_EQ(ended, 0);
}

TEST_F(PosixFilesTest, lock_isHadAsSoonAsAPatientWaiterCan) {
    folder.write("x", "");
    const int other = ::open(folder.native("x").c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(::flock(other, LOCK_EX), 0);
    const FileHandle handle = opened(u"x", OpenMode::readWrite);
    std::thread release([other] {
        std::this_thread::sleep_for(milliseconds(30));
        ::close(other);
    });
    EXPECT_TRUE(files.lock(handle, milliseconds(20000)).ok());
    release.join();
    EXPECT_TRUE(files.close(handle).ok());
}

TEST_F(PosixFilesTest, protectionAndHiddenMark_areSetAndTakenOff) {
    folder.write("x", "");
    const CString path = folder.module(u"x");
    FileInformation found;
    EXPECT_TRUE(files.setReadOnly(path, true).ok());
    EXPECT_TRUE(files.information(path, found).ok() && found.readOnly);
    EXPECT_TRUE(files.setReadOnly(path, false).ok());
    EXPECT_TRUE(files.information(path, found).ok() && !found.readOnly && !found.isHidden);
    const FileStatus hidden = files.setHidden(path, true);
    if (hidden.error != FileError::unsupported) { // what the temporary folder's file system can keep
        EXPECT_TRUE(hidden.ok());
        EXPECT_TRUE(files.information(path, found).ok() && found.isHidden);
        EXPECT_TRUE(files.setHidden(path, false).ok());
        EXPECT_TRUE(files.setHidden(path, false).ok()) << "already off";
        EXPECT_TRUE(files.information(path, found).ok() && !found.isHidden);
    }
    EXPECT_EQ(files.setReadOnly(folder.module(u"none"), true).error, FileError::missing);
    EXPECT_EQ(files.setHidden(folder.module(u"none"), true).error, FileError::missing);
}

TEST_F(PosixFilesTest, createFolder_makesOneLevel) {
    EXPECT_TRUE(files.createFolder(folder.module(u"Ä")).ok());
    EXPECT_TRUE(std::filesystem::is_directory(folder.native("Ä")));
    EXPECT_EQ(files.createFolder(folder.module(u"Ä")).error, FileError::exists);
    EXPECT_EQ(files.createFolder(folder.module(u"a\\b")).error, FileError::missing);
}

TEST_F(PosixFilesTest, resolve_followsLinksAndTakesTheSpellingOnDisk) {
    std::filesystem::create_directories(folder.native("Deep/er"));
    folder.write("Deep/A.kqp", "");
    std::filesystem::create_directory_symlink("Deep/er", folder.native("link"));
    std::filesystem::create_symlink("../Deep/A.kqp", folder.native("Deep/b.kqp"));
    EXPECT_EQ(resolved(u"DEEP\\a.KQP"), folder.module(u"Deep\\A.kqp"));
    EXPECT_EQ(resolved(u"deep\\B.kqp"), folder.module(u"Deep\\A.kqp"));
    EXPECT_EQ(resolved(u"link\\new.kqp"), folder.module(u"Deep\\er\\new.kqp"));
    CString none;
    EXPECT_EQ(files.resolve(folder.module(u"none\\x"), none).error, FileError::missing);
    std::filesystem::create_symlink("../made/later", folder.native("Deep/dangling"));
    EXPECT_EQ(files.resolve(folder.module(u"Deep\\dangling"), none).error, FileError::missing);
    std::filesystem::create_directory(folder.native("made"));
    EXPECT_EQ(resolved(u"Deep\\dangling"), folder.module(u"made\\later"));
}

} // namespace
} // namespace ryv::test
