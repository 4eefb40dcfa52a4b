#include "tests/support/fault_files.h"
#include "tests/ui/tree/tree_fixture.h"

namespace ryv::test {
namespace {

class Dragging : public TreeFixture {
protected:
    static constexpr const char* lines = "a.dwg\n=====SUB=S\nb.dwg\n=====SUB=S\nc.dwg\n"
                                         "=====SUB=S/T\nd.dwg\ne.dwg\n=====SUB=T\nf.dwg\n";
    static constexpr const char* shown = "DEMO(a.dwg S(b.dwg c.dwg T(d.dwg)) e.dwg T(f.dwg))";

    Dragging() {
        surroundings.ports.os.files = &faulty;
        id = open("DEMO", lines);
        tree->expandAll(nullptr, true);
    }
    ~Dragging() override { surroundings.ports.os.files = &files; } // the disk that fails goes first
    TreeItem& at(CStringView trace) const {
        TreeItem* const project = tree->GetProjectItem(id);
        TreeItem* const subfolder = tree->GetTreeItemBySubfolderTrace(project, trace);
        return subfolder ? *subfolder : row(trace);
    }
    /// Begins to drag and moves over the place; whether it can be dropped there.
    bool drag(const std::vector<const char16_t*>& rows, const TreeItem* target, DropPosition position) {
        std::vector<TreeItem*> dragged;
        for (const char16_t* const each : rows)
            dragged.push_back(&at(each));
        tree->setSelection(dragged);
        return tree->beginDrag() && tree->dragOver(const_cast<TreeItem*>(target), position);
    }
    bool dragAndDrop(const std::vector<const char16_t*>& rows, CStringView target, DropPosition position) {
        const bool good = drag(rows, &at(target), position);
        tree->drop();
        return good;
    }
    /// The rows that the project file gives, in another tree, which must be those of this one.
    void expectAsOnDisk() {
        EXPECT_TRUE(surroundings.lockCheck.locked.empty());
        const std::string now = rows();
        manager->closeProject(id, true);
        manager->openProject(id, false);
        EXPECT_EQ(now, rows());
    }
    void startAgain() {
        manager->closeProject(id, true);
        id = open("DEMO", lines);
        tree->expandAll(nullptr, true);
        tree->notice().clear();
        surroundings.ui.tasks.clear();
    }

