#include "tests/support/fault_files.h"
#include "tests/ui/tree/tree_fixture.h"

#include "base/paths.h"
#include "resources/message_numbers.h"

namespace ryv::test {
namespace {

class Renaming : public TreeFixture {
protected:
    static constexpr const char* lines =
        "=====SUB=PANEL/POWER\na.dwg\n=====SUB=PANEL/MOTOR\nb.dwg\n=====SUB=PANEL\nc.dwg\n";
    static constexpr const char* shown = "DEMO(PANEL(POWER(a.dwg) MOTOR(b.dwg) c.dwg))";

    Renaming() {
        surroundings.ports.os.files = &faulty;
        id = open("DEMO", lines);
        tree->expandAll(nullptr, true);
        tree->attach(editor);
    }
    ~Renaming() override {
        tree->detach(editor);
        surroundings.ports.os.files = &files; // the disk that fails goes first
    }
    void rename(CStringView label, const CString& text) {
        ASSERT_TRUE(tree->editLabel(row(label))) << toUtf8(tree->notice().text());
        tree->finishEdit(text);
    }
    /// The questions so far, without what they say; each ends with a blank.
    std::string asked() {
        std::string text;
        for (const TaskDialogRequest& each : surroundings.ui.tasks)
            text += toUtf8(each.id.substr(each.id.find(u'.') + 1)) + " ";
        text += surroundings.ui.messages.empty() ? "" : "message ";
        surroundings.ui.tasks.clear();
        surroundings.ui.messages.clear();
        return text;
    }
    /// The drawings that exist.
    std::string drawings() const {
        std::string text;
        for (const CString& each : files.paths())
            if (equalNoCase(paths::findExtension(each), u".dwg"))
                text += toUtf8(paths::findFileName(each)) + " ";
        return text;
    }
    /// The drawings that the project file lists, each behind "<" and the subfolders that it is in.
    std::string rowsOnDisk() {
        RyvPrmProject project;
        EXPECT_TRUE(project.readProject(id));
        std::string text;
        CArray<RyvPrmFileDetails*> all;
        project.getProjectData().generateFlatFileDetailsArray(all);
        for (const RyvPrmFileDetails* const each : all) {
            for (const RyvPrmSubfolder* at = each->parent(); at->parent(); at = at->parent())
                text += toUtf8(at->getName()) + "<";
            text += toUtf8(paths::findFileName(each->getFileName())) + " ";
        }
        return text;
    }
    /// What is offered to be changed after a name was refused; empty when nothing is. Gives it up.
    CString typedAgain() {
        const CString text = tree->editedItem() ? editor.text : CString();
        tree->finishEdit(std::nullopt);
        return text;
    }
    class Editor final : public TreeObserver {
    public:
        void editStarted(TreeItem&, const CString& offered) override { text = offered; }
        CString text;
    };
    static constexpr const char* onDisk = "POWER<PANEL<a.dwg MOTOR<PANEL<b.dwg PANEL<c.dwg ";

