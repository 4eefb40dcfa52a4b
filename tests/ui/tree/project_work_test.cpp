// However a command that changes a project ends, its files are unlocked, and the rows say what is on disk.
#include "tests/ui/tree/commands_fixture.h"
#include "ui/tree/project_work.h"

#include <stdexcept>

namespace ryv::test {
namespace {

constexpr int copies = 207; // run as the host's command does

struct Command {
    const char* name;
    std::vector<const char16_t*> selected;
    int id;
    std::function<void(ScriptedUserInterface&)> answer;
    bool asks = true;
    void (*act)(CProjectTree&) = nullptr; ///< in place of a command of the table
};

void answerNothing(ScriptedUserInterface&) {}

const Command commands[] = {{"descriptions", {u"A"}, 203, answerNothing},
    {"add drawings", {u"A"}, 212, [](auto& ui) { ui.answerFiles(460, {u"C:\\P\\n.dwg"}); }},
    {"add to subfolder", {u"S"}, 1136, [](auto& ui) { ui.answerFiles(460, {u"C:\\P\\n.dwg"}); }},
    {"add active drawing", {u"A"}, 244, answerNothing, false},
    {"remove drawings in LISP", {u"A"}, 214, answerNothing},
    {"flatten", {u"A"}, 1143, [](auto& ui) { ui.answerTask(u"RyvPageMan.FlattenStructure", 6); }},
    {"lower case", {u"A"}, 1145, answerNothing}, {"upper case", {u"A"}, 1146, answerNothing},
    {"sort", {u"A"}, 1147, [](auto& ui) { ui.answerTask(u"RyvPageMan.MoveSubfoldersAfterSorting", 1004); }},
    {"new subfolder", {u"A"}, 1144, answerNothing, false},
    {"remove", {u"S", u"U.dwg"}, 1149,
        [](auto& ui) { ui.answerTask(u"RyvPageMan.RemoveSubfoldersAndDrawings", 6); }},
    {"replace", {u"U.dwg"}, 226, [](auto& ui) { ui.answerFiles(462, {u"C:\\P\\n.dwg"}); }},
    {"copy", {u"U.dwg"}, copies, [](auto& ui) { ui.answerFiles(463, {u"C:\\P\\n.dwg"}); }}};

void rename(CProjectTree& tree, const CString& name) {
    if (tree.editLabel(*tree.selection().front()))
        tree.finishEdit(name);
}

/// Moves the subfolder behind the last drawing.
void dropSubfolder(CProjectTree& tree) {
    TreeItem* const project = CProjectTree::GetProjectItemFromItem(tree.selection().front());
    tree.beginDrag();
    tree.dragOver(project->lastChild(), DropPosition::after);
    tree.drop();
}

void dropAndTakeBack(CProjectTree& tree) {
    dropSubfolder(tree);
    tree.notice().accept();
}

/// What is done without a command.
const Command gestures[] = {
    {"rename drawing", {u"U.dwg"}, 0, answerNothing, false, [](CProjectTree& tree) { rename(tree, u"n"); }},
    {"rename subfolder", {u"S"}, 0, answerNothing, false, [](CProjectTree& tree) { rename(tree, u"N"); }},
    {"drop", {u"S"}, 0, answerNothing, false, dropSubfolder},
    {"take back", {u"S"}, 0, answerNothing, false, dropAndTakeBack}};

class Unlocking : public CommandsFixture {
protected:
    static constexpr const char* lines = "=====SUB=S\ns2.dwg\n=====SUB=S\nS1.dwg\nU.dwg\n";

