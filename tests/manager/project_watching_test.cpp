#include "manager/subsystem_notifier.h"
#include "tests/manager/manager_fixture.h"

namespace ryv::test {
namespace {

using std::chrono::milliseconds;

class WatchingTest : public ManagerFixture {
protected:
    WatchingTest() {
        a = project("a");
        open(a, true);
        story();
    }
    void changed(const CString& id) { surroundings.monitor.notify(id, FileChange::contentChanged); }
    std::string after(int time) {
        surroundings.messages.advance(milliseconds(time));
        return story();
    }
    CString a;
};

TEST_F(WatchingTest, burstOfChanges_isOneReRead_aQuietPeriodAfterTheLast) {
    changed(a);
    after(60);
    changed(a);
    EXPECT_EQ(manager->getFileTimerList().size(), 1u);
    EXPECT_EQ(after(99), "");
    EXPECT_EQ(after(1), "preReRead a.kqp, reRead a.kqp");
    EXPECT_EQ(after(1000), "");
    EXPECT_EQ(surroundings.messages.timerCount(), 0u);
}

TEST_F(WatchingTest, twoProjects_haveTimersOfTheirOwn) {
    open(project("b"));
    story();
    changed(a);
    changed(path("b.kqp"));
    ASSERT_EQ(manager->getFileTimerList().size(), 2u);
    EXPECT_EQ(manager->getFileTimerList()[1].timerId, manager->getFileTimerList()[0].timerId + 1);
    EXPECT_EQ(after(100), "preReRead a.kqp, reRead a.kqp, preReRead b.kqp, reRead b.kqp");
}

TEST_F(WatchingTest, changesThatConcernNobody_startNothing) {
    open(project("b"));
    changed(path("b.kqp"));
    manager->closeProject(path("b.kqp"), true);
    story();
    EXPECT_EQ(after(200), ""); // closed between notice and timer
    changed(path("c.kqp"));
    EXPECT_EQ(manager->getFileTimerList().size(), 0u);
    state.setPaletteWindow(WindowHandle::none);
    EXPECT_TRUE(manager->setReReadTimer(a));
    EXPECT_EQ(after(200), "");
}

TEST_F(WatchingTest, changeBetweenReadingAndWatching_isNotLost) {
    const CString b = project("b");
    files.put(b, "lost.dwg\n"); // a drawing that is not there: the user is asked before the file is watched
    surroundings.ui.meanwhile = [&] { files.put(b, "theirs.dwg\n"); };
    open(b);
    EXPECT_EQ(after(100), "open b.kqp, preReRead b.kqp, reRead b.kqp");
    EXPECT_TRUE(manager->isFileInProject(path("theirs.dwg"), b));
}

TEST_F(WatchingTest, noTimerLeft_dropsTheChange) {
    surroundings.messages.hasTimers = false;
    EXPECT_TRUE(manager->setReReadTimer(a));
    EXPECT_TRUE(manager->getFileTimerList().empty());
}

TEST_F(WatchingTest, locksTasksAndProtection_becomeEvents) {
    ScriptedFileMonitor& monitor = surroundings.monitor;
    EXPECT_EQ(monitor.watched, (std::vector<CString>{a, a + u".FLL", path("A_update.mdb")}));
    monitor.notify(a + u".FLL", FileChange::created);
    monitor.notify(a + u".fll", FileChange::deleted);
    monitor.notify(path("A_update.mdb"), FileChange::created);
    monitor.notify(path("A_UPDATE.mdb"), FileChange::deleted);
    monitor.notify(a, FileChange::madeReadOnly);
    monitor.notify(a, FileChange::madeWritable);
    monitor.notify(a, static_cast<FileChange>(3));
    monitor.notifyRename(path("old"), a + u".FLL");
    EXPECT_EQ(story(), "locked a.kqp, unlocked a.kqp, tasks+ a.kqp A_update.mdb, tasks- a.kqp A_update.mdb, "
                       "readOnly a.kqp, writable a.kqp, unlocked a.kqp");
}

TEST_F(WatchingTest, monitorThatFails_isReplacedByLooking) {
    surroundings.monitor.watchResult = {FileError::noSpace, 28};
    const CString b = project("b");
    open(b);
    story();
    EXPECT_FALSE(surroundings.eventLog.lines.empty());
    files.put(b, "new.dwg\n");
    files.put(b + u".FLL", "");
    EXPECT_EQ(after(2200), "locked b.kqp, preReRead b.kqp, reRead b.kqp");
    EXPECT_TRUE(manager->isFileInProject(path("new.dwg"), b));
    files.erase(b + u".FLL");
    files.protect(b);
    EXPECT_EQ(after(2200), "readOnly b.kqp, unlocked b.kqp");
    manager->closeProject(b, false);
    EXPECT_EQ(surroundings.messages.timerCount(), 0u);
}

TEST_F(WatchingTest, monitorThatDoesNotStart_isReplacedByLooking) {
    recorder.reset();
    state.destroyProjectManager();
    surroundings.monitor.startResult = {FileError::unsupported, 0};
    state.createProjectManager();
    manager = state.projectManager();
    recorder.emplace(*manager);
    open(a);
    story();
    files.put(a, "new.dwg\n");
    EXPECT_EQ(after(2200), "preReRead a.kqp, reRead a.kqp");
}

TEST_F(WatchingTest, fourteenEvents_areRelayedToTheLog_whileTheNotifierLives) {
    CStringArray& lines = surroundings.eventLog.lines;
    auto notifier = std::make_unique<RyvPrmSubsystemNotifier>(*manager);
    const CString b = project("b", {"one", "two"});
    open(b, true);
    manager->addFileToProject(drawing(path("three.dwg")));
    std::vector<bool> added;
    manager->addFilesToProject({RyvPrmFileDetails(path("four.dwg"))}, added);
    manager->replaceFileInProject(path("one.dwg"), path("uno.dwg"));
    manager->removeFileFromProject(path("uno.dwg"));
    manager->removeFilesFromProject({path("two.dwg")});
    manager->reReadProject();
    for (const FileChange change : {FileChange::created, FileChange::deleted}) {
        surroundings.monitor.notify(b + u".FLL", change);
        surroundings.monitor.notify(path("B_update.mdb"), change);
    }
    surroundings.monitor.notify(b, FileChange::madeReadOnly);
    manager->closeProject(a, false);
    const CStringArray expected{u"onProjectOpen " + b, u"onProjectActived " + b,
        u"onProjectAddDrawing " + b + u" C:\\P\\three.dwg",
        u"onProjectAddDrawings " + b + u" C:\\P\\four.dwg",
        u"onProjectReplaceDrawing " + b + u" C:\\P\\one.dwg C:\\P\\uno.dwg",
        u"onProjectRemoveDrawing " + b + u" C:\\P\\uno.dwg",
        u"onProjectRemoveDrawings " + b + u" C:\\P\\two.dwg", u"onProjectReRead " + b,
        u"onProjectLocked " + b, u"onProjectTasksAdded " + b + u" C:\\P\\B_update.mdb",
        u"onProjectUnlocked " + b, u"onProjectTasksDeleted " + b + u" C:\\P\\B_update.mdb",
        u"onProjectReadOnlyChanged " + b + u" read-only", u"onProjectClose " + a};
    EXPECT_EQ(lines, expected);
    notifier.reset();
    lines.clear();
    manager->reReadProject();
    EXPECT_TRUE(lines.empty());
}

TEST_F(WatchingTest, notifierThatOutlivesTheManager_letsItBe) {
    auto notifier = std::make_unique<RyvPrmSubsystemNotifier>(*manager);
    recorder.reset();
    state.destroyProjectManager();
    notifier.reset(); // the sanitizer would tell
}

} // namespace
} // namespace ryv::test
