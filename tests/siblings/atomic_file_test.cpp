#include "tests/siblings/save_fixture.h"

#include <fcntl.h>
#include <functional>
#include <grp.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace ryv::test {
namespace {

class AtomicFile : public SaveFixture {
protected:
    struct stat status(const std::string& name) {
        struct stat found {};
        EXPECT_EQ(::lstat(folder.native(name).c_str(), &found), 0);
        return found;
    }
    mode_t mode(const std::string& name) { return status(name).st_mode & 07777; }
};

TEST_F(AtomicFile, newFile_getsContentAndUsualMode) {
    const SaveResult result = save("content");
    ASSERT_TRUE(result.ok());
    EXPECT_EQ(folder.read("A.kqp"), "content");
    EXPECT_EQ(folder.names(), only("A.kqp"));
    folder.write("plain", "");
    EXPECT_EQ(mode("A.kqp"), mode("plain"));
    EXPECT_EQ(result.written, fingerprint());
    EXPECT_EQ(result.written.inode, status("A.kqp").st_ino);
    EXPECT_EQ(result.written.modifiedNanoseconds, fingerprint().modifiedNanoseconds);
}

TEST_F(AtomicFile, oldFile_keepsModeAndExtendedAttributes) {
    folder.write("A.kqp", "old");
    ASSERT_EQ(::chmod(folder.native("A.kqp").c_str(), 0640), 0);
    const bool hasAttributes = ::setxattr(folder.native("A.kqp").c_str(), "user.note", "kept", 4, 0) == 0;
    ASSERT_TRUE(save("new").ok());
    EXPECT_EQ(folder.read("A.kqp"), "new");
    EXPECT_EQ(mode("A.kqp"), 0640u);
    char value[16] = {};
    if (hasAttributes) {
        EXPECT_EQ(::getxattr(folder.native("A.kqp").c_str(), "user.note", value, sizeof value), 4);
    }
    EXPECT_STREQ(value, hasAttributes ? "kept" : "");
}

TEST_F(AtomicFile, symbolicLink_staysAndItsTargetIsReplaced) {
    std::filesystem::create_directory(folder.native("data"));
    folder.write("data/B.kqp", "old");
    std::filesystem::create_symlink("data/B.kqp", folder.native("A.kqp"));
    ASSERT_TRUE(save("new").ok());
    EXPECT_TRUE(S_ISLNK(status("A.kqp").st_mode));
    EXPECT_FALSE(S_ISLNK(status("data/B.kqp").st_mode));
    EXPECT_EQ(folder.read("data/B.kqp"), "new");
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"A.kqp", "data"}));
}

TEST_F(AtomicFile, spellingOfAnotherCase_replacesTheFileUnderItsOwnName) {
    folder.write("a.KQP", "old");
    ASSERT_TRUE(save("new").ok());
    EXPECT_EQ(folder.names(), only("a.KQP"));
    EXPECT_EQ(folder.read("a.KQP"), "new");
}

TEST_F(AtomicFile, targetIsAPipe_isRefusedWithoutWaiting) {
    ASSERT_EQ(::mkfifo(folder.native("A.kqp").c_str(), 0600), 0);
    EXPECT_EQ(save("new").status.error, FileError::notRegular);
    EXPECT_TRUE(S_ISFIFO(status("A.kqp").st_mode));
}

TEST_F(AtomicFile, readOnlyTarget_isRefusedWithNothingMade) {
    folder.write("A.kqp", "old");
    ASSERT_EQ(::chmod(folder.native("A.kqp").c_str(), 0444), 0);
    const auto before = status("A.kqp");
    const SaveResult result = save("new");
    EXPECT_EQ(result.status.error, FileError::readOnly);
    EXPECT_EQ(result.file, path);
    EXPECT_EQ(folder.read("A.kqp"), "old");
    EXPECT_EQ(status("A.kqp").st_ino, before.st_ino);
    EXPECT_EQ(std::count(files.calls().begin(), files.calls().end(), FileCall::open), 0);
}

TEST_F(AtomicFile, leftOver_isMadeAnewAndGivesNothingToTheSavedFile) {
    folder.write(".A.kqp.saving", std::string(100000, 'x'));
    ASSERT_EQ(::chmod(folder.native(".A.kqp.saving").c_str(), 0600), 0);
    ASSERT_TRUE(save("new").ok());
    EXPECT_EQ(folder.names(), only("A.kqp"));
    EXPECT_EQ(folder.read("A.kqp"), "new");
    folder.write("plain", "");
    EXPECT_EQ(mode("A.kqp"), mode("plain"));
}

TEST_F(AtomicFile, leftOverThatIsALink_doesNotLeadToAnotherFile) {
    folder.write("victim", "precious");
    std::filesystem::create_symlink("victim", folder.native(".A.kqp.saving"));
    ASSERT_TRUE(save("new").ok());
    EXPECT_EQ(folder.read("victim"), "precious");
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"A.kqp", "victim"}));
}