    FaultFiles faulty{files};
    CString id;
};

TEST_F(Dragging, drop_movesRowsAndProject) {
    using enum DropPosition;
    const struct {
        std::vector<const char16_t*> dragged;
        const char16_t* target;
        DropPosition position;
        const char* rows; // empty: not a place
        const char* selected = "";
    } cases[] = {
        {{u"e.dwg", u"a.dwg"}, u"S/T", onto, "DEMO(S(b.dwg c.dwg T(d.dwg a.dwg e.dwg)) T(f.dwg))",
            "a.dwg e.dwg"},
        {{u"e.dwg"}, u"S", after, "DEMO(a.dwg S(e.dwg b.dwg c.dwg T(d.dwg)) T(f.dwg))", "e.dwg"},
        {{u"e.dwg"}, u"S", before, "DEMO(a.dwg e.dwg S(b.dwg c.dwg T(d.dwg)) T(f.dwg))", "e.dwg"},
        {{u"S"}, u"f.dwg", after, "DEMO(a.dwg e.dwg T(f.dwg S(b.dwg c.dwg T(d.dwg))))", "S"},
        {{u"d.dwg", u"f.dwg"}, u"DEMO", after, "DEMO(d.dwg f.dwg a.dwg S(b.dwg c.dwg T()) e.dwg T())",
            "d.dwg f.dwg"},
        {{u"c.dwg"}, u"b.dwg", before, "DEMO(a.dwg S(c.dwg b.dwg T(d.dwg)) e.dwg T(f.dwg))", "c.dwg"},
        {{u"a.dwg", u"b.dwg"}, u"DEMO", onto, "DEMO(S(c.dwg T(d.dwg)) e.dwg T(f.dwg) a.dwg b.dwg)",
            "a.dwg b.dwg"},
        {{u"b.dwg"}, u"S", onto, ""},
        {{u"b.dwg"}, u"a.dwg", onto, ""},
        {{u"S"}, u"S/T", onto, ""},
        {{u"S", u"b.dwg"}, u"d.dwg", after, ""},
        {{u"S", u"b.dwg"}, u"DEMO", onto, ""},
        {{u"DEMO"}, u"S", onto, ""},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(&each - cases);
        startAgain();
        EXPECT_EQ(dragAndDrop(each.dragged, each.target, each.position), each.rows[0] != '\0');
        std::string expected = each.rows[0] ? each.rows : shown;
        for (std::size_t hit; (hit = expected.find("()")) != std::string::npos;)
            expected.erase(hit, 2);
        EXPECT_EQ(rows(), expected);
        if (each.rows[0])
            EXPECT_EQ(selected(), each.selected);
        expectAsOnDisk();
    }
    EXPECT_FALSE(drag({u"a.dwg"}, nullptr, onto)) << "the empty area";
    tree->cancelDrag();
    open("OTHER", "o.dwg\n");
    EXPECT_FALSE(drag({u"a.dwg"}, &row(u"o.dwg"), after));
    tree->cancelDrag();
    EXPECT_FALSE(drag({u"a.dwg", u"o.dwg"}, &row(u"S"), onto)) << "of two projects";
}

TEST_F(Dragging, drop_keepsWhatIsSeenOfSubfolders) {
    TreeItem& moved = at(u"S/T");
    TreeStory story(*tree);
    EXPECT_TRUE(drag({u"S/T"}, &row(u"e.dwg"), DropPosition::before));
    story.take();
    tree->drop();
    EXPECT_EQ(rows(), shown) << "the top level has one of that name";
    ASSERT_EQ(surroundings.ui.tasks.size(), 1u);
    EXPECT_EQ(surroundings.ui.tasks[0].id, u"RyvPageMan.SubfolderNotMoved");
    EXPECT_EQ(surroundings.ui.tasks[0].variables[0], std::pair(CString(u"Subfolders"), CString(u"T")));
    EXPECT_EQ(story.take().find("move"), std::string::npos);
    EXPECT_EQ(tree->notice().offer(), u"");

    EXPECT_TRUE(dragAndDrop({u"S"}, u"T", DropPosition::onto));
    EXPECT_EQ(&at(u"T/S/T"), &moved);
    EXPECT_TRUE(at(u"T/S").expanded() && moved.expanded());
    expectAsOnDisk();
}

TEST_F(Dragging, hiddenRows_areNotLost) {
    tree->setFilter(u"b");
    EXPECT_TRUE(dragAndDrop({u"b.dwg"}, u"DEMO", DropPosition::onto));
    tree->setFilter(u"");
    EXPECT_EQ(rows(), "DEMO(a.dwg S(c.dwg T(d.dwg)) e.dwg T(f.dwg) b.dwg)");
    expectAsOnDisk();
}

TEST_F(Dragging, keys_moveWhatIsSelectedStepByStep) {
    const Modifiers alt{.alt = true};
    const struct {
        std::vector<const char16_t*> selected;
        TreeKeyCode key;
        const char* rows; // empty: leads nowhere
    } cases[] = {
        {{u"e.dwg"}, TreeKeyCode::up, "DEMO(a.dwg e.dwg S(b.dwg c.dwg T(d.dwg)) T(f.dwg))"},
        {{u"a.dwg", u"S"}, TreeKeyCode::down, "DEMO(e.dwg a.dwg S(b.dwg c.dwg T(d.dwg)) T(f.dwg))"},
        {{u"T"}, TreeKeyCode::down, ""},
        {{u"b.dwg"}, TreeKeyCode::left, "DEMO(a.dwg S(c.dwg T(d.dwg)) b.dwg e.dwg T(f.dwg))"},
        {{u"a.dwg"}, TreeKeyCode::left, ""},
        {{u"e.dwg"}, TreeKeyCode::right, "DEMO(a.dwg S(b.dwg c.dwg T(d.dwg) e.dwg) T(f.dwg))"},
        {{u"a.dwg"}, TreeKeyCode::right, "DEMO(S(a.dwg b.dwg c.dwg T(d.dwg)) e.dwg T(f.dwg))"},
        {{u"a.dwg", u"b.dwg"}, TreeKeyCode::up, ""},
        {{u"DEMO"}, TreeKeyCode::up, ""},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.rows);
        startAgain();
        std::vector<TreeItem*> chosen;
        for (const char16_t* const name : each.selected)
            chosen.push_back(CString(name) == u"DEMO" ? tree->GetProjectItem(id) : &at(name));
        tree->setSelection(chosen);
        const std::string before = selected();
        EXPECT_EQ(tree->key(each.key, alt), *each.rows != 0);
        EXPECT_EQ(rows(), *each.rows ? each.rows : shown);
        EXPECT_EQ(selected(), before) << "and can be moved on";
        expectAsOnDisk();
    }
}

TEST_F(Dragging, projectChangedMeanwhile_loseNothing) {
    const struct {
        const char* name;
        const char* lines; // of the project by the time of the drop; null: it is closed
        const char* rows;
    } cases[] = {
        {"one is gone", "a.dwg\n=====SUB=S\nc.dwg\n", "DEMO(S(c.dwg a.dwg))"},
        {"one went elsewhere", "=====SUB=U\na.dwg\n=====SUB=S\nc.dwg\nb.dwg\n",
            "DEMO(U S(c.dwg a.dwg b.dwg))"},
        {"all are gone", "x.dwg\n=====SUB=S\nc.dwg\n", "DEMO(x.dwg S(c.dwg))"},
        {"place is gone", "a.dwg\nb.dwg\nx.dwg\n", "DEMO(a.dwg b.dwg x.dwg)"},
        {"closed", nullptr, ""},
    };
    for (const bool whileLocking : {false, true})
        for (const auto& each : cases) {
            SCOPED_TRACE(std::string(each.name) + (whileLocking ? " while locking" : ""));
            startAgain();
            const auto change = [&] {
                if (each.lines)
                    reRead("DEMO", each.lines);
                else
                    manager->closeProject(id, true);
            };
            ASSERT_TRUE(drag({u"a.dwg", u"b.dwg"}, &at(u"S/T"), DropPosition::onto));
            tree->dragOver(&at(u"S"), DropPosition::after);
            tree->dragOver(&row(u"c.dwg"), DropPosition::after);
            if (!whileLocking)
                change();
            surroundings.lockCheck.meanwhile = whileLocking ? std::function<void()>(change) : [] {};
            tree->drop();
            surroundings.lockCheck.meanwhile = [] {};
            const bool placeGone = std::string(each.name) == "place is gone";
            EXPECT_EQ(rows(), placeGone && whileLocking ? "DEMO(a.dwg b.dwg x.dwg)" : each.rows);
            const bool nothingDone = !each.lines || !std::string(each.rows).find("DEMO(x") || placeGone;
            EXPECT_EQ(nothingDone, !tree->notice().text().empty());
            EXPECT_TRUE(surroundings.lockCheck.locked.empty());
        }
}

TEST_F(Dragging, failures_leaveRowsAndProjectAsOnDisk) {
    const struct {
        const char* name;
        std::function<void()> prepare;
        bool asks;
    } cases[] = {
        {"locked by another", [&] { surroundings.lockCheck.refuses = true; }, false},
        {"disk full", [&] { faulty.limitSpace(0); }, true},
        {"not replaced",
            [&] {
                faulty.arm({FileError::io, 1, FileCall::rename});
            },
            true},
        {"written by another", [&] { project("DEMO", "a.dwg\nnew.dwg\n"); }, true},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        startAgain();
        ASSERT_TRUE(drag({u"a.dwg", u"b.dwg"}, &at(u"T"), DropPosition::onto));
        each.prepare();
        tree->drop();
        surroundings.lockCheck.refuses = false;
        faulty.disarm();
        faulty.limitSpace(1000000);
        EXPECT_EQ(surroundings.ui.messages.size(), each.asks ? 1u : 0u);
        surroundings.ui.messages.clear();
        EXPECT_EQ(tree->notice().text().empty(), each.asks);
        expectAsOnDisk();
    }
}

class TakingBack : public Dragging {
protected:
    TakingBack() {
        CString text;
        std::string many;
        for (int number = 10; number < 24; ++number)
            many += (number % 2 ? "=====SUB=S\nx" : "x") + std::to_string(number) + ".dwg\n";
        reRead("DEMO", lines + many);
        tree->expandAll(nullptr, true);
        before = rows();
    }
    void moveMany(int count) {
        std::vector<TreeItem*> dragged;
        for (int number = 10; number < 10 + count; ++number)
            dragged.push_back(&row(u"x" + toText(number) + u".dwg"));
        tree->setSelection(dragged);
        ASSERT_TRUE(tree->beginDrag() && tree->dragOver(&row(u"f.dwg"), DropPosition::before));
        tree->drop();
    }
    std::string before;
};

TEST_F(TakingBack, offered_forWhatIsWorkToPutRight) {
    moveMany(10);
    EXPECT_EQ(tree->notice().text(), u"");
    moveMany(14);
    EXPECT_EQ(tree->notice().text(), u"14 drawings were moved to T.");
    EXPECT_EQ(tree->notice().offer(), u"Undo");
    dragAndDrop({u"a.dwg"}, u"e.dwg", DropPosition::after);
    EXPECT_EQ(tree->notice().offer(), u"") << "another change";
    dragAndDrop({u"S"}, u"T", DropPosition::before);
    EXPECT_EQ(tree->notice().text(), u"Subfolder S was moved to DEMO.");
    dragAndDrop({u"S/T", u"b.dwg"}, u"e.dwg", DropPosition::before);
    EXPECT_EQ(surroundings.ui.tasks.size(), 1u);
    manager->closeProject(id, true);
    EXPECT_EQ(tree->notice().text(), u"");
}

TEST_F(TakingBack, accepted_isExactlyAsBefore) {
    TreeItem& subfolder = at(u"S");
    moveMany(14);
    const std::string moved = rows();
    EXPECT_NE(moved, before);
    manager->reReadProject(id);
    EXPECT_TRUE(tree->notice().accept()) << "reading the same again changes nothing";
    EXPECT_EQ(rows(), before);
    EXPECT_EQ(tree->notice().text(), u"");
    dragAndDrop({u"S", u"a.dwg"}, u"f.dwg", DropPosition::after);
    EXPECT_EQ(tree->notice().text(), u"2 items were moved to T.");
    EXPECT_TRUE(tree->notice().accept());
    EXPECT_EQ(rows(), before);
    EXPECT_EQ(&at(u"S"), &subfolder);
    EXPECT_TRUE(subfolder.expanded());
    expectAsOnDisk();
}

TEST_F(TakingBack, refused_whenTheProjectIsAnotherOrHeld) {
    moveMany(14);
    const std::string moved = rows();
    surroundings.lockCheck.refuses = true;
    EXPECT_TRUE(tree->notice().accept());
    EXPECT_EQ(rows(), moved);
    EXPECT_EQ(tree->notice().offer(), u"Undo") << "it may be free soon";
    surroundings.lockCheck.refuses = false;
    surroundings.lockCheck.meanwhile = [this] { reRead("DEMO", "a.dwg\n=====SUB=S\nb.dwg\n"); };
    EXPECT_TRUE(tree->notice().accept());
    surroundings.lockCheck.meanwhile = [] {};
    EXPECT_EQ(rows(), "DEMO(a.dwg S(b.dwg))");
    EXPECT_EQ(tree->notice().text(), u"The project was changed since. The move was not taken back.");
    EXPECT_TRUE(surroundings.lockCheck.locked.empty());
}

/// The last drawing of the last subfolder leaves it, so that no name comes in another order.
TEST_F(TakingBack, notOffered_whenOnlyTheDepthOfADrawingIsAnother) {
    reRead("DEMO", "a.dwg\n=====SUB=S\nb.dwg\n=====SUB=V\nh.dwg\n=====SUB=V\nk.dwg\n");
    EXPECT_TRUE(dragAndDrop({u"S"}, u"a.dwg", DropPosition::before));
    EXPECT_EQ(tree->notice().offer(), u"Undo");
    tree->expand(at(u"V"), false);
    EXPECT_TRUE(drag({u"k.dwg"}, &at(u"V"), DropPosition::after));
    tree->drop();
    EXPECT_EQ(rows(), "DEMO(S(b.dwg) a.dwg V(h.dwg) k.dwg)");
    EXPECT_EQ(tree->notice().offer(), u"");
    EXPECT_FALSE(tree->notice().accept());
    EXPECT_EQ(rows(), "DEMO(S(b.dwg) a.dwg V(h.dwg) k.dwg)");
    expectAsOnDisk();
}

TEST_F(TakingBack, notWritten_isStillMoved) {
    moveMany(14);
    const std::string moved = rows();
    faulty.limitSpace(0);
    EXPECT_TRUE(tree->notice().accept());
    faulty.limitSpace(1000000);
    EXPECT_EQ(rows(), moved);
    expectAsOnDisk();
}

} // namespace
} // namespace ryv::test
