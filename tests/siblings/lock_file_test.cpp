#include "siblings/lock_file.h"
#include "siblings/lock_record.h"
#include "tests/siblings/save_fixture.h"
#include "tests/support/fork.h"
#include "tests/support/text.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>

namespace ryv::test {
namespace {

using std::chrono::milliseconds;

constexpr CStringView computer = u"DESK";
constexpr CStringView record = u"ann\nDESK Ann\nSaturday  8:05";

std::string bytesOf(CStringView text) {
    std::string bytes;
    encodeUtf16(text, false, bytes);
    return bytes;
}

/// A file in a folder of its own, and the means to lock it.
class LockFile : public SaveFixture {
protected:
    LockFile() { folder.write("A.kqp", "content"); }

    bool stands() { return std::filesystem::exists(folder.native("A.kqp.FLL")); }
    FileStatus take() { return takeLockFile(files, lockPath, record, file); }

    CString lockPath = path + u".FLL";
    RyvStdioFileEx file{files};
};

TEST(LockRecord, parse_dropsTheCharacterBeforeTheSecondLineFeed) {
    struct Case {
        CString text, holder, time;
    };
    for (const Case& each : {
             Case{u"u\nPC Ann\ndate", u"u(PC An)", u"date"},
             Case{makeLockRecord(u"u", u"PC", u"", u"date", u"time"), u"u(PC)", u"date  time"},
             Case{u"\nP\n", u"()", u""},
             Case{u"u\nPC Ann\ntwo\nlines", u"u(PC An)", u"two\nlines"},
             Case{u"", u"none", u""},
             Case{u"u", u"none", u""},
             Case{u"u\nPC Ann", u"none", u""},
             Case{u"u\n\ndate", u"none", u""},
         }) {
        const auto parts = parseLockRecord(each.text);
        EXPECT_EQ(parts ? parts->holder() : u"none", each.holder);
        EXPECT_EQ(parts ? parts->time : u"", each.time);
    }
    EXPECT_TRUE(haveSameHolder(u"Ann\nPC \nnow", u"aNN\npc \nthen"));
    EXPECT_FALSE(haveSameHolder(u"Ann\nPC \nnow", u"Ann\nTC \nnow"));
    EXPECT_FALSE(haveSameHolder(u"", u"")) << "nobody is not the same as nobody";
}

TEST_F(LockFile, take_writesAHiddenRecordAndKeepsOthersOut) {
    ASSERT_TRUE(take().ok());
    EXPECT_EQ(folder.read("A.kqp.FLL"), bytesOf(record));
    FileInformation information;
    ASSERT_TRUE(real.information(lockPath, information).ok());
    EXPECT_TRUE(information.isHidden);
    EXPECT_EQ(exitCode(startChild([&] {
        RyvStdioFileEx other(real);
        return takeLockFile(real, lockPath, record, other).error == FileError::busy &&
                       clearStaleLockFile(real, lockPath, computer)
                   ? 0
                   : 1;
    })),
        0);
    releaseLockFile(files, lockPath, file);
    EXPECT_FALSE(file.IsOpen());
    EXPECT_EQ(folder.names(), only("A.kqp"));
}

TEST_F(LockFile, maker_killed_isStale) {
    StayingChild maker([&] { return take().ok(); });
    ASSERT_TRUE(maker.stays());
    EXPECT_TRUE(clearStaleLockFile(real, lockPath, computer));
    EXPECT_TRUE(stands());
    maker.kill();
    EXPECT_TRUE(stands());
    EXPECT_FALSE(clearStaleLockFile(real, lockPath, computer));
    EXPECT_EQ(folder.names(), only("A.kqp"));
}

TEST_F(LockFile, leftOver_isTakenOverWhateverItHolds) {
    for (const std::string content : {"", "u", "u\n", "no record at all, but much longer than one"}) {
        folder.write("A.kqp.FLL", content);
        ASSERT_TRUE(take().ok()) << content;
        CString read;
        ASSERT_TRUE(readLockFile(real, lockPath, read).ok());
        EXPECT_EQ(read, record);
        releaseLockFile(files, lockPath, file);
        EXPECT_FALSE(stands());
    }
}

/// A descriptor of somebody who looks after the file, beside the code under test.
class Sweeper {
public:
    explicit Sweeper(const std::string& path) : descriptor_(::open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
        locked_ = ::flock(descriptor_, LOCK_EX) == 0;
    }
    Sweeper(const Sweeper&) = delete;
    Sweeper& operator=(const Sweeper&) = delete;
    ~Sweeper() { leave(); }
    bool locked() const { return locked_; }
    void leave() {
        if (descriptor_ != -1)
            ::close(descriptor_);
        descriptor_ = -1;
    }

private:
    int descriptor_;
    bool locked_;
};

TEST_F(LockFile, sweeperAtWork_isWaitedForWithinBounds) {
    folder.write("A.kqp.FLL", "");
    Sweeper sweeper(folder.native("A.kqp.FLL"));
    ASSERT_TRUE(sweeper.locked());
    const auto start = std::chrono::steady_clock::now();
    EXPECT_TRUE(clearStaleLockFile(real, lockPath, computer)) << "who keeps the lock has it, marked or not";
    EXPECT_LT(std::chrono::steady_clock::now() - start, milliseconds(5000));

    std::thread leaving([&] {
        std::this_thread::sleep_for(milliseconds(20));
        sweeper.leave();
    });
    EXPECT_FALSE(clearStaleLockFile(real, lockPath, computer));
    leaving.join();
    EXPECT_FALSE(stands());
}

TEST_F(LockFile, take_sweptBetweenCreationAndLock_makesItAnew) {
    int sweeps = 0;
    files.watch = [&](FileCall call) {
        if (call == FileCall::lock && sweeps++ < 3)
            EXPECT_FALSE(clearStaleLockFile(real, lockPath, computer)) << "not locked yet, so it looks stale";
    };
    ASSERT_TRUE(take().ok());
    EXPECT_EQ(sweeps, 4);
    EXPECT_TRUE(clearStaleLockFile(real, lockPath, computer));
}

TEST_F(LockFile, sweep_ofAFileThatWasReplacedMeanwhile_leavesTheNewOne) {
    folder.write("A.kqp.FLL", "stale");
    RyvStdioFileEx other(real);
    files.watch = [&](FileCall call) {
        if (call == FileCall::lock && !other.IsOpen())
            EXPECT_TRUE(takeLockFile(real, lockPath, record, other).ok());
    };
    EXPECT_TRUE(clearStaleLockFile(files, lockPath, computer));
    CString read;
    EXPECT_TRUE(other.IsOpen() && readLockFile(real, lockPath, read).ok());
    EXPECT_EQ(read, record);
}

TEST_F(LockFile, take_underASweepersLock_waits) {
    std::thread leaving;
    files.watch = [&](FileCall call) {
        if (call != FileCall::lock || leaving.joinable())
            return;
        auto sweeper = std::make_shared<Sweeper>(folder.native("A.kqp.FLL"));
        ASSERT_TRUE(sweeper->locked());
        leaving = std::thread([sweeper] {
            std::this_thread::sleep_for(milliseconds(30));
            sweeper->leave();
        });
    };
    EXPECT_TRUE(take().ok());
    leaving.join();
}

TEST_F(LockFile, release_leavesAnothersFileAlone) {
    ASSERT_TRUE(take().ok());
    std::filesystem::remove(folder.native("A.kqp.FLL"));
    RyvStdioFileEx other(real);
    ASSERT_TRUE(takeLockFile(real, lockPath, record, other).ok());
    releaseLockFile(files, lockPath, file);
    EXPECT_TRUE(stands());
    EXPECT_TRUE(clearStaleLockFile(real, lockPath, computer));
}

TEST_F(LockFile, eachCallOfTake_failing_leavesNoLiveLock) {
    bool failedToTheEnd = false;
    for (std::size_t number = 1; !failedToTheEnd && number < 50; ++number) {
        files.arm({FileError::io, number});
        const FileStatus status = take();
        failedToTheEnd = !files.fired();
        const bool hides = files.calls().back() == FileCall::setHidden;
        const FileCall failed = files.calls()[std::min(number, files.calls().size()) - 1];
        const bool spared = failed == FileCall::markLock || failed == FileCall::copyReadRights;
        EXPECT_EQ(status.ok(), failedToTheEnd || hides || spared) << number;
        EXPECT_EQ(status.ok(), file.IsOpen()) << number;
        files.disarm();
        releaseLockFile(files, lockPath, file);
        EXPECT_FALSE(clearStaleLockFile(real, lockPath, computer)) << number;
    }
    EXPECT_TRUE(failedToTheEnd);
}

TEST_F(LockFile, fullDisk_isNoLock) {
    files.limitSpace(10);
    EXPECT_EQ(take().error, FileError::noSpace);
    EXPECT_EQ(folder.names(), only("A.kqp"));
}

TEST_F(LockFile, withoutLocks_existenceIsTheLock) {
    files.arm({FileError::unsupported, 1, FileCall::lock, true});
    ASSERT_TRUE(take().ok());
    RyvStdioFileEx other(files);
    EXPECT_EQ(takeLockFile(files, lockPath, record, other).error, FileError::busy);
    releaseLockFile(files, lockPath, file);
    EXPECT_FALSE(stands());

    folder.write("A.kqp.FLL", "");
    EXPECT_TRUE(clearStaleLockFile(files, lockPath, computer)) << "nobody can tell whether its maker lives";
    EXPECT_EQ(take().error, FileError::busy);
}

TEST_F(LockFile, withoutMarks_theLockAloneDecides) {
    files.arm({FileError::unsupported, 1, FileCall::isLockMarked, true});
    ASSERT_TRUE(take().ok());
    EXPECT_TRUE(clearStaleLockFile(files, lockPath, computer));
    static_cast<void>(file.Close());
    EXPECT_FALSE(clearStaleLockFile(files, lockPath, computer));
}

TEST_F(LockFile, whatIsNoFile_isInTheWay) {
    std::filesystem::create_directory(folder.native("A.kqp.FLL"));
    EXPECT_TRUE(clearStaleLockFile(files, lockPath, computer));
    EXPECT_EQ(take().error, FileError::busy);
}

TEST_F(LockFile, linkThatLeadsNowhere_isNobodysLock) {
    for (const char* const target : {"nowhere", "no/where", "A.kqp.FLL"}) {
        std::filesystem::create_symlink(target, folder.native("A.kqp.FLL"));
        EXPECT_FALSE(clearStaleLockFile(files, lockPath, computer)) << target;
        EXPECT_TRUE(take().ok()) << target;
        EXPECT_EQ(folder.names(), (std::vector<std::string>{"A.kqp", "A.kqp.FLL"})) << target;
        EXPECT_TRUE(clearStaleLockFile(files, lockPath, computer)) << target;
        releaseLockFile(files, lockPath, file);
    }
    std::filesystem::create_symlink("nowhere", folder.native("A.kqp.FLL"));
    files.arm({FileError::denied, 1, FileCall::remove, true});
    EXPECT_EQ(take().error, FileError::denied);
    EXPECT_FALSE(std::filesystem::exists(folder.native("nowhere")));
}

/// Nobody holds the system's lock here: that is all this computer sees of a live file of another one.
TEST_F(LockFile, locksThatMayBeLocal_proveDeathOnThisComputerOnly) {
    struct Case {
        CStringView record;
        bool stays;
    };
    files.locksAreLocal = true;
    for (const Case& each : {Case{u"bob\nBOX Bob\nnow", true}, Case{u"bob\nDESKTOP Bob\nnow", true},
             Case{u"DESK\nBOX DESK\nDESK", true}, Case{u"", true}, Case{u"bob\nDESK Bob", true},
             Case{u"bob\ndesk Bob\nnow", false}, Case{u"bob\nDESK \nnow", false}}) {
        folder.write("A.kqp.FLL", bytesOf(each.record));
        EXPECT_EQ(take().error, each.stays ? FileError::busy : FileError::none) << shown(each.record);
        releaseLockFile(files, lockPath, file);
        EXPECT_EQ(stands(), each.stays) << shown(each.record);
    }
    folder.write("A.kqp.FLL", bytesOf(record));
    EXPECT_TRUE(clearStaleLockFile(files, lockPath, u"")) << "a computer without a name";
    files.arm({FileError::io, 1, FileCall::mayLockBeLocal, true});
    EXPECT_TRUE(clearStaleLockFile(files, lockPath, u"BOX")) << "not told";
    EXPECT_FALSE(clearStaleLockFile(files, lockPath, computer));
}

TEST_F(LockFile, whoMayReadTheFile_mayReadItsLock) {
    struct Case {
        mode_t file, lock;
    };
    const mode_t usual = ::umask(077);
    const gid_t group = ::geteuid() == 0 ? 65534 : ::getegid(); // only the superuser may give any group
    ASSERT_EQ(::chown(folder.native("A.kqp").c_str(), static_cast<uid_t>(-1), group), 0);
    for (const Case& each : {Case{0644, 0644}, Case{0755, 0644}, Case{0640, 0640}, Case{0600, 0600}}) {
        ASSERT_EQ(::chmod(folder.native("A.kqp").c_str(), each.file), 0);
        files.watch = [&](FileCall call) { // before anybody can find a record that he may not read
            struct stat status {};
            if (call == FileCall::write && ::stat(folder.native("A.kqp.FLL").c_str(), &status) == 0)
                EXPECT_TRUE((status.st_mode & 07777) == each.lock && status.st_gid == group)
                    << std::oct << each.file;
        };
        EXPECT_TRUE(take().ok());
        releaseLockFile(files, lockPath, file);
    }
    ::umask(usual);
}

TEST_F(LockFile, contentLongerThanARecord_isRefused) {
    CString read;
    folder.write("A.kqp.FLL", bytesOf(CString(32768, u'\n')));
    EXPECT_TRUE(readLockFile(files, lockPath, read).ok());
    EXPECT_EQ(read.size(), 32768u);
    folder.write("A.kqp.FLL", bytesOf(CString(32769, u'\n')));
    EXPECT_EQ(readLockFile(files, lockPath, read).error, FileError::tooLarge);
}

TEST_F(LockFile, record_readWhileItIsBeingWritten_isReadAgain) {
    folder.write("A.kqp.FLL", "");
    std::size_t reads = 0;
    files.watch = [&](FileCall call) {
        if (call == FileCall::open && ++reads == 3)
            folder.write("A.kqp.FLL", bytesOf(record));
    };
    CString read;
    ASSERT_TRUE(readLockFile(files, lockPath, read).ok());
    EXPECT_EQ(read, record);
    folder.write("A.kqp.FLL", "");
    EXPECT_TRUE(readLockFile(files, lockPath, read).ok());
    EXPECT_EQ(read, u"") << "and given up after a while";
}

TEST_F(LockFile, name_isOneForAllSpellingsAndLinks) {
    std::filesystem::create_symlink("A.kqp", folder.native("link.kqp"));
    std::filesystem::create_symlink("new.kqp", folder.native("later.kqp"));
    EXPECT_EQ(lockFileNameFor(files, path), lockPath);
    EXPECT_EQ(lockFileNameFor(files, folder.module(u"a.KQP")), lockPath);
    EXPECT_EQ(lockFileNameFor(files, folder.module(u"link.kqp")), lockPath);
    EXPECT_EQ(lockFileNameFor(files, folder.module(u"later.kqp")), folder.module(u"new.kqp.FLL"));
}

/// The superuser may do everything, so another user asks about his files.
TEST_F(LockFile, anotherUsersFile_isProbedForReadingAndStaysWhereItMayNotBeRemoved) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "only the superuser can become another user";
    constexpr uid_t nobody = 65534;
    ASSERT_EQ(::chmod(folder.native().c_str(), 0755), 0);
    const auto askedByNobody = [&] {
        return exitCode(startChild([&] {
            CString read;
            if (::seteuid(nobody) != 0)
                return 3;
            const bool locked = clearStaleLockFile(real, lockPath, computer);
            return locked ? readLockFile(real, lockPath, read).ok() && read == record ? 1 : 2 : 0;
        }));
    };
    ASSERT_TRUE(take().ok());
    EXPECT_EQ(askedByNobody(), 1) << "live";
    ASSERT_EQ(::chmod(folder.native().c_str(), 0777), 0);
    EXPECT_EQ(askedByNobody(), 1) << "live, and could be removed";
    static_cast<void>(file.Close());
    ASSERT_EQ(::chmod(folder.native().c_str(), 0755), 0);
    EXPECT_EQ(askedByNobody(), 1) << "stale, and cannot be removed";
    ASSERT_EQ(::chmod(folder.native().c_str(), 0777), 0);
    EXPECT_EQ(askedByNobody(), 0) << "stale";
    EXPECT_FALSE(stands());
}

} // namespace
} // namespace ryv::test
