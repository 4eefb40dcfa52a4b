#include "embedded/os/posix_files.h"
#include "manager/virtual_file_locker.h"
#include "tests/support/fault_files.h"
#include "tests/support/fork.h"
#include "tests/support/scripted_platform.h"
#include "tests/support/temp_folder.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace ryv::test {
namespace {

constexpr CStringView wholeRecord = u"ann\nDESK Ann Smith\nSaturday, November 21, 2026  8:05:09 AM";

/// Real files, and a user whom the test makes up.
class Locker : public ::testing::Test {
protected:
    Locker() {
        host.environment.values[u"FULLNAME"] = u"Ann Smith";
        folder.write("A.kqp", "content");
    }

    /// Bytes of a text as lock files hold them.
    static std::string bytesOf(CStringView text) {
        std::string bytes;
        encodeUtf16(text, false, bytes);
        return bytes;
    }
    bool stands() { return std::filesystem::exists(folder.native("A.kqp.FLL")); }
    /// For another process: takes the lock as user "bob"; `text` replaces what that wrote.
    bool lockAsBob() {
        host.identity.user = u"bob";
        return locker.lockFile(path);
    }
    bool lockWith(CStringView text) {
        const bool locked = lockAsBob();
        folder.write("A.kqp.FLL", bytesOf(text));
        return locked;
    }