    FaultFiles faulty{files};
    CString id;
    Editor editor;
};

TEST_F(Renaming, subfolder_byItsRules) {
    const struct {
        const char16_t* text;
        const char* asked;
        const char* name; // afterwards
    } cases[] = {
        {u"", "", "POWER"},
        {u"  ", "", "POWER"},
        {u"power", "", "POWER"},
        {u"A,B", "InvalidCharForSubfolderName ", "POWER"},
        {u"a`", "InvalidCharForSubfolderName ", "POWER"},
        {u"a\tb", "InvalidCharForSubfolderName ", "POWER"},
        {u"motor", "SubfolderNameExists ", "POWER"},
        {u"panel", "", "PANEL"},
        {u" supply (2) ", "", "SUPPLY (2)"},
        {u"power", "", "POWER"},
    };
    TreeItem& subfolder = row(u"POWER");
    for (const auto& each : cases) {
        SCOPED_TRACE(toUtf8(each.text));
        tree->setSelection({&subfolder});
        ASSERT_TRUE(tree->editLabel(subfolder));
        EXPECT_TRUE(surroundings.lockCheck.isLocked(id));
        tree->finishEdit(CString(each.text));
        const std::string told = asked();
        EXPECT_EQ(told, each.asked);
        EXPECT_EQ(typedAgain(), told.empty() ? CString() : CString(each.text));
        EXPECT_EQ(toUtf8(subfolder.label()), each.name);
        EXPECT_EQ(CProjectTree::GetItemData(&subfolder)->key, subfolder.label());
        EXPECT_TRUE(subfolder.expanded() && subfolder.selected());
        EXPECT_EQ(rowsOnDisk(), std::string(each.name) + "<PANEL<a.dwg MOTOR<PANEL<b.dwg PANEL<c.dwg ");
        EXPECT_TRUE(surroundings.lockCheck.locked.empty());
    }
    EXPECT_FALSE(tree->editLabel(row(u"DEMO"))) << "projects have the names of their files";
    rename(u"POWER", u"a;b");
    EXPECT_TRUE(surroundings.lockCheck.isLocked(id));
    tree->finishEdit(u"ab");
    EXPECT_EQ(rows(), "DEMO(PANEL(AB(a.dwg) MOTOR(b.dwg) c.dwg))");
    EXPECT_EQ(surroundings.ui.tasks.back().variables.front().second, u"<>/\\\"':;?*|,=`");
}

TEST_F(Renaming, drawing_byItsRules) {
    files.put(path("taken.dwg"), "another");
    const CString tooLong(255, u'x');
    const struct {
        CString text;
        const char* asked;
        const char* name; // afterwards
        const char* problem = "";
    } cases[] = {
        {u"", "RenameDrawingNoFileName ", "a.dwg", "A name is needed."},
        {u"  ", "RenameDrawingNoFileName ", "a.dwg", "A name is needed."},
        {u".dwg", "RenameDrawingNoFileName ", "a.dwg", "A name is needed."},
        {u"A.DWG", "", "a.dwg"},
        {u"A", "", "a.dwg"},
        {u"b.txt", "message ", "a.dwg", "The name b.dwg is taken already."},
        {u"Taken", "message ", "a.dwg", "The name Taken.dwg is taken already."},
        {u"S\\x", "message ", "a.dwg", "A name holds none of these characters: < > : \" / \\ | ? *"},
        {u"x\ny", "message ", "a.dwg", "A name holds none of these characters: < > : \" / \\ | ? *"},
        {tooLong, "message ", "a.dwg", "The name is too long for its folder."},
        {u" Panel2.txt ", "", "Panel2.dwg"},
        {u"a", "", "a.dwg"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(toUtf8(each.text));
        TreeItem& drawing = *row(u"POWER").firstChild();
        const std::size_t calls = faulty.calls().size();
        EXPECT_EQ(toUtf8(tree->problemOfName(drawing, each.text)), each.problem);
        EXPECT_LE(faulty.calls().size(), calls + 1) << "it is asked at each letter";
        ASSERT_TRUE(tree->editLabel(drawing));
        EXPECT_TRUE(surroundings.lockCheck.isLocked(CProjectTree::GetItemData(&drawing)->key));
        tree->finishEdit(each.text);
        const std::string told = asked();
        EXPECT_EQ(told, each.asked);
        EXPECT_EQ(typedAgain(), told == "message " ? each.text : CString());
        EXPECT_EQ(toUtf8(drawing.label()), each.name);
        EXPECT_EQ(&drawing, row(u"POWER").firstChild()) << "the same row";
        EXPECT_EQ(CProjectTree::GetItemData(&drawing)->key, u"C:\\P\\" + drawing.label());
        EXPECT_EQ(files.get(u"C:\\P\\" + drawing.label()), "drawing");
        EXPECT_EQ(rowsOnDisk(), "POWER<PANEL<" + std::string(each.name) + " MOTOR<PANEL<b.dwg PANEL<c.dwg ");
        EXPECT_TRUE(surroundings.lockCheck.locked.empty());
    }
    EXPECT_EQ(files.get(path("taken.dwg")), "another");
    const CStringArray renames = {u"started C:\\P\\DEMO.kqp|C:\\P\\a.dwg|1", u"completed C:\\P\\DEMO.kqp|"};
    EXPECT_EQ(surroundings.projectDatabase.renames[1], renames[1]) << "the name was taken on disk";
    EXPECT_EQ(surroundings.projectDatabase.renames[3], renames[1] + path("Panel2.dwg"));
}

TEST_F(Renaming, drawing_isOfferedByItsFileName) {
    display({104, 103});
    reRead("DEMO", "=sec\na.dwg\n");
    TreeItem& drawing = *tree->child(nullptr, 0)->firstChild();
    EXPECT_TRUE(tree->editLabel(drawing));
    EXPECT_EQ(editor.text, u"a.dwg");
    tree->finishEdit(u"new");
    EXPECT_TRUE(drawing.label().ends_with(u"new.dwg"));
}

TEST_F(Renaming, openDrawing_goesOnUnderItsNewName) {
    const DocumentId document = surroundings.documents.openDocument(path("a.dwg"));
    manager->drawingActivated(path("a.dwg"));
    rename(u"a.dwg", u"n");
    EXPECT_EQ(surroundings.documents.fileName(document), path("n.dwg"));
    EXPECT_EQ(drawings(), "b.dwg c.dwg n.dwg ");
    EXPECT_EQ(rows(), "DEMO(*PANEL(*POWER(*n.dwg) MOTOR(b.dwg) c.dwg))");
}

TEST_F(Renaming, caseOnly_isForTheCaseCommands) {
    EXPECT_FALSE(tree->DoActualFileRename(path("a.dwg"), path("A.DWG"), false));
    EXPECT_TRUE(tree->DoActualFileRename(path("a.dwg"), path("A.DWG"), true));
    EXPECT_FALSE(tree->DoActualFileRename(path("A.DWG"), path("b.dwg"), true)) << "replaces nothing";
    const DocumentId document = surroundings.documents.openDocument(path("A.DWG"));
    EXPECT_TRUE(tree->DoActualFileRename(path("A.DWG"), path("a.dwg"), true));
    EXPECT_EQ(surroundings.documents.fileName(document), path("a.dwg")) << "through its document";
    EXPECT_TRUE(tree->DoActualFileRename(path("a.dwg"), path("A.DWG"), true));
    EXPECT_EQ(drawings(), "A.DWG b.dwg c.dwg ");
    EXPECT_EQ(asked(), "");
}

/// Whatever goes wrong, nothing stays locked, and drawings, project file and rows agree.
TEST_F(Renaming, failures_leaveEverythingAsItWas) {
    const auto fail = [this](FileCall call, FileError error, std::size_t number = 1) {
        faulty.arm({error, number, call, number == 1});
    };
    const auto during = [this](FileCall call, const std::function<void()>& what) {
        faulty.watch = [call, what, pending = true](FileCall now) mutable {
            if (now == call && std::exchange(pending, false))
                what();
        };
    };
    const struct {
        const char* name;
        const char16_t* label;
        std::function<void()> prepare; // after the editing began
        const char* asked;
        bool closes = false;
        bool done = false;
    } cases[] = {
        {"rename fails", u"a.dwg", [&] { fail(FileCall::rename, FileError::denied); }, "message "},
        {"disk full", u"a.dwg", [&] { fail(FileCall::open, FileError::noSpace); }, "message "},
        {"project not written", u"a.dwg", [&] { faulty.limitSpace(0); }, "message "},
        {"project not renamed", u"a.dwg", [&] { fail(FileCall::rename, FileError::io, 2); }, "message "},
        {"closed", u"a.dwg", [&] { during(FileCall::rename, [&] { manager->closeProject(id, true); }); }, "",
            true},
        {"re-read", u"a.dwg", [&] { during(FileCall::rename, [&] { manager->reReadProject(id); }); }, "",
            false, true},
        {"subfolder not written", u"POWER", [&] { faulty.limitSpace(0); }, "message "},
        {"subfolder not replaced", u"POWER", [&] { fail(FileCall::rename, FileError::io); }, "message "},
        {"subfolder closed", u"POWER", [&] { manager->closeProject(id, true); }, "", true},
        {"given up", u"POWER", [&] { tree->finishEdit({}); }, ""},
        {"gone", u"a.dwg", [&] { reRead("DEMO", "=====SUB=PANEL\nc.dwg\n"); }, ""},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        manager->closeProject(id, true);
        for (const CString& file : files.paths())
            files.erase(file);
        id = open("DEMO", lines);
        tree->expandAll(nullptr, true);
        surroundings.editor.userBreak = true;
        ASSERT_TRUE(tree->editLabel(row(each.label)));
        each.prepare();
        tree->finishEdit(u"new");
        faulty.disarm();
        faulty.limitSpace(1000000);
        EXPECT_EQ(asked(), each.asked);
        EXPECT_TRUE(surroundings.lockCheck.locked.empty());
        EXPECT_FALSE(surroundings.editor.takeUserBreak());
        if (std::string(each.name) == "gone") {
            EXPECT_EQ(rows(), "DEMO(PANEL(c.dwg))");
            EXPECT_NE(tree->notice().text(), u"");
            continue;
        }
        EXPECT_EQ(drawings(), each.done ? "b.dwg c.dwg new.dwg " : "a.dwg b.dwg c.dwg ");
        EXPECT_EQ(rowsOnDisk(), each.done ? "POWER<PANEL<new.dwg MOTOR<PANEL<b.dwg PANEL<c.dwg " : onDisk);
        if (!each.done)
            EXPECT_EQ(rows(), each.closes ? "" : shown);
    }
}

/// LISP is broken off while files are locked, or a question while the name is taken over.
TEST_F(Renaming, brokenOff_nothingStaysLocked) {
    struct Break {};
    for (const char16_t* const label : {u"POWER", u"a.dwg"}) {
        surroundings.lockCheck.meanwhile = [this] {
            if (!surroundings.lockCheck.locked.empty())
                throw Break();
        };
        EXPECT_THROW(tree->editLabel(row(label)), Break);
        EXPECT_TRUE(surroundings.lockCheck.locked.empty());
        surroundings.lockCheck.meanwhile = [] {};
        ASSERT_TRUE(tree->editLabel(row(label)));
        reRead("DEMO", std::string(lines) + "d.dwg\n");
        surroundings.ui.meanwhile = [] { throw Break(); };
        EXPECT_THROW(tree->finishEdit(u"a:b"), Break);
        surroundings.ui.meanwhile = [] {};
        EXPECT_TRUE(surroundings.lockCheck.locked.empty());
        EXPECT_NO_THROW(row(u"d.dwg")) << "what waited for the end of the editing";
        reRead("DEMO", lines);
    }
}

TEST_F(Renaming, drawingListedTwice_isRenamedEverywhere) {
    reRead("DEMO", "a.dwg\n=====SUB=PANEL\nA.DWG\nb.dwg\n");
    const struct {
        std::size_t space;
        const char* rows;
    } cases[] = {{0, "DEMO(a.dwg PANEL(A.DWG) b.dwg)"}, {1000000, "DEMO(new.dwg PANEL(new.dwg) b.dwg)"}};
    for (const auto& each : cases) {
        tree->setSelection({&row(u"a.dwg")});
        ASSERT_TRUE(tree->editLabel(row(u"a.dwg")));
        faulty.limitSpace(each.space);
        tree->finishEdit(u"new");
        faulty.limitSpace(1000000);
        EXPECT_EQ(rows(), each.rows);
    }
    EXPECT_EQ(rowsOnDisk(), "new.dwg PANEL<new.dwg b.dwg ");
}

TEST_F(Renaming, otherOpenProjects_follow) {
    const struct {
        const char* name;
        std::function<void(const CString& other)> prepare; // after the editing began
        const char* rows;                                  // of the other project
        const char* notice = "";
        bool isWritten = true;
        const char* asked = "";
    } cases[] = {
        {"followed", [](const CString&) {}, "OTHER(new.dwg x.dwg S(new.dwg))"},
        {"held", [&](const CString& other) { surroundings.lockCheck.heldByOthers = {toUpper(other)}; },
            "OTHER(A.DWG x.dwg S(a.dwg))",
            "a.dwg is called new.dwg now. These projects still list the old name: OTHER. No drawing is "
            "open, and the command needs one. Open a drawing, and try again.",
            false},
        {"not written",
            [&](const CString&) { surroundings.lockCheck.meanwhile = [this] { faulty.limitSpace(0); }; },
            "OTHER(A.DWG x.dwg S(a.dwg))",
            "a.dwg is called new.dwg now. These projects still list the old name: OTHER. ", false,
            "message "},
        {"has the name already",
            [&](const CString&) {
                reRead("OTHER", "A.DWG\nx.dwg\n=====SUB=S\nnew.dwg\n");
                files.erase(path("new.dwg"));
            },
            "OTHER(A.DWG x.dwg S(new.dwg))",
            "a.dwg is called new.dwg now. These projects still list the old name: OTHER. ", false},
        {"closed",
            [&](const CString& other) {
                surroundings.lockCheck.meanwhile = [this, other] { manager->closeProject(other, true); };
            },
            "", "", false},
        {"not listed any more",
            [&](const CString&) {
                surroundings.lockCheck.meanwhile = [this] { reRead("OTHER", "x.dwg\n"); };
            },
            "OTHER(x.dwg)", "", false},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        manager->closeProject(path("OTHER.kqp"), true);
        for (const CString& file : files.paths())
            files.erase(file);
        reRead("DEMO", lines);
        tree->expandAll(nullptr, true);
        const CString other = open("OTHER", "A.DWG\nx.dwg\n=====SUB=S\na.dwg\n");
        tree->notice().clear();
        surroundings.projectDatabase.renames.clear();
        TreeItem& drawing = *row(u"POWER").firstChild();
        ASSERT_TRUE(tree->editLabel(drawing));
        each.prepare(other);
        tree->finishEdit(u"new");
        surroundings.lockCheck.meanwhile = [] {};
        surroundings.lockCheck.heldByOthers.clear();
        faulty.limitSpace(1000000);
        EXPECT_EQ(asked(), each.asked);
        EXPECT_EQ(rowsOnDisk(), "POWER<PANEL<new.dwg MOTOR<PANEL<b.dwg PANEL<c.dwg ");
        EXPECT_NE(rows().find("DEMO(PANEL(POWER(new.dwg) MOTOR(b.dwg) c.dwg))"), std::string::npos);
        EXPECT_NE(rows().find(each.rows), std::string::npos) << rows();
        EXPECT_EQ(toUtf8(tree->notice().text()), each.notice);
        EXPECT_EQ(files.get(other)->find("new.dwg") < files.get(other)->find("x.dwg"), each.isWritten);
        const CStringArray& told = surroundings.projectDatabase.renames;
        EXPECT_EQ(told.back().starts_with(u"completed C:\\P\\OTHER.kqp|C:\\P\\new.dwg"), each.isWritten);
        EXPECT_TRUE(surroundings.lockCheck.locked.empty());
    }
}

TEST_F(Renaming, lockedFiles_areNotRenamed) {
    const struct {
        CString held;
        const char16_t* label;
    } cases[] = {{id, u"POWER"}, {id, u"a.dwg"}, {path("a.dwg"), u"a.dwg"}, {path("b.dwg"), u"a.dwg"}};
    for (const auto& each : cases) {
        tree->notice().clear();
        surroundings.lockCheck.heldByOthers = {toUpper(each.held)};
        EXPECT_FALSE(tree->editLabel(row(each.label)));
        EXPECT_NE(tree->notice().text(), u"");
        EXPECT_TRUE(surroundings.lockCheck.locked.empty());
    }
    surroundings.lockCheck.heldByOthers.clear();
    EXPECT_TRUE(tree->editLabel(row(u"POWER"))) << "a refusal leaves nothing behind";
    tree->finishEdit({});
}

/// The row, its project or the locks may be gone behind the message.
TEST_F(Renaming, refusedName_isOfferedAgainOnlyWhereItCanBe) {
    const struct {
        const char* name;
        std::function<void()> meanwhile; // while the message stands
        bool again;
    } cases[] = {
        {"nothing", [] {}, true},
        {"read again", [&] { reRead("DEMO", std::string(lines) + "d.dwg\n"); }, true},
        {"row gone", [&] { reRead("DEMO", "=====SUB=PANEL\nc.dwg\n"); }, false},
        {"closed", [&] { manager->closeProject(id, true); }, false},
        {"locked by another", [&] { surroundings.lockCheck.heldByOthers = {toUpper(id)}; }, false},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        manager->openProject(id, false);
        reRead("DEMO", lines);
        surroundings.ui.meanwhile = each.meanwhile;
        rename(u"POWER", u"motor");
        surroundings.ui.meanwhile = [] {};
        EXPECT_EQ(typedAgain(), each.again ? u"motor" : u"");
        EXPECT_TRUE(surroundings.lockCheck.locked.empty());
        surroundings.lockCheck.heldByOthers.clear();
    }
}

TEST_F(Renaming, reReadWhileTyping_isDealtWithAfterwards) {
    TreeItem& subfolder = row(u"POWER");
    ASSERT_TRUE(tree->editLabel(subfolder));
    reRead("DEMO", "=====SUB=PANEL/POWER\nb.dwg\nc.dwg\n");
    EXPECT_EQ(rows(), shown);
    tree->finishEdit(u"new");
    EXPECT_EQ(rows(), "DEMO(PANEL(NEW(b.dwg)) c.dwg)");
    EXPECT_EQ(&row(u"NEW"), &subfolder);
}

TEST_F(Renaming, subfoldersThatDifferInCaseOnly_areRenamedTogether) {
    RyvPrmProject& project = *manager->getProject(CStringView(id));
    RyvPrmSubfolder& panel = *project.editProjectData().findSubfolder(u"PANEL");
    panel.add(std::make_unique<RyvPrmSubfolder>(u"power")).parent();
    tree->onProjectReRead(id);
    rename(u"POWER", u"new");
    EXPECT_EQ(rows(), "DEMO(PANEL(NEW(a.dwg) MOTOR(b.dwg) c.dwg))");
}

} // namespace
} // namespace ryv::test
