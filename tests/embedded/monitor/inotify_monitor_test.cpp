#include "tests/embedded/monitor/monitor_fixture.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/mount.h>
#include <sys/stat.h>

namespace ryv::test {
namespace {

class InotifyMonitorTest : public MonitorTest {};

TEST_F(InotifyMonitorTest, watchList_pathsAndCase_asTheyWereAdded) {
    writeTo("p/A.kqp");
    watch(u"p\\a.KQP");
    watch(u"P\\A.kqp");
    EXPECT_EQ(monitor.watch(folder.module(u"none\\A.kqp")).error, FileError::missing);
    EXPECT_EQ(monitor.watch(folder.module(u"p\\A.kqp\\B.kqp")).error, FileError::notFolder);
    EXPECT_EQ(monitor.watch(u"").error, FileError::badName);
    start();
    EXPECT_EQ(monitor.start(*this).error, FileError::busy);
    writeTo("p/A.kqp");
    EXPECT_EQ(notices(), "changed p\\a.KQP; ");
    EXPECT_TRUE(monitor.unwatch(folder.module(u"P\\A.KQP")));
    EXPECT_FALSE(monitor.unwatch(folder.module(u"P\\A.KQP")));
    writeTo("p/A.kqp");
    EXPECT_EQ(notices(), "");
}

TEST_F(InotifyMonitorTest, names_onlyThoseOnTheList_told) {
    writeTo("p/A.kqp");
    writeTo("p/\xC3\xA4.kqp");
    watch(u"p\\A.kqp");
    watch(u"p\\\u00C4.kqp");
    start();
    for (const std::string name : {"p/B.kqp", "p/A.kq", "p/A.kqp.FLL", "p/\xC3\xB6.kqp"}) {
        writeTo(name);
        remove(name);
    }
    EXPECT_EQ(notices(), "");
    writeTo("p/\xC3\xA4.kqp");
    EXPECT_EQ(notices(), "changed p\\\xC3\x84.kqp; ");
}

TEST_F(InotifyMonitorTest, content_thatLooksAsBefore_changed) {
    writeTo("p/A.kqp");
    watch(u"p\\A.kqp");
    start();
    const auto time = std::filesystem::last_write_time(folder.native("p/A.kqp"));
    writeTo("p/A.kqp");
    std::filesystem::last_write_time(folder.native("p/A.kqp"), time);
    EXPECT_EQ(notices(), "changed p\\A.kqp; ") << "written with size and time kept";
    move("p/A.kqp", "away");
    move("away", "p/A.kqp");
    EXPECT_EQ(notices(), "deleted p\\A.kqp; created p\\A.kqp; changed p\\A.kqp; ") << "gone in between";
}

TEST_F(InotifyMonitorTest, namesThatDifferInCase_eachFile_itsOwnChanges) {
    writeTo("p/A.kqp");
    writeTo("p/a.kqp");
    watch(u"p\\A.kqp");
    start();
    writeTo("p/a.kqp");
    remove("p/a.kqp");
    writeTo("p/a.kqp");
    EXPECT_EQ(notices(), "");
    move("p/a.kqp", "p/A.kqp");
    EXPECT_EQ(notices(), "changed p\\A.kqp; ");
    const auto time = std::filesystem::last_write_time(folder.native("p/A.kqp"));
    move("p/A.kqp", "p/a.kqp");
    std::filesystem::last_write_time(folder.native("p/a.kqp"), time);
    EXPECT_EQ(notices(), "deleted p\\A.kqp; created p\\A.kqp; changed p\\A.kqp; ") << "the only one left";
    writeTo("p/a.kqp");
    EXPECT_EQ(notices(), "changed p\\A.kqp; ");
}

TEST_F(InotifyMonitorTest, watch_changesOfBefore_areNotTold) {
    for (const std::string name : {"p/A.kqp", "p/B.kqp"})
        writeTo(name);
    watch(u"p\\A.kqp");
    start();
    for (const std::string name : {"p/A.kqp", "p/B.kqp"}) {
        remove(name);
        writeTo(name);
    }
    watch(u"p\\B.kqp");
    EXPECT_EQ(told, "") << "from within watch()";
    loop.pump();
    EXPECT_EQ(told, "deleted p\\A.kqp; created p\\A.kqp; changed p\\A.kqp; ");
    told.clear();
    EXPECT_EQ(notices(), "");
}

TEST_F(InotifyMonitorTest, receiver_throws_othersAreToldAllTheSame) {
    for (const std::string name : {"p/A.kqp", "p/B.kqp"})
        writeTo(name);
    watch(u"p\\A.kqp");
    watch(u"p\\B.kqp");
    start();
    remove("p/A.kqp");
    remove("p/B.kqp");
    onNotice = [this](const CString&) {
        onNotice = [](const CString&) {};
        throw std::runtime_error("receiver");
    };
    EXPECT_THROW(waitFor([this] { return !told.empty(); }), std::runtime_error);
    loop.pump();
    EXPECT_EQ(told, "deleted p\\A.kqp; deleted p\\B.kqp; ");
}

TEST_F(InotifyMonitorTest, stop_andStart_changesInBetweenAreNotTold) {
    writeTo("p/A.kqp");
    watch(u"p\\A.kqp");
    start();
    writeTo("p/A.kqp");
    monitor.stop();
    EXPECT_FALSE(monitor.isRunning());
    loop.pump();
    EXPECT_EQ(told, "") << "a notice under way";
    remove("p/A.kqp");
    EXPECT_TRUE(monitor.start(*this).ok());
    EXPECT_EQ(notices(), "");
    writeTo("p/A.kqp");
    EXPECT_EQ(notices().substr(0, 17), "created p\\A.kqp; ");
}

TEST_F(InotifyMonitorTest, receiver_changesTheList_takesEffectAtOnce) {
    for (const std::string name : {"p/A.kqp", "p/B.kqp", "p/C.kqp"})
        writeTo(name);
    watch(u"p\\A.kqp");
    watch(u"p\\B.kqp");
    start();
    onNotice = [this](const CString& name) {
        if (name == u"p\\A.kqp") {
            monitor.unwatch(folder.module(u"p\\A.kqp"));
            monitor.unwatch(folder.module(u"p\\B.kqp"));
            watch(u"p\\C.kqp");
        }
    };
    remove("p/A.kqp");
    remove("p/B.kqp");
    EXPECT_EQ(notices(), "deleted p\\A.kqp; ");
    writeTo("p/C.kqp");
    EXPECT_EQ(notices(), "changed p\\C.kqp; ");
}

TEST_F(InotifyMonitorTest, receiver_stopsOrPumps_othersAreNotToldOrToldFirst) {
    for (const std::string name : {"p/A.kqp", "p/B.kqp"})
        writeTo(name);
    watch(u"p\\A.kqp");
    watch(u"p\\B.kqp");
    start();
    onNotice = [this](const CString& name) {
        if (name == u"p\\A.kqp") {
            writeTo("p/B.kqp");
            loop.pump();
            told += "back; ";
        }
    };
    remove("p/A.kqp");
    remove("p/B.kqp");
    EXPECT_EQ(notices(), "deleted p\\A.kqp; deleted p\\B.kqp; created p\\B.kqp; changed p\\B.kqp; back; ");
    onNotice = [this](const CString&) { monitor.stop(); };
    writeTo("p/B.kqp");
    writeTo("p/A.kqp");
    EXPECT_TRUE(waitFor([this] { return !told.empty(); }));
    loop.pump();
    EXPECT_EQ(told, "changed p\\B.kqp; ");
}

TEST_F(InotifyMonitorTest, overflow_eventsLost_nothingElseIs) {
    for (const std::string name : {"p/A.kqp", "p/B.kqp", "p/C.kqp"})
        writeTo(name);
    watch(u"p\\A.kqp");
    watch(u"p\\B.kqp");
    watch(u"p\\C.kqp");
    watch(u"p\\D.kqp");
    start();
    const std::string limit = "/proc/sys/fs/inotify/max_queued_events";
    int most = 0;
    std::ifstream(limit) >> most;
    ASSERT_GT(most, 0);
    writeTo("p/A.kqp");
    writeTo("p/C.kqp");
    std::filesystem::last_write_time(
        folder.native("p/C.kqp"), std::filesystem::file_time_type::clock::now() - std::chrono::hours(1));
    notices();
    for (int i = 0; i < most; ++i) { // two events each
        const int file = ::open(folder.native("p/other").c_str(), O_CREAT | O_RDONLY | O_CLOEXEC, 0600);
        ::close(file);
        ::unlink(folder.native("p/other").c_str());
    }
    const auto time = std::filesystem::last_write_time(folder.native("p/A.kqp"));
    writeTo("p/A.kqp");
    std::filesystem::last_write_time(folder.native("p/A.kqp"), time); // looks as it did
    remove("p/B.kqp");
    writeTo("p/D.kqp");
    loop.pump();
    EXPECT_TRUE(waitFor([this] { return told.find("created p\\D.kqp") != std::string::npos; }));
    EXPECT_NE(told.find("changed p\\A.kqp; "), std::string::npos) << told;
    EXPECT_NE(told.find("deleted p\\B.kqp; "), std::string::npos) << told;
    EXPECT_EQ(told.find("C.kqp"), std::string::npos) << told;
    notices();
    writeTo("p/A.kqp");
    EXPECT_EQ(notices(), "changed p\\A.kqp; ");
}

TEST_F(InotifyMonitorTest, watches_sharedAndGivenBack_noneLeft) {
    writeTo("p/A.kqp");
    start();
    const std::size_t before = heldWatches();
    watch(u"p\\A.kqp");
    const std::size_t one = heldWatches();
    EXPECT_EQ(one, before + 2) << "the folder and the file";
    watch(u"p\\A.kqp.FLL");
    watch(u"p\\A_update.mdb");
    EXPECT_EQ(heldWatches(), one);
    for (int i = 0; i < 5; ++i)
        replace("p/A.kqp");
    move("p", "away");
    EXPECT_NE(notices(), "");
    move("away", "p");
    EXPECT_NE(notices(), "");
    for (const CString name : {u"p\\A.kqp", u"p\\A.kqp.FLL", u"p\\A_update.mdb"})
        EXPECT_TRUE(monitor.unwatch(folder.module(name)));
    EXPECT_EQ(notices(), "");
    EXPECT_EQ(heldWatches(), before);
}

TEST_F(InotifyMonitorTest, watches_freeAgain_usedInPlaceOfPolling) {
    writeTo("p/A.kqp");
    system.hasWatches = false;
    watch(u"p\\A.kqp");
    start();
    system.hasWatches = true;
    writeTo("p/A.kqp");
    EXPECT_TRUE(waitFor([this] { return told == "changed p\\A.kqp; "; })) << told;
    EXPECT_GT(heldWatches(), 1U);
    EXPECT_EQ(warnings, 1);
}

TEST_F(InotifyMonitorTest, poller_stoppedAndStarted_tellsOnlyWhileItRuns) {
    writeTo("p/A.kqp");
    system.hasQueue = false;
    watch(u"p\\A.kqp");
    for (int i = 0; i < 20; ++i) {
        EXPECT_TRUE(monitor.start(*this).ok());
        writeTo("p/A.kqp");
        if (i % 2 == 0)
            EXPECT_TRUE(waitFor([this] { return told == "changed p\\A.kqp; "; })) << told;
        monitor.stop();
        told.clear();
        loop.pump();
        EXPECT_EQ(told, "");
    }
}

TEST_F(InotifyMonitorTest, file_thatCannotBeLookedAt_toldWhenItCan) {
    for (const std::string name : {"p/A.kqp", "p/B.kqp"})
        writeTo(name);
    watch(u"p\\A.kqp");
    watch(u"p\\B.kqp");
    start();
    files.arm({FileError::io, 1, FileCall::information, true});
    const auto time = std::filesystem::last_write_time(folder.native("p/A.kqp"));
    writeTo("p/A.kqp");
    std::filesystem::last_write_time(folder.native("p/A.kqp"), time);
    remove("p/B.kqp");
    EXPECT_TRUE(waitFor([this] { return files.calls().size() > 4; })) << "looked at again and again";
    EXPECT_EQ(told, "");
    files.disarm();
    EXPECT_TRUE(waitFor([this] { return told == "changed p\\A.kqp; deleted p\\B.kqp; "; })) << told;
    told.clear();
    writeTo("p/A.kqp");
    EXPECT_EQ(notices(), "changed p\\A.kqp; ");
}

TEST_F(InotifyMonitorTest, poller_monitorGoneWhenItsReportComes_nothingHappens) {
    writeTo("p/A.kqp");
    system.hasQueue = false;
    auto other = std::make_unique<drafta::InotifyMonitor>(loop, files, os.mapper(), options());
    EXPECT_TRUE(other->watch(folder.module(u"p\\A.kqp")).ok());
    EXPECT_TRUE(other->start(*this).ok());
    writeTo("p/A.kqp");
    pollfd report{loop.descriptor(), POLLIN, 0};
    EXPECT_EQ(::poll(&report, 1, 20'000), 1);
    other.reset();
    loop.pump();
    EXPECT_EQ(told, "");
}

TEST_F(InotifyMonitorTest, fileSystem_unmountedAndMountedAgain_deletedAndCreated) {
    makeFolder("m");
    const std::string point = folder.native("m");
    const auto mount = [&] { return ::mount("none", point.c_str(), "tmpfs", 0, "size=1m") == 0; };
    if (!mount())
        GTEST_SKIP() << "no right to mount";
    writeTo("m/A.kqp");
    watch(u"m\\A.kqp");
    start();
    ASSERT_EQ(::umount(point.c_str()), 0);
    EXPECT_EQ(notices(), "deleted m\\A.kqp; ");
    ASSERT_TRUE(mount());
    writeTo("m/A.kqp");
    EXPECT_TRUE(waitFor([this] { return told == "created m\\A.kqp; changed m\\A.kqp; "; })) << told;
    monitor.stop();
    EXPECT_EQ(::umount(point.c_str()), 0);
}

TEST_F(InotifyMonitorTest, descriptors_ofLoopAndMonitor_closedInChildPrograms) {
    start();
    int own = 0;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code gone;
        const std::string what = std::filesystem::read_symlink(entry.path(), gone).string();
        if (!what.starts_with("anon_inode:"))
            continue;
        ++own;
        EXPECT_NE(::fcntl(std::stoi(entry.path().filename().string()), F_GETFD) & FD_CLOEXEC, 0) << what;
    }
    EXPECT_GE(own, 4) << "the loop's, its timer, its events, the watches";
}

} // namespace
} // namespace ryv::test