    TempFolder folder;
    CString path = folder.module(u"A.kqp");
    drafta::PathMapper mapper;
    drafta::PosixFiles real{mapper};
    FaultFiles files{real};
    ScriptedPlatform host{&files};
    RyvPrmVirtualFileLocker locker;
    CString who, machine, time;
};

TEST_F(Locker, lock_writesWhoWhereAndWhen) {
    EXPECT_FALSE(locker.isLocked(path));
    ASSERT_TRUE(locker.lockFile(path));
    EXPECT_EQ(folder.read("A.kqp.FLL"), bytesOf(wholeRecord));
    EXPECT_EQ(folder.read("A.kqp"), "content");
    EXPECT_TRUE(locker.isLocked(path));
    EXPECT_EQ(locker.whoLocked(path, who), lockMine);
    EXPECT_EQ(who, wholeRecord);
    EXPECT_EQ(locker.whoLocked(path, who, machine, time), lockMine);
    EXPECT_EQ(who, u"ann(DESK Ann Smit)");
    EXPECT_EQ(machine, u"DESK Ann Smit");
    EXPECT_EQ(time, u"Saturday, November 21, 2026  8:05:09 AM");
    EXPECT_TRUE(locker.unlockFile(folder.module(u"a.KQP")));
    EXPECT_EQ(folder.names(), std::vector<std::string>{"A.kqp"});
    EXPECT_EQ(locker.whoLocked(path, who), lockNone);
}

TEST_F(Locker, fullName_isThatOfProfileThenEnvironmentThenNobody) {
    const CString key = host.profile.key + u"\\FixedProfile\\General";
    const auto machineLine = [&] {
        EXPECT_TRUE(locker.lockFile(path));
        EXPECT_EQ(locker.whoLocked(path, who), lockMine);
        locker.unlockAllFiles();
        return who.substr(4, who.find(u'\n', 4) - 4);
    };
    host.identity.fullName = u"Never Asked";
    host.registry.put(key, u"FULLNAME", CString(u"Ann of the Profile"));
    EXPECT_EQ(machineLine(), u"DESK Ann of the Profile");
    host.registry.put(key, u"FULLNAME", 7u);
    EXPECT_EQ(machineLine(), u"DESK Ann Smith") << "no plain string";
    host.registry.put(key, u"FULLNAME", CString(5000, u'x'));
    EXPECT_EQ(machineLine(), u"DESK Ann Smith") << "longer than the buffer";
    host.environment.values.clear();
    EXPECT_EQ(machineLine(), u"DESK ");
}

TEST_F(Locker, secondLock_isConfirmedWithoutWriting) {
    ASSERT_TRUE(locker.lockFile(path));
    host.clock.time = u"later";
    host.identity.user = u"ANN";
    EXPECT_TRUE(locker.lockFile(path));
    EXPECT_EQ(folder.read("A.kqp.FLL"), bytesOf(wholeRecord));
    EXPECT_TRUE(locker.unlockFile(path));
    EXPECT_FALSE(locker.unlockFile(path)) << "one record only";
    EXPECT_FALSE(stands());
}

TEST_F(Locker, otherProcess_ofTheSameUserPassesAndOfAnotherDoesNot) {
    StayingChild other([&] { return locker.lockFile(path); });
    ASSERT_TRUE(other.stays());
    EXPECT_EQ(locker.whoLocked(path, who), lockMine);
    EXPECT_TRUE(locker.lockFile(path));
    EXPECT_FALSE(locker.unlockFile(path)) << "the other process took it";
    EXPECT_TRUE(locker.unlockAllFiles());
    EXPECT_TRUE(stands());
    for (CString* const name : {&host.identity.user, &host.identity.computer}) {
        const CString mine = std::exchange(*name, u"OTHER");
        EXPECT_EQ(locker.whoLocked(path, who), lockOther);
        EXPECT_FALSE(locker.lockFile(path));
        *name = mine;
    }
    other.kill();
    EXPECT_TRUE(stands());
    EXPECT_FALSE(locker.isLocked(path));
    EXPECT_FALSE(stands());
}

TEST_F(Locker, killedHolder_isForgottenByWhoLockedToo) {
    StayingChild other([&] { return lockAsBob(); });
    ASSERT_TRUE(other.stays());
    EXPECT_EQ(locker.whoLocked(path, who, machine, time), lockOther);
    EXPECT_EQ(who, u"bob(DESK Ann Smit)");
    other.kill();
    EXPECT_EQ(locker.whoLocked(path, who, machine, time), lockNone);
    EXPECT_EQ(who, u"bob(DESK Ann Smit)") << "without a record outputs stay";
    EXPECT_FALSE(stands());
}

TEST_F(Locker, recordThatCannotBeTakenApart_isUnreadableWhileLiveAndSweptAfterwards) {
    for (const CStringView text : {u"", u"u", u"u\nPC Ann", u"u\n\ndate"}) {
        StayingChild other([&] { return lockWith(text); });
        ASSERT_TRUE(other.stays());
        EXPECT_EQ(locker.whoLocked(path, who), lockUnreadable) << shown(text);
        EXPECT_EQ(locker.whoLocked(path, who, machine, time), lockUnreadable) << shown(text);
        EXPECT_FALSE(locker.lockFile(path)) << shown(text);
        other.kill();
        EXPECT_EQ(locker.whoLocked(path, who), lockNone) << shown(text);
    }
}

TEST_F(Locker, fileItself_decidesBeforeItsLock) {
    ASSERT_TRUE(locker.lockFile(path));
    ASSERT_TRUE(real.setReadOnly(path, true).ok());
    EXPECT_EQ(locker.whoLocked(path, who), lockReadOnly);
    EXPECT_FALSE(locker.lockFile(path));
    EXPECT_TRUE(locker.unlockFile(path));
    EXPECT_TRUE(locker.isLocked(path)) << "what is read-only counts as locked";
    EXPECT_FALSE(locker.lockFile(path));
    EXPECT_FALSE(stands());

    const CString missing = folder.module(u"new.kqp");
    EXPECT_EQ(locker.whoLocked(missing, who), lockMissing);
    EXPECT_FALSE(locker.isLocked(missing));
    EXPECT_TRUE(locker.lockFile(missing));
    EXPECT_TRUE(locker.isLocked(missing));
    EXPECT_EQ(locker.whoLocked(missing, who), lockMissing);
    EXPECT_FALSE(locker.lockFile(missing)) << "its record is not read";
    EXPECT_EQ(who, u"");
}

TEST_F(Locker, pathThatIsNone_isRefused) {
    EXPECT_FALSE(locker.lockFile({}));
    EXPECT_FALSE(locker.isLocked({}));
    EXPECT_FALSE(locker.unlockFile({}));
    EXPECT_EQ(locker.whoLocked({}, who), lockInvalid);
    EXPECT_EQ(locker.whoLocked(u"\\ab", who, machine, time), lockInvalid);
    EXPECT_EQ(locker.whoLocked(u"\\abc", who, machine, time), lockMissing);
    EXPECT_FALSE(locker.lockFile(folder.module(u"no\\such.kqp")));
}

TEST_F(Locker, unknownUser_locksNothingAndIsNobody) {
    StayingChild other([&] { return lockAsBob(); });
    ASSERT_TRUE(other.stays());
    host.identity.user.clear();
    EXPECT_EQ(locker.whoLocked(path, who), lockOther);
    other.kill();
    EXPECT_FALSE(locker.isLocked(path));
    EXPECT_FALSE(locker.lockFile(path));
    EXPECT_FALSE(stands());
}

TEST_F(Locker, unlock_ofWhatWasNotLockedHereDeletesNothing) {
    folder.write("A.kqp.FLL", "left over");
    EXPECT_FALSE(locker.unlockFile(path));
    EXPECT_TRUE(stands());
}

TEST_F(Locker, unlockAll_andTheEndOfTheLockerReleaseEverything) {
    folder.write("B.kqp", "");
    const CString second = folder.module(u"B.kqp");
    ASSERT_TRUE(locker.lockFile(path) && locker.lockFile(second));
    EXPECT_TRUE(locker.unlockAllFiles());
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"A.kqp", "B.kqp"}));
    {
        RyvPrmVirtualFileLocker passing;
        ASSERT_TRUE(passing.lockFile(second));
    }
    EXPECT_FALSE(locker.isLocked(second));
}