    void prepare() {
        for (const char* const name : {"s2.dwg", "S1.dwg", "U.dwg"}) {
            files.erase(path(name)); // with its spelling
            files.put(path(name), "drawing");
        }
        reRead("A", lines);
        files.erase(path("n.dwg"));
        defineEditor(u"c:ryv_proj_edit_proj_description_lines", lines, HostResultBuffer().addString(u"x"));
        defineEditor(u"c:ryv_proj_multiple_remove", lines);
        defineEditor(u"c:ryv_sort_dlst", "=====SUB=S\nS1.dwg\n=====SUB=S\ns2.dwg\nU.dwg\n");
        if (surroundings.documents.fileName(surroundings.documents.currentDocument()) != path("doc.dwg"))
            surroundings.documents.openDocument(path("doc.dwg"));
        surroundings.ui.messages.clear();
        tree->notice().clear();
    }
    void run(const Command& command) {
        std::vector<TreeItem*> items;
        for (const char16_t* const label : command.selected) {
            tree->ensureVisible(row(label));
            items.push_back(&row(label));
        }
        tree->setSelection(items);
        if (command.act)
            command.act(*tree);
        else if (command.id == copies)
            tree->copySelectedDrawing();
        else
            EXPECT_TRUE(tree->runCommand(command.id));
        tree->finishEdit(std::nullopt);
    }
    /// Each drawing that the project's file lists is there in that spelling, and the copy when it is listed.
    void expectListedFiles(bool copied) {
        RyvPrmProject file;
        ASSERT_TRUE(file.readProject(id));
        CArray<RyvPrmFileDetails*> drawings;
        file.getProjectData().generateFlatFileDetailsArray(drawings);
        const CStringArray paths = files.paths();
        for (const RyvPrmFileDetails* const drawing : drawings)
            if (const CStringView name = drawing->getFileName(); files.get(name))
                EXPECT_TRUE(std::find(paths.begin(), paths.end(), name) != paths.end()) << toUtf8(name);
        EXPECT_EQ(copied && files.get(path("n.dwg")), copied && file.isFileInProject(path("n.dwg")));
    }
    /// The rows are what the file says.
    void expectFresh() {
        const std::string shown = rows();
        manager->reReadProject(CStringView(id));
        EXPECT_EQ(shown, rows());
    }
};

TEST_F(Unlocking, everyCommand_locksAndUnlocks) {
    for (const Command& command : commands) {
        SCOPED_TRACE(command.name);
        prepare();
        surroundings.lockCheck.checks.clear();
        command.answer(surroundings.ui);
        run(command);
        EXPECT_EQ(lockCount(), 0u);
        ASSERT_GE(surroundings.lockCheck.checks.size(), 2u);
        const ScriptedLockCheck::Check& first = surroundings.lockCheck.checks[0];
        EXPECT_EQ(first.files, CStringList{id});
        EXPECT_EQ(std::pair(first.firstFlag, first.secondFlag), std::pair(1, 0));
        const ScriptedLockCheck::Check& second = surroundings.lockCheck.checks[1];
        EXPECT_EQ(second.files.size(), 3u);
        EXPECT_EQ(std::pair(second.firstFlag, second.secondFlag), std::pair(1, 1));
        EXPECT_TRUE(surroundings.ui.messages.empty());
        expectFresh();
    }
    EXPECT_EQ(surroundings.ui.unusedAnswers(), 0u);
}

TEST_F(Unlocking, refusedLock_changesNothing) {
    for (const bool ofDrawing : {false, true})
        for (const Command& command : commands) {
            SCOPED_TRACE(command.name);
            prepare();
            surroundings.lockCheck.refuses = !ofDrawing;
            surroundings.lockCheck.heldByOthers = {u"C:\\P\\S1.DWG"};
            command.answer(surroundings.ui);
            const std::string before = *files.get(id);
            const CStringArray paths = files.paths();
            run(command);
            EXPECT_EQ(lockCount(), 0u);
            EXPECT_EQ(files.get(id), before);
            EXPECT_EQ(files.paths(), paths);
            EXPECT_EQ(noticeText(), "The files of project A could not be locked. Nothing was changed.");
            surroundings.lockCheck.refuses = false;
        }
}

TEST_F(Unlocking, failedWrite_isToldAndTakenBack) {
    for (const Command& command : commands) {
        SCOPED_TRACE(command.name);
        prepare();
        command.answer(surroundings.ui);
        const CStringArray paths = files.paths();
        const std::string before = onDisk();
        faults.arm({.error = FileError::noSpace, .kind = FileCall::write, .lasting = true});
        run(command);
        const bool writes = faults.fired();
        faults.disarm();
        EXPECT_EQ(lockCount(), 0u);
        EXPECT_EQ(surroundings.ui.messages.size(), writes ? 1u : 0u);
        EXPECT_EQ(writes, command.id != 203 && command.id != 214) << "these LISP writes alone";
        EXPECT_EQ(files.paths(), paths);
        if (command.id != 1147) { // sorted by LISP
            EXPECT_EQ(onDisk(), before);
        }
        expectFresh();
    }
}

/// Whichever call it is: rows and files are those of the project file, and a repeated command is no worse.
TEST_F(Unlocking, anyFileCallFails_leavesRowsAndFilesAsOnDisk) {
    std::vector<Command> all(std::begin(commands), std::end(commands));
    all.insert(all.end(), std::begin(gestures), std::end(gestures));
    for (const Command& command : all) {
        SCOPED_TRACE(command.name);
        std::size_t number = 1;
        for (bool fired = true; fired && number < 1000; ++number) {
            SCOPED_TRACE(number);
            prepare();
            command.answer(surroundings.ui);
            faults.arm({.error = FileError::io, .number = number});
            run(command);
            fired = faults.fired();
            faults.disarm();
            EXPECT_EQ(lockCount(), 0u);
            if (noticeText().find("could not be read again") == std::string::npos)
                expectFresh();
            expectListedFiles(command.id == copies);
            if (HasFailure())
                return;
        }
        EXPECT_GT(number, 5u);
        EXPECT_LT(number, 1000u);
    }
}

TEST_F(Unlocking, projectClosedBehindTheWrite_keepsWhatIsWritten) {
    for (const int id : {1146, copies}) {
        SCOPED_TRACE(id);
        if (!manager->getProject(CStringView(this->id)))
            manager->openProject(this->id, true);
        prepare();
        surroundings.lisp.define(u"c:ryv_update_dwg_lst", [this](const HostResultBuffer&, HostResultBuffer&) {
            manager->closeProject(this->id, true);
            return LispStatus::success;
        });
        const auto command = std::find_if(
            std::begin(commands), std::end(commands), [id](const Command& each) { return each.id == id; });
        command->answer(surroundings.ui);
        run(*command);
        surroundings.lisp.answer(u"c:ryv_update_dwg_lst", HostResultBuffer().addNil());
        EXPECT_EQ(onDisk(), id == copies ? "S{s2.dwg S1.dwg} U.dwg n.dwg" : "S{S2.DWG S1.DWG} U.DWG");
        expectListedFiles(id == copies);
        EXPECT_EQ(lockCount(), 0u);
    }
}

TEST_F(Unlocking, olderError_isNotToldAgain) {
    prepare();
    faults.arm({.kind = FileCall::open});
    EXPECT_FALSE(manager->reReadProject(CStringView(id)));
    faults.disarm();
    tree->setSelection({&row(u"A")});
    surroundings.ui.answerFiles(460, {path("U.dwg")});
    EXPECT_TRUE(tree->runCommand(212));
    EXPECT_TRUE(surroundings.ui.messages.empty());
    EXPECT_EQ(noticeText(), "Drawings added: 0. In project A already: 1.");
}

TEST_F(Unlocking, noDocument_isToldAndTakesLocksBack) {
    surroundings.lockCheck.meanwhile = [this] { manager->lockProjectFile(id); };
    ProjectWork work(*tree, id);
    ASSERT_TRUE(work.lock());
    EXPECT_TRUE(manager->isProjectFileLocked(id));
    work.unlock(); // which LISP does nothing about
    EXPECT_FALSE(manager->isProjectFileLocked(id));
    surroundings.lockCheck.meanwhile = [] {};
    surroundings.documents.open = false;
    surroundings.lockCheck.refuses = true;
    EXPECT_FALSE(work.lock());
    EXPECT_EQ(noticeText(), "No drawing is open, and the command needs one. Open a drawing, and try again.");
}

TEST_F(Unlocking, cancelled_changesNothing) {
    for (const Command& command : commands) {
        if (!command.asks || command.id == 1145 || command.id == 1146)
            continue;
        SCOPED_TRACE(command.name);
        prepare();
        for (const char16_t* const function :
            {u"c:ryv_proj_edit_proj_description_lines", u"c:ryv_proj_multiple_remove", u"c:ryv_sort_dlst"})
            surroundings.lisp.answer(function, HostResultBuffer().addNil());
        const std::string before = *files.get(id);
        run(command);
        EXPECT_EQ(lockCount(), 0u);
        EXPECT_EQ(files.get(id), before);
        EXPECT_TRUE(surroundings.ui.messages.empty());
    }
}

TEST_F(Unlocking, projectClosedOrReReadMeanwhile_endsQuietly) {
    for (const bool closes : {true, false})
        for (const Command& command : commands) {
            SCOPED_TRACE(std::string(command.name) + (closes ? ", closed" : ", read again"));
            if (!manager->getProject(CStringView(id)))
                manager->openProject(id, true);
            prepare();
            command.answer(surroundings.ui);
            const std::string before = onDisk();
            const CStringArray paths = files.paths();
            surroundings.ui.meanwhile = [&] {
                closes ? manager->closeProject(id, true) : manager->reReadProject(CStringView(id));
            };
            run(command);
            surroundings.ui.meanwhile = [] {};
            EXPECT_EQ(lockCount(), 0u);
            EXPECT_TRUE(surroundings.ui.messages.empty());
            if (closes && command.asks && command.id != 1147) {
                EXPECT_EQ(onDisk(), before);
                EXPECT_EQ(files.paths(), paths);
            }
            if (!closes)
                expectFresh();
        }
}

TEST_F(Unlocking, thrownOutOfAWrite_unlocks) {
    surroundings.lisp.define(
        u"c:ryv_update_dwg_lst", [](const HostResultBuffer&, HostResultBuffer&) -> LispStatus {
            throw std::runtime_error("broken off");
        });
    select({u"A"});
    EXPECT_THROW(tree->runCommand(1144), std::runtime_error);
    EXPECT_EQ(lockCount(), 0u);
}

TEST_F(Unlocking, refusal_namesFileAndHolder) {
    ProjectWork work(*tree, id);
    EXPECT_TRUE(work.lock({path("a.dwg")}));
    EXPECT_EQ(lockCount(), 2u) << "the others are only looked at";
    EXPECT_TRUE(work.lockDrawing(path("extra.dwg")));
    work.unlockDrawing(path("EXTRA.dwg"));
    EXPECT_FALSE(surroundings.lockCheck.isLocked(path("extra.dwg")));
    work.unlock();
    EXPECT_EQ(lockCount(), 0u);
    surroundings.lockCheck.refuses = true;
    std::string record;
    for (const char unit : std::string("eve\nBOX Eve\n2026/11/21  12:00:00"))
        record += {unit, '\0'};
    const CString lockFile = path("b.dwg.FLL");
    files.put(lockFile, record);
    FileHandle holder = FileHandle::none;
    ASSERT_TRUE(files.open(lockFile, OpenMode::readWrite, holder).ok());
    ASSERT_TRUE(files.lock(holder, {}).ok());
    EXPECT_FALSE(work.lock({path("b.dwg")}));
    EXPECT_EQ(noticeText().substr(noticeText().find("b.dwg")),
        "b.dwg is being worked on by eve(BOX Ev). Nothing was changed; try again later.");
    static_cast<void>(files.close(holder));
    files.erase(lockFile);
    surroundings.lockCheck.meanwhile = [this] { manager->lockProjectFile(id); };
    faults.limitSpace(0);
    EXPECT_FALSE(work.lock());
    faults.limitSpace(1000000);
    EXPECT_EQ(noticeText().substr(noticeText().find("A.kqp")),
        "A.kqp could not be locked: no space left on the disk. Nothing was changed.");
    surroundings.lockCheck.meanwhile = [] {};
    EXPECT_FALSE(work.lock());
    EXPECT_EQ(noticeText(), "The files of project A could not be locked. Nothing was changed.");
    files.protect(id);
    EXPECT_FALSE(work.lock());
    EXPECT_EQ(noticeText().substr(noticeText().find("A.kqp")),
        "A.kqp or its folder is read-only. Nothing was changed.");
}

} // namespace
} // namespace ryv::test
