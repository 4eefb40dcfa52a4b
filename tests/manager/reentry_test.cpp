// What may happen while LISP, a handler or a question is at work: projects are read again and closed.

#include "tests/manager/manager_fixture.h"

namespace ryv::test {
namespace {

class ReentryTest : public ManagerFixture {
protected:
    ReentryTest() {
        a = project("a", {"one"});
        files.put(a, "+[1]x\none.dwg\n"); // whose folder LISP is asked to shorten when it is written
        open(a, true);
        story();
        surroundings.documents.open = true;
    }
    /// Runs `work` once, inside of the LISP function.
    void insideLisp(CStringView function, std::function<void()> work) {
        surroundings.lisp.define(
            function, [this, work, done = false](const HostResultBuffer&, HostResultBuffer& out) mutable {
                if (!std::exchange(done, true))
                    work();
                ++calls;
                out = HostResultBuffer().addNil();
                return LispStatus::success;
            });
    }
    void at(const std::string& event, std::function<void()> work) {
        recorder->during = [event, work](const std::string& line) {
            if (line.starts_with(event))
                work();
        };
    }
    CString a;
    int calls = 0;
};

TEST_F(ReentryTest, projectClosedDuringItsReRead_isNotAnnounced) {
    at("preReRead", [this] { manager->closeProject(a, true); });
    EXPECT_FALSE(manager->reReadProject());
    EXPECT_EQ(story(), "preReRead a.kqp, close a.kqp");
    recorder->during = [](const std::string&) {};
    open(a);
    files.put(a, "two.dwg\n");
    insideLisp(u"kq_xref_tbl_indexlst", [this] { manager->closeProject(a, true); });
    EXPECT_FALSE(manager->reReadProject(a));
    EXPECT_GT(calls, 0);
    EXPECT_EQ(story(), "open a.kqp, preReRead a.kqp, close a.kqp");
}

TEST_F(ReentryTest, reReadDuringAWrite_takesNothingAway) {
    bool reRead = true;
    insideLisp(u"ryv_get_var", [&] { reRead = manager->reReadProject(); });
    EXPECT_TRUE(manager->addFileToProject(drawing(path("two.dwg"))));
    EXPECT_GT(calls, 0);
    EXPECT_FALSE(reRead);
    EXPECT_NE(bytes(a).find("two.dwg"), std::string::npos);
}

TEST_F(ReentryTest, writeThatLispBreaksOff_leavesTheProjectUsable) {
    insideLisp(u"ryv_get_var", [] { throw 1; });
    EXPECT_THROW(manager->addFileToProject(drawing(path("two.dwg"))), int);
    EXPECT_TRUE(manager->reReadProject());
    EXPECT_TRUE(manager->addFileToProject(drawing(path("two.dwg"))));
}

TEST_F(ReentryTest, changeDuringAWrite_isWrittenToo) {
    insideLisp(u"ryv_get_var", [this] { manager->addFileToProject(drawing(path("three.dwg"))); });
    EXPECT_TRUE(manager->addFileToProject(drawing(path("two.dwg"))));
    EXPECT_NE(bytes(a).find("two.dwg"), std::string::npos);
    EXPECT_NE(bytes(a).find("three.dwg"), std::string::npos);
}

TEST_F(ReentryTest, projectClosedDuringAWrite_isWrittenAllTheSame) {
    insideLisp(u"ryv_get_var", [this] { manager->closeProject(a, true); });
    EXPECT_TRUE(manager->addFileToProject(drawing(path("two.dwg"))));
    EXPECT_NE(bytes(a).find("two.dwg"), std::string::npos);
    EXPECT_EQ(story(), "close a.kqp");
}

TEST_F(ReentryTest, handlersThatOpenCloseAndActivate_leaveOneActiveProject) {
    const CString b = project("b");
    const CString c = project("c");
    open(c);
    story();
    at("setActive b", [&] { manager->setActiveProject(c); });
    EXPECT_TRUE(open(b, true));
    EXPECT_EQ(story(),
        "open b.kqp, veto?, setActive b.kqp, veto?, setActive c.kqp, deactivate b.kqp, actived "
        "c.kqp, deactivate a.kqp");
    EXPECT_TRUE(manager->isActiveProject(c));
    at("open d", [&] { manager->closeProject(path("d.kqp"), false); });
    EXPECT_TRUE(open(project("d"), true));
    EXPECT_EQ(story(), "open d.kqp, close d.kqp");
    EXPECT_TRUE(manager->isActiveProject(c));
    at("veto?", [&] { manager->closeProject(b, false); });
    EXPECT_FALSE(manager->setActiveProject(b));
    EXPECT_EQ(manager->getProjectCount(), 2);
}

TEST_F(ReentryTest, changeDuringAReRead_isNotLost) {
    files.put(a, "+[1]x\ntheirs.dwg\n");
    insideLisp(u"kq_xref_tbl_indexlst", [this] { // the newer content is read first, then changed
        EXPECT_TRUE(manager->reReadProject());
        EXPECT_TRUE(manager->addFileToProject(drawing(path("mine.dwg"))));
    });
    EXPECT_TRUE(manager->reReadProject());
    EXPECT_TRUE(manager->isFileInProject(path("mine.dwg")));
    EXPECT_TRUE(manager->addFileToProject(drawing(path("more.dwg"))));
    EXPECT_NE(bytes(a).find("theirs.dwg\nmine.dwg\nmore.dwg"), std::string::npos) << bytes(a);
}

TEST_F(ReentryTest, projectClosedBeforeItsChange_isLeftAlone) {
    const std::string before = bytes(a);
    at("preM", [this] { manager->closeProject(a, true); });
    EXPECT_FALSE(manager->modifyDetailsForFileInProject(RyvPrmFileDetails(path("one.dwg"))));
    EXPECT_EQ(bytes(a), before);
    open(a);
    EXPECT_FALSE(manager->setMiscProjSettingsInProject({}));
}

TEST_F(ReentryTest, stateInTheLastProjectList_isTheOneItEndsIn) {
    const CString b = project("b");
    at("open b", [&] { manager->setActiveProject(b); });
    open(b);
    EXPECT_EQ(lastProjects(), "b.kqp:2 a.kqp:1");
    const CString c = project("c");
    at("open c", [&] { manager->closeProject(c, false); });
    open(c);
    EXPECT_EQ(lastProjects(), "c.kqp:0 b.kqp:2 a.kqp:1");
    recorder->during = [](const std::string&) {};
    const DocumentId document = surroundings.documents.openDocument(u"C:\\d.dwg");
    surroundings.documents.setQuiescent(document, false);
    open(project("d"));
    manager->setActiveProject(path("d.kqp"));
    EXPECT_TRUE(state.deferredRequests().flush());
    EXPECT_EQ(lastProjects(), "d.kqp:2 c.kqp:0 b.kqp:1 a.kqp:1");
    manager->closeProject(path("d.kqp"), true);
    open(path("d.kqp"), true); // active already, and to be opened in the next run
    EXPECT_TRUE(state.deferredRequests().flush());
    EXPECT_EQ(lastProjects(), "d.kqp:2 c.kqp:0 b.kqp:1 a.kqp:1");
}

TEST_F(ReentryTest, drawingsGetTheDefaultsOfTheActiveProject) {
    files.put(a, "?[0]V\n+[28]1\none.dwg\n");
    manager->reReadProject();
    RyvCfgDrawingSettings settings;
    settings.fillWithDefaults(nullptr, true);
    EXPECT_EQ(*settings.find(0), u"V");
    EXPECT_EQ(*settings.find(64), u"1"); // depends on the miscellaneous settings
    settings.fillWithDefaults(nullptr, false);
    EXPECT_EQ(*settings.find(0), u"H");
    files.put(path("b.kqp"), "?[0]B\n");
    open(path("b.kqp"));
    settings.fillWithDefaults(manager->getProject(path("b.kqp")), true);
    EXPECT_EQ(*settings.find(0), u"B");
    manager->closeProject(a, true);
    settings.fillWithDefaults(nullptr, true);
    EXPECT_EQ(*settings.find(0), u"H");
}

} // namespace
} // namespace ryv::test
