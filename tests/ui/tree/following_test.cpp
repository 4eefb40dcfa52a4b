#include "tests/ui/tree/tree_fixture.h"

#include <set>
#include <stdexcept>

namespace ryv::test {
namespace {

class Following : public TreeFixture {};

TEST_F(Following, projects_standActiveFirstThenByName) {
    const CString b = open("B", "b.dwg\n");
    const CString c = open("c", "c.dwg\n", true);
    const CString a = open("A", "a.dwg\n");
    EXPECT_EQ(rows(), "*C(c.dwg) A(a.dwg) B(b.dwg)");
    TreeStory story(*tree);
    manager->setActiveProject(CStringView(b));
    EXPECT_EQ(story.take(), "changed C, changed B, move B to :0, move A to :1, revealed B");
    EXPECT_EQ(rows(), "*B(b.dwg) A(a.dwg) C(c.dwg)");
    manager->closeProject(a, false);
    EXPECT_EQ(story.take(), "remove :1-1");
    tree->onProjectCloseAllNA();
    EXPECT_EQ(rows(), "*B(b.dwg)");
    EXPECT_EQ(tree->GetActiveProjItem(), &row(u"B"));
    // The active project stays the active one while it is closed.
    manager->closeProject(b, true);
    EXPECT_EQ(tree->GetActiveProjItem(), nullptr);
    manager->openProject(b, false);
    EXPECT_EQ(rows(), "*B(b.dwg)");
}

TEST_F(Following, activeDrawing_isBoldWithItsSubfolders) {
    open("A", "=====SUB=S/T\nx.dwg\ny.dwg\n", true);
    open("B", "=====SUB=U\nx.dwg\n");
    TreeStory story(*tree);
    manager->drawingActivated(u"c:/p/X.dwg");
    EXPECT_EQ(rows(), "*A(*S(*T(*x.dwg)) y.dwg) B(U(x.dwg))");
    EXPECT_EQ(story.take(), "changed S, changed T, changed x.dwg");
    // It moves, and what is bold with it.
    reRead("A", "=====SUB=S\nx.dwg\ny.dwg\n");
    EXPECT_EQ(rows(), "*A(*S(*x.dwg) y.dwg) B(U(x.dwg))");
    manager->setActiveProject(CStringView(path("B.kqp")));
    EXPECT_EQ(rows(), "*B(*U(*x.dwg)) A(S(x.dwg) y.dwg)");
    manager->closeProject(path("B.kqp"), true);
    EXPECT_EQ(rows(), "A(*S(*x.dwg) y.dwg)");
    manager->drawingActivated(path("y.dwg"));
    EXPECT_EQ(rows(), "A(S(x.dwg) *y.dwg)");
    story.take();
    reRead("A", "=====SUB=S\nx.dwg\ny.dwg\n");
    EXPECT_EQ(story.take(), "");
    tree->UnboldSubfAndDwgItemText(row(u"A"));
    EXPECT_EQ(rows(), "A(S(x.dwg) y.dwg)");
    // A row that somebody else made look otherwise may go like any other.
    manager->drawingActivated(path("x.dwg"));
    tree->setBold(row(u"x.dwg"), false);
    reRead("A", "y.dwg\n");
    EXPECT_EQ(rows(), "A(y.dwg)");
    reRead("A", "=====SUB=S\nx.dwg\n");
    EXPECT_EQ(rows(), "A(*S(*x.dwg))");
}

TEST_F(Following, withoutADrawing_theCurrentDocumentIsBold) {
    surroundings.documents.openDocument(path("y.dwg"));
    open("A", "x.dwg\ny.dwg\n");
    EXPECT_EQ(rows(), "A(x.dwg *y.dwg)");
    surroundings.documents.openDocument(path("x.dwg"));
    tree->BoldNewActiveDrawingAndSubfolders({});
    EXPECT_EQ(rows(), "A(*x.dwg y.dwg)");
}

/// Lets labels be edited, and says so when it is over.
class EditableTree : public CProjectTree {
protected:
    bool onBeginLabelEdit(TreeItem&) override { return true; }
    bool onEndLabelEdit(TreeItem&, const CString&) override { return false; }
};

TEST_F(Following, reReads_waitForTheEndOfAnEdit) {
    tree = std::make_unique<EditableTree>();
    tree->HookProjectEvents();
    open("A", "a.dwg\nb.dwg\n");
    open("B", "c.dwg\n");
    tree->setFocus(&row(u"a.dwg"));
    ASSERT_TRUE(tree->editLabel(row(u"a.dwg")));
    TreeStory story(*tree);
    reRead("A", "b.dwg\n");
    reRead("B", "c.dwg\nd.dwg\n");
    reRead("B", "c.dwg\ne.dwg\n");
    EXPECT_EQ(story.take(), "");
    EXPECT_EQ(tree->editedItem(), &row(u"a.dwg"));
    tree->finishEdit(std::nullopt);
    EXPECT_EQ(story.take(), "edit ended, remove A:0-1, focus b.dwg, insert B:1+1");
    EXPECT_EQ(rows(), "A(b.dwg) B(c.dwg e.dwg)");
    // A project that is closed meanwhile is forgotten, and so is the edit.
    ASSERT_TRUE(tree->editLabel(row(u"b.dwg")));
    reRead("A", "x.dwg\n");
    reRead("B", "y.dwg\n");
    manager->closeProject(path("A.kqp"), true);
    EXPECT_EQ(rows(), "B(y.dwg)");
}

/// Does something when rows that were selected are gone.
class AnsweringTree : public CProjectTree {
public:
    std::function<void()> answer;

protected:
    void onSelectionChanged() override {
        CProjectTree::onSelectionChanged();
        if (const auto work = std::exchange(answer, nullptr))
            work();
    }
};

TEST_F(Following, projectsThatChangeDuringABuild_areShownAsTheyAreInTheEnd) {
    auto own = std::make_unique<AnsweringTree>();
    AnsweringTree& answering = *own;
    tree = std::move(own);
    tree->HookProjectEvents();
    const std::string before = "a.dwg\n=====SUB=S/T\nx.dwg\n=====SUB=U\ny.dwg\n";
    open("A", before);
    tree->select(row(u"a.dwg"), true);
    answering.answer = [&] { reRead("A", "=====SUB=U\nz.dwg\n"); };
    reRead("A", before.substr(6));
    EXPECT_EQ(rows(), "A(U(z.dwg))");
    tree->select(row(u"z.dwg"), true);
    answering.answer = [&] { manager->closeProject(path("A.kqp"), true); };
    reRead("A", before);
    EXPECT_EQ(rows(), "");
}

TEST_F(Following, reReads_waitForWhoeverChangesTheProject) {
    open("A", "a.dwg\n");
    {
        const CProjectTree::SuppressReread outer(*tree);
        {
            const CProjectTree::SuppressReread inner(*tree);
            reRead("A", "a.dwg\nb.dwg\n");
        }
        EXPECT_EQ(rows(), "A(a.dwg)");
    }
    EXPECT_EQ(rows(), "A(a.dwg b.dwg)");
}

TEST_F(Following, detailsChanged_isToldOnceTheRowsAreInOrder) {
    const CString id = open("A", "a.dwg\nb.dwg\n");
    tree->click(&row(u"a.dwg"));
    std::string story;
    const Subscription watch = tree->detailsChanged.subscribe([&] { story += rows() + " "; });
    reRead("A", "b.dwg\nc.dwg\n");
    EXPECT_EQ(story, "A(b.dwg c.dwg) ");
    story.clear();
    manager->onProjectLocked(id);
    manager->onProjectUnlocked(id);
    manager->onProjectReadOnlyChanged(id, true);
    EXPECT_EQ(story, "A(b.dwg c.dwg) A(b.dwg c.dwg) A(b.dwg c.dwg) ");
    story.clear();
    tree->setFocus(&row(u"c.dwg"));
    EXPECT_EQ(story, "A(b.dwg c.dwg) ");
    // One that changes the project meanwhile is heard of afterwards.
    const Subscription another = tree->detailsChanged.subscribe([&] {
        if (rows() == "A(c.dwg)")
            reRead("A", "d.dwg\n");
    });
    reRead("A", "c.dwg\n");
    EXPECT_EQ(rows(), "A(d.dwg)");
}

TEST_F(Following, refresh_readsAllProjectsAgain) {
    open("A", "a.dwg\n=====SUB=S\nb.dwg\n");
    const CString b = open("B", "===One\nc.dwg\n");
    tree->expandAll(nullptr, true);
    tree->setSelection({&row(u"b.dwg")});
    project("A", "=====SUB=S\nb.dwg\nx.dwg\n");
    files.erase(b); // cannot be read: what is in memory is labelled anew
    display({103, 108});
    TreeStory story(*tree);
    tree->Refresh();
    EXPECT_NE(toUtf8(tree->notice().text()).find("B.kqp could not be read again"), std::string::npos);
    EXPECT_EQ(rows(), "A(S(b.dwg) x.dwg) B(c.dwg - One)");
    EXPECT_EQ(story.take(), "insert A:2+1, remove A:0-1, changed c.dwg - One");
    EXPECT_EQ(selected(), "b.dwg");
    EXPECT_TRUE(row(u"S").expanded());
}

TEST_F(Following, rebuildThatThrows_isToldAndLeavesNoDestructor) {
    open("A", "a.dwg\n");
    open("B", "b.dwg\n");
    bool throws = true;
    const Subscription watch = tree->detailsChanged.subscribe([&] {
        if (std::exchange(throws, false))
            throw std::runtime_error("broken off");
    });
    {
        const CProjectTree::SuppressReread outer(*tree);
        reRead("A", "a2.dwg\n");
        reRead("B", "b2.dwg\n");
    }
    EXPECT_EQ(rows(), "A(a2.dwg) B(b2.dwg)");
    EXPECT_EQ(surroundings.console.printed, u"\nC:\\P\\A.kqp could not be read again: unexpected error.\n");
}

class DatabaseWatch final : public TreeObserver {
public:
    explicit DatabaseWatch(const ScriptedProjectDatabase& databases) : databases_(databases) {}
    void inserted() override { mostOpen = std::max(mostOpen, databases_.openNow); }
    int mostOpen = 0;

private:
    const ScriptedProjectDatabase& databases_;
};

TEST_F(Following, refreshOfManyProjects_holdsNoDatabaseWhileRowsCome) {
    constexpr int projects = 20;
    for (int i = 0; i < projects; ++i) {
        const CString id = open("P" + std::to_string(i), "a.dwg\n");
        surroundings.projectDatabase.paths[toUpper(id)] = u"C:\\DB\\any.mdb";
        project("P" + std::to_string(i), "a.dwg\nb.dwg\n");
    }
    DatabaseWatch watch(surroundings.projectDatabase);
    tree->attach(watch);
    tree->Refresh();
    tree->detach(watch);
    EXPECT_EQ(tree->childCount(tree->child(nullptr, projects - 1)), 2u);
    EXPECT_GE(surroundings.projectDatabase.opened, projects);
    EXPECT_EQ(watch.mostOpen, 0);
}

/// Its projects have no records.
class BareTree : public CProjectTree {
public:
    std::unique_ptr<_projdatastruct> NewProjDataStruct() const override { return nullptr; }
};

TEST_F(Following, projectRowWithoutARecord_isFoundAgain) {
    tree = std::make_unique<BareTree>();
    tree->HookProjectEvents();
    const CString a = open("A", "a.dwg\n");
    open("B", "b.dwg\n", true);
    tree->onProjectOpen(a);
    reRead("A", "c.dwg\n");
    manager->drawingActivated(path("c.dwg"));
    EXPECT_EQ(rows(), "*B(b.dwg) A(*c.dwg)");
    manager->closeProject(a, true);
    EXPECT_EQ(rows(), "*B(b.dwg)");
    open("A", "a.dwg\n");
    tree->onProjectCloseAllNA();
    EXPECT_EQ(rows(), "*B(b.dwg)");
}

TEST_F(Following, reReadWhileFiltered_isNobodysChoice) {
    open("A", "a.dwg\nb.dwg\nab.dwg\n");
    tree->expandAll(nullptr, true);
    tree->setSelection({&row(u"a.dwg"), &row(u"ab.dwg")});
    tree->setFilter(u"b.dwg");
    EXPECT_EQ(selected(), "ab.dwg");
    reRead("A", "=====SUB=S\na.dwg\nab.dwg\n");
    EXPECT_EQ(selected(), "ab.dwg");
    tree->setFilter({});
    std::set<std::string> both; // their order may have been lost
    for (const TreeItem* const item : tree->selection())
        both.insert(toUtf8(item->label()));
    EXPECT_EQ(both, (std::set<std::string>{"a.dwg", "ab.dwg"}));
}

TEST_F(Following, details_sayWhatIsKnownOfTheRow) {
    const CString id = open("DEMO", "*[1]First line\n*[2]Second\n===Main\na.dwg\n=====SUB=S\nb.dwg\n");
    files.put(path("a.dwg"), std::string(2048, 'x'));
    files.put(path("b.dwg"), std::string(1024 * 1024, 'x'));
    CString text;
    const auto detailsOf = [&](CStringView label) {
        tree->click(&row(label));
        tree->GetDisplayDetails(text);
        return toUtf8(text);
    };
    const std::string saved = "Last saved: Saturday, November 21, 2026 8:05:09 AM\n";
    EXPECT_EQ(detailsOf(u"a.dwg"), "Status: Not locked\n\nFile name: a.dwg\nFolder: C:\\P\n"
                                   "File size: 2 KB (2048 bytes)\n" +
                                       saved + "\nDescription 1: Main");
    EXPECT_NE(detailsOf(u"b.dwg").find("File size: 1 MB (1048576 bytes)\n"), std::string::npos);
    EXPECT_EQ(tree->previewedDrawing(), path("b.dwg"));
    EXPECT_EQ(detailsOf(u"S"), "");
    EXPECT_EQ(tree->previewedDrawing(), u"");
    files.erase(path("a.dwg"));
    EXPECT_EQ(detailsOf(u"a.dwg"),
        "Status: File not found\n\nFile name: a.dwg\nFolder: C:\\P\n\nDescription 1: Main");
    files.protect(id);
    EXPECT_EQ(detailsOf(u"DEMO"), "Status: Read-only\n\nFile name: DEMO.kqp\nFolder: C:\\P\n\n"
                                  "Description 1: First line\nDescription 2: Second");
    // Of several rows the one with the focus, or else the first.
    tree->setSelection({&row(u"b.dwg"), &row(u"a.dwg")});
    EXPECT_EQ(tree->previewedDrawing(), path("a.dwg"));
    tree->setFocus(&row(u"DEMO"));
    EXPECT_EQ(tree->previewedDrawing(), path("b.dwg"));
    tree->click(nullptr);
    tree->GetDisplayDetails(text);
    EXPECT_EQ(text, u"");
    EXPECT_EQ(tree->previewedDrawing(), u"");
}

TEST_F(Following, lockedFiles_areShownWithTheirHolder) {
    const CString id = open("DEMO", "a.dwg\n");
    ASSERT_TRUE(manager->lockProjectFile(id));
    CString text;
    _lockStatus status = lockInvalid;
    tree->GetDisplayDetails_Status(row(u"DEMO"), status, text);
    EXPECT_EQ(status, lockMine);
    EXPECT_EQ(text, u"Locked by you, ann(DESK)\n");
    surroundings.identity.user = u"bob";
    tree->GetDisplayDetails_Status(row(u"DEMO"), status, text);
    EXPECT_EQ(status, lockOther);
    EXPECT_EQ(text, u"Locked by ann(DESK)\n");
    CProjectTree::GetDrawingStatusText({}, text, nullptr);
    EXPECT_EQ(text, u"Unknown\n");
}

} // namespace
} // namespace ryv::test