TEST_F(AtomicFile, saveUnderWay_isWaitedForAndThenBusy) {
    folder.write(".A.kqp.saving", "half");
    const int other = ::open(folder.native(".A.kqp.saving").c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(::flock(other, LOCK_EX), 0);
    EXPECT_TRUE(sweepLeftover(files, path).ok());
    const SaveResult result = save("new");
    EXPECT_EQ(result.status.error, FileError::busy);
    EXPECT_EQ(result.file, folder.module(u".A.kqp.saving"));
    EXPECT_EQ(folder.names(), only(".A.kqp.saving"));
    EXPECT_EQ(folder.read(".A.kqp.saving"), "half");
    ::close(other);
    EXPECT_TRUE(save("new").ok());
    EXPECT_EQ(folder.names(), only("A.kqp"));
}

TEST_F(AtomicFile, sweep_removesALeftOverAndNothingElse) {
    EXPECT_TRUE(sweepLeftover(files, path).ok());
    folder.write("A.kqp", "content");
    folder.write(".A.kqp.saving", "half");
    folder.write(".B.kqp.saving", "half");
    EXPECT_TRUE(sweepLeftover(files, path).ok());
    EXPECT_EQ(folder.names(), (std::vector<std::string>{".B.kqp.saving", "A.kqp"}));
}

TEST_F(AtomicFile, longestName_isSavedThroughAShortTemporaryName) {
    const std::string name = std::string(251, 'n') + ".kqp";
    path = folder.module(fromAscii(name));
    EXPECT_EQ(
        temporaryNameFor(path), temporaryNameFor(folder.module(fromAscii(std::string(251, 'N') + ".KQP"))));
    EXPECT_NE(
        temporaryNameFor(path), temporaryNameFor(folder.module(fromAscii(std::string(251, 'm') + ".kqp"))));
    ASSERT_TRUE(save("new").ok());
    EXPECT_EQ(folder.names(), only(name));
}

TEST_F(AtomicFile, guard_refusesOtherContentAndLeavesIt) {
    folder.write("A.kqp", "mine");
    const Fingerprint seen = fingerprint();
    folder.write("A.kqp", "ours");
    const SaveResult result = save("new", seen);
    EXPECT_EQ(result.status.error, FileError::changedOutside);
    EXPECT_EQ(result.file, path);
    EXPECT_FALSE(result.replaced);
    EXPECT_EQ(folder.read("A.kqp"), "ours");
    EXPECT_EQ(folder.names(), only("A.kqp"));
}

TEST_F(AtomicFile, guard_takesTheSameContentWrittenAnewForUnchanged) {
    folder.write("A.kqp", "mine");
    const Fingerprint seen = fingerprint();
    std::filesystem::remove(folder.native("A.kqp"));
    folder.write("spacer", "keeps the inode from being used again");
    folder.write("A.kqp", "mine");
    const SaveResult first = save("new", seen);
    ASSERT_TRUE(first.ok());
    ASSERT_TRUE(save("newer", first.written).ok());
    EXPECT_EQ(folder.read("A.kqp"), "newer");
}

TEST_F(AtomicFile, guard_noticesAFileThatCameOrWent) {
    const Fingerprint none = fingerprint();
    EXPECT_FALSE(none.present);
    folder.write("A.kqp", "other's");
    EXPECT_EQ(save("new", none).status.error, FileError::changedOutside);
    EXPECT_EQ(folder.read("A.kqp"), "other's");
    const Fingerprint seen = fingerprint();
    std::filesystem::remove(folder.native("A.kqp"));
    EXPECT_EQ(save("new", seen).status.error, FileError::changedOutside);
    EXPECT_TRUE(folder.names().empty());
    EXPECT_TRUE(save("new", none).ok());
}

/// The last look has to tell content of the same size apart, also when the time stamp is made to agree.
TEST_F(AtomicFile, guard_noticesAWriterBetweenItsTwoLooks) {
    folder.write("A.kqp", "mine");
    const Fingerprint seen = fingerprint();
    files.watch = [this](FileCall call) {
        if (call != FileCall::sync)
            return;
        const auto time = std::filesystem::last_write_time(folder.native("A.kqp"));
        folder.write("A.kqp", "ours");
        std::filesystem::last_write_time(folder.native("A.kqp"), time);
    };
    EXPECT_EQ(save("new", seen).status.error, FileError::changedOutside);
    EXPECT_EQ(folder.read("A.kqp"), "ours");
    EXPECT_EQ(folder.names(), only("A.kqp"));
}

/// As another user, in a process of its own: 0 when all is as it should be.
int saveAsNobody(const SaveRequest& request) {
    if (::setgroups(0, nullptr) != 0 || ::setresgid(65534, 65534, 65534) != 0 ||
        ::setresuid(65534, 65534, 65534) != 0)
        return 2;
    drafta::PathMapper mapper;
    drafta::PosixFiles files(mapper);
    return saveAtomically(files, request).ok() ? 0 : 1;
}

TEST_F(AtomicFile, groupThatCannotBeKept_getsNoMoreRightsThanEverybody) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "needs another user";
    folder.write("A.kqp", "old");
    const std::string native = folder.native("A.kqp");
    ASSERT_EQ(::chown(native.c_str(), 65534, 12345), 0);
    ASSERT_EQ(::chmod(native.c_str(), 02664), 0);
    ASSERT_EQ(::chmod(folder.native().c_str(), 0777), 0);
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(saveAsNobody({path, "new", {}}));
    int ended = -1;
    ::waitpid(child, &ended, 0);
    ASSERT_TRUE(WIFEXITED(ended));
    EXPECT_EQ(WEXITSTATUS(ended), 0);
    EXPECT_EQ(folder.read("A.kqp"), "new");
    EXPECT_EQ(status("A.kqp").st_uid, 65534u);
    EXPECT_EQ(mode("A.kqp"), 0644u);
}

TEST_F(AtomicFile, ownerAndGroup_areKeptByWhoMay) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "needs the right to give files away";
    folder.write("A.kqp", "old");
    ASSERT_EQ(::chown(folder.native("A.kqp").c_str(), 65534, 12345), 0);
    ASSERT_TRUE(save("new").ok());
    EXPECT_EQ(status("A.kqp").st_uid, 65534u);
    EXPECT_EQ(status("A.kqp").st_gid, 12345u);
}

} // namespace
} // namespace ryv::test