TEST_F(Locker, linkAndSpelling_areTheSameLock) {
    std::filesystem::create_symlink("A.kqp", folder.native("link.kqp"));
    StayingChild other([&] {
        host.identity.user = u"bob";
        return locker.lockFile(folder.module(u"link.kqp"));
    });
    ASSERT_TRUE(other.stays());
    EXPECT_FALSE(locker.lockFile(path));
    EXPECT_FALSE(locker.lockFile(folder.module(u"a.Kqp")));
    EXPECT_EQ(locker.whoLocked(path, who), lockOther);
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"A.kqp", "A.kqp.FLL", "link.kqp"}));
}

TEST_F(Locker, withoutLocks_aLockFileIsNeverStale) {
    files.arm({FileError::unsupported, 1, FileCall::lock, true});
    ASSERT_TRUE(locker.lockFile(path));
    EXPECT_EQ(locker.whoLocked(path, who), lockMine);
    EXPECT_TRUE(locker.unlockFile(path));
    EXPECT_EQ(locker.whoLocked(path, who), lockNone);
    folder.write("A.kqp.FLL", bytesOf(u"bob\nDESK \nyesterday"));
    EXPECT_EQ(locker.whoLocked(path, who), lockOther);
    EXPECT_FALSE(locker.lockFile(path));
    folder.write("A.kqp.FLL", bytesOf(wholeRecord));
    EXPECT_TRUE(locker.lockFile(path)) << "of this user, in an earlier run";
}

TEST_F(Locker, locksThatMayBeLocal_leaveOtherComputersTheirFiles) {
    files.locksAreLocal = true;
    folder.write("A.kqp.FLL", bytesOf(u"ann\nBOX Ann Smith\nnow"));
    EXPECT_TRUE(locker.isLocked(path));
    EXPECT_EQ(locker.whoLocked(path, who), lockOther);
    EXPECT_FALSE(locker.lockFile(path));
    EXPECT_TRUE(stands());
    folder.write("A.kqp.FLL", bytesOf(u"bob\nDESK Bob\nearlier"));
    EXPECT_TRUE(locker.lockFile(path));
    EXPECT_EQ(folder.read("A.kqp.FLL"), bytesOf(wholeRecord));
}

TEST_F(Locker, lockFileRemovedFromOutside_isTakenAnewAndReleasedOnce) {
    ASSERT_TRUE(locker.lockFile(path));
    ASSERT_TRUE(std::filesystem::remove(folder.native("A.kqp.FLL")));
    EXPECT_TRUE(locker.lockFile(path));
    EXPECT_TRUE(locker.unlockFile(path));
    EXPECT_FALSE(stands());
    EXPECT_FALSE(locker.unlockFile(path));
}

TEST_F(Locker, recordThatCannotBeRead_isUnreadable) {
    StayingChild other([&] { return lockAsBob(); });
    ASSERT_TRUE(other.stays());
    for (const FileError error : {FileError::io, FileError::denied}) {
        files.arm({error, 1, FileCall::read, true});
        EXPECT_EQ(locker.whoLocked(path, who), lockUnreadable);
    }
    files.disarm();
    folder.write("A.kqp.FLL", bytesOf(CString(wholeRecord) + CString(40000, u'x')));
    EXPECT_EQ(locker.whoLocked(path, who), lockUnreadable) << "longer than a record";
    EXPECT_EQ(who, u"");
    EXPECT_TRUE(locker.isLocked(path));
}

/// The superuser may write everywhere, so another user asks.
TEST_F(Locker, folderThatMayNotBeWritten_isTold) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "only the superuser can become another user";
    ASSERT_EQ(::chmod(folder.native().c_str(), 0755), 0);
    ASSERT_EQ(::chmod(folder.native("A.kqp").c_str(), 0666), 0);
    EXPECT_EQ(exitCode(startChild([&] {
        if (::seteuid(65534) != 0)
            return 100;
        return locker.lockFile(path) ? 101 : static_cast<int>(locker.whoLocked(path, who));
    })),
        lockFolderReadOnly);
}

} // namespace
} // namespace ryv::test
