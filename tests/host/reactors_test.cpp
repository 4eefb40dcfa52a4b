#include "host/reactors.h"

#include "base/encoding.h"
#include "tests/host/nav_fixture.h"

namespace ryv::test {
namespace {

/// What happened, as words; the callbacks that siblings register are plain functions and need one place.
std::string* storyOfTest = nullptr;

void note(const std::string& word) {
    *storyOfTest += (storyOfTest->empty() ? "" : ", ") + word;
}

class ReactorsTest : public NavFixture, private BusyListener {
protected:
    ReactorsTest() {
        storyOfTest = &story_;
        start();
        nav->addBusyListener(*this);
        nav->projectManager()->onDrawingActivate.subscribe(*this, &ReactorsTest::drawingActivated);
    }
    ~ReactorsTest() override {
        stop();
        storyOfTest = nullptr;
    }
    std::string story() { return std::exchange(story_, {}); }

private:
    void busyChanged(std::int16_t busy) override {
        note((busy == 1 ? "busy" : "idle") + std::string(surroundings.waitCursor.shown ? "+cursor" : ""));
    }
    void drawingActivated(const CString& drawing) { note("drawing " + toUtf8(drawing)); }

    std::string story_;
};

TEST_F(ReactorsTest, beginIdle_worksInItsOrder) {
    const CString a = project(u"a");
    const DocumentId document = openDocument(u"C:\\d.dwg");
    nav->inputContextReactor()->setBeginIdle([] { note("callback"); });
    nav->inputContextReactor()->setBeginIdle(nullptr); // ignored
    surroundings.lisp.define(
        u"c:kq_get_recent_prj_lst", [&a](const HostResultBuffer&, HostResultBuffer& result) {
            note("list");
            result = HostResultBuffer().addListBegin().addString(a).addListEnd();
            return LispStatus::success;
        });
    surroundings.lisp.define(u"ryv_makeproj_active", [this](const HostResultBuffer& call, HostResultBuffer&) {
        note("active " + toUtf8(*call.stringAt(1)) + (surroundings.waitCursor.shown ? "+cursor" : "") + " " +
             std::to_string(nav->deferredRequests().count()));
        return LispStatus::success;
    });
    surroundings.documents.setQuiescent(document, false);
    surroundings.waitCursor.shown = true;
    nav->deferredRequests().add({DeferredRequest::Kind::rereadInLisp, {}});
    surroundings.documents.sent.clear();
    story();
    surroundings.documents.setQuiescent(document, true);
    EXPECT_EQ(story(), "list, idle+cursor, active C:\\P\\a.kqp 1, callback");
    EXPECT_EQ(nav->deferredRequests().count(), 0u);
    EXPECT_EQ(surroundings.documents.sent.size(), 1u);
    becomeIdle(document);
    EXPECT_EQ(story(), "busy, idle, callback"); // once a run, and LISP knows
}

TEST_F(ReactorsTest, idleWithoutAnActiveDocument_leavesTheQueueAlone) {
    const DocumentId document = openDocument(u"C:\\d.dwg");
    nav->deferredRequests().add({DeferredRequest::Kind::rereadInLisp, {}});
    surroundings.documents.activate(DocumentId::none);
    nav->inputContextReactor()->setBeginIdle([] { note("callback"); });
    story();
    becomeIdle(document);
    EXPECT_EQ(story(), "busy, idle, callback");
    EXPECT_EQ(nav->deferredRequests().count(), 1u);
}

TEST_F(ReactorsTest, documents_areFollowed) {
    surroundings.menuHook.exists = true;
    const DocumentId first = openDocument(u"C:\\1.dwg");
    EXPECT_FALSE(surroundings.menuHook.exists);
    EXPECT_EQ(story(), "drawing C:\\1.dwg, idle, idle"); // activated, loaded
    surroundings.documents.setQuiescent(first, false);
    const DocumentId second = openDocument(u"C:\\2.dwg");
    const DocumentId third = openDocument(u"C:\\3.dwg");
    story();
    surroundings.documents.activate(first);
    EXPECT_EQ(story(), "drawing C:\\1.dwg, busy");
    surroundings.documents.closeDocument(third);
    EXPECT_EQ(story(), ""); // two are left
    surroundings.documents.closeDocument(second);
    EXPECT_EQ(story(), "busy");
    surroundings.documents.closeDocument(first);
    EXPECT_EQ(story(), "busy, busy"); // none is left, none is active
    nav->destroyProjectManager();
    surroundings.documents.openDocument(u"C:\\4.dwg");
    EXPECT_EQ(story(), "idle");
}

TEST_F(ReactorsTest, firstDocument_opensTheProjectsOfTheLastRun) {
    recordProject(project(u"a"), last_project::active);
    openDocument(u"C:\\P\\a.dwg");
    EXPECT_TRUE(nav->projectManager()->isActiveProject(project(u"a")));
    EXPECT_TRUE(nav->makeActivePending); // LISP is told when the host is idle
    EXPECT_EQ(timesTold(), 0u);
}

TEST_F(ReactorsTest, savingAs_announcesTheDrawingAnew) {
    const std::pair<CStringView, bool> cases[] = {
        {u"SAVEAS", true}, {u"+SAVEASX", true}, {u"saveas", false}, {u"QSAVE", false}, {u"", false}};
    const DocumentId document = openDocument(u"C:\\old.dwg");
    surroundings.documents.rename(document, u"C:\\new.dwg");
    for (const auto& [command, announced] : cases) {
        nav->projectManager()->setDrawingsNeedKQ_MUpdate({u"C:\\new.dwg"}, false);
        story();
        surroundings.documents.lockModeChanged(document, command);
        EXPECT_EQ(story(), announced ? "drawing C:\\new.dwg" : "");
        EXPECT_EQ(surroundings.documents.runApplicationContext(), announced ? 1u : 0u);
    }
}

TEST_F(ReactorsTest, cleanScreen_hidesAndShowsWhatTheUserLeftOpen) {
    nav->showPaletteSet(true);
    for (const bool userClosed : {false, true}) {
        nav->showPaletteSet(!userClosed);
        surroundings.editor.set(u"CLEANSCREENSTATE", 1);
        EXPECT_FALSE(nav->isPaletteSetVisible());
        surroundings.editor.set(u"CleanScreenState", 1); // once more
        surroundings.editor.set(u"OTHER", 0);
        EXPECT_FALSE(nav->isPaletteSetVisible());
        surroundings.editor.set(u"cleanscreenstate", 0);
        EXPECT_EQ(nav->isPaletteSetVisible(), !userClosed);
    }
}

TEST_F(ReactorsTest, quitting_isVetoedByWhoeverObjectsToIt) {
    struct Objector {
        bool objects = false;
        void asked(bool& veto) { veto = veto || objects; }
    } objector;
    nav->projectManager()->OnProjectEventVetoCheck.subscribe(objector, &Objector::asked);
    EXPECT_FALSE(surroundings.editor.quitIsVetoed());
    objector.objects = true;
    EXPECT_TRUE(surroundings.editor.quitIsVetoed());
    nav->destroyProjectManager();
    EXPECT_FALSE(surroundings.editor.quitIsVetoed());
}

TEST_F(ReactorsTest, saving_tellsWhetherTheActiveProjectHasTheDrawing) {
    surroundings.editor.saved(u"C:\\P\\a.dwg"); // nobody listens
    nav->editorReactor()->setSaveComplete([](bool belongs) { note(belongs ? "ours" : "other"); });
    nav->editorReactor()->setSaveComplete(nullptr);
    surroundings.editor.saved(u"C:\\P\\a.dwg"); // no project is active
    ASSERT_TRUE(activate(u"a"));
    surroundings.editor.saved(u"C:\\p\\A.dwg");
    surroundings.editor.saved(u"C:\\P\\b.dwg");
    EXPECT_EQ(story(), "ours, other");
}

} // namespace
} // namespace ryv::test
