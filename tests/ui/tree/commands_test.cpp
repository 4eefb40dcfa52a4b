// What the commands of projects and their lists do.
#include "tests/ui/tree/command_runs.h"
#include "ui/tree/row_name.h"

namespace ryv::test {
namespace {

class Commands : public CommandRuns {};

TEST_F(Commands, listCommands_handTheSelectionOver) {
    const std::pair<int, const char16_t*> commands[] = {{210, u"(c:kq_tb)\r"}, {211, u"(c:kq_dwglst_proj)\r"},
        {238, u"(c:ryv_prnt_proj nil nil)\r"}, {240, u"RYPUBLISH\r"}, {241, u"(c:kq_zip_do_kqzip 0)\r"}};
    for (const auto& [command, text] : commands) {
        select({u"S"});
        surroundings.lisp.symbols.clear();
        documents.sent.clear();
        run(command);
        EXPECT_EQ(textsOf(surroundings.lisp.symbols[u"GBL_SELECTED_DWGS"]),
            (CStringArray{path("s2.dwg"), path("s1.dwg"), path("t.dwg")}));
        EXPECT_TRUE(documents.sent.empty()) << "only once the handler is through";
        documents.runApplicationContext();
        EXPECT_EQ(documents.sentTexts(), CStringArray{text});
    }
}

TEST_F(Commands, listCommands_areAboutTheActiveProjectAlone) {
    open("B", "x.dwg\n");
    select({u"B", u"S"});
    tree->setFocus(&row(u"S"));
    tree->setSelection({&row(u"S"), &row(u"B")});
    ASSERT_TRUE(contextRow(*tree)) << selected();
    tree->setFocus(&row(u"S"));
    run(210);
    EXPECT_EQ(textsOf(surroundings.lisp.symbols[u"GBL_SELECTED_DWGS"]),
        (CStringArray{path("s2.dwg"), path("s1.dwg"), path("t.dwg")}));
}

TEST_F(Commands, hostCommands_areQueuedWithWhatTheyNeed) {
    struct Case {
        const char16_t* selected;
        int command;
        const char16_t* text;
        const char* drawing; // handed over
    };
    const Case cases[] = {{u"A", 217, u"_.ryvprojectprops\r", ""}, {u"A", 255, u"_.ryvnewdrawing\r", ""},
        {u"S", 1135, u"_.ryvnewdrawing\r", ""}, {u"A", 251, u"_.ryvnewproject\r", ""},
        {u"A", 252, u"_.ryvnewdrawing\r", ""}, {u"t.dwg", 245, u"_.ryvdrawingprops\r", "t.dwg"},
        {u"t.dwg", 249, u"_.ryvcomparedtop\r", "t.dwg"}, {u"t.dwg", 207, u"RYNAVCOPYTO\r", ""}};
    for (const Case& each : cases) {
        select({each.selected});
        documents.sent.clear();
        state.pendingDrawing.clear();
        run(each.command);
        documents.runApplicationContext();
        EXPECT_EQ(documents.sentTexts(), CStringArray{each.text});
        EXPECT_EQ(state.pendingDrawing, *each.drawing ? path(each.drawing) : CString());
    }
    select({u"T"});
    run(1135);
    files.put(path("n.dwg"), "drawing");
    manager->addFileToProject(std::make_unique<RyvPrmFileDetails>(path("n.dwg")));
    EXPECT_EQ(onDisk(), "b.dwg S{s2.dwg s1.dwg T{t.dwg n.dwg}} a.dwg") << "the subfolder was handed over";
}

TEST_F(Commands, activateAndClose_keepAnActiveProject) {
    const CString b = open("B", "x.dwg\n");
    const CString c = open("C", "y.dwg\n");
    select({u"B"});
    run(201);
    EXPECT_TRUE(manager->isActiveProject(b));
    EXPECT_EQ(rows().substr(0, 2), "*B");
    select({u"C"});
    run(209);
    EXPECT_EQ(manager->getProjectCount(), 2);
    select({u"B"});
    bool veto = true;
    struct Objector {
        bool& veto;
        void check(bool& vetoed) { vetoed = vetoed || veto; }
    } objector{veto};
    manager->OnProjectEventVetoCheck.subscribe(objector, &Objector::check);
    run(209);
    EXPECT_EQ(manager->getProjectCount(), 2) << "somebody objects";
    veto = false;
    run(209);
    EXPECT_TRUE(manager->isActiveProject(id));
    EXPECT_EQ(selected(), "A");
    EXPECT_EQ(rows(), "*A(b.dwg S(s2.dwg s1.dwg T(t.dwg)) a.dwg)");
    EXPECT_FALSE(tree->runCommand(209));
    tree->ProjectMenuClose();
    EXPECT_EQ(manager->getProjectCount(), 1) << "the only one stays";
    manager->OnProjectEventVetoCheck.unsubscribe(objector, &Objector::check);
}

TEST_F(Commands, openProject_opensActivatesOrSaysWhyNot) {
    const CString b = project("B", "x.dwg\n");
    ui.answerFiles(461, {b});
    run(259);
    EXPECT_TRUE(manager->isActiveProject(b));
    ui.answerFiles(461, {id});
    run(259);
    EXPECT_TRUE(manager->isActiveProject(id));
    ui.answerFiles(461, {path("none.kqp")});
    run(259);
    EXPECT_EQ(ui.messages.back().message, 467);
    files.put(u"C:\\Q\\B.kqp", "x.dwg\n");
    ui.answerFiles(461, {u"C:\\Q\\B.kqp"});
    ui.answerMessage(173, Answer::yes);
    run(259);
    EXPECT_FALSE(manager->getProject(b));
    EXPECT_TRUE(manager->isActiveProject(u"C:\\Q\\B.kqp"));
}

TEST_F(Commands, descriptions_comeFromLisp) {
    defineEditor(
        u"c:ryv_proj_edit_proj_description_lines", "*[1]one\nb.dwg\n", HostResultBuffer().addString(u"one"));
    select({u"A"});
    run(203);
    EXPECT_EQ(onDisk(), "b.dwg");
    EXPECT_EQ(rows(), "*A(b.dwg)");
    // Of another project LISP knows nothing, and writes nothing.
    const CString b = open("B", "x.dwg\n");
    surroundings.lisp.answer(
        u"c:ryv_proj_edit_proj_description_lines", HostResultBuffer().addString(u"two").addString(u"three"));
    select({u"B"});
    run(203);
    RyvPrmProject fresh;
    EXPECT_TRUE(fresh.readProject(b));
    EXPECT_EQ(fresh.getProjectData().getProjDescriptions(), (CStringList{u"two", u"three"}));
    EXPECT_EQ(lastCall(u"c:ryv_proj_edit_proj_description_lines").at(1).type, ResultType::nil)
        << "not those that LISP knows";
}

TEST_F(Commands, removingByLisp_keepsSubfoldersExpanded) {
    tree->expand(row(u"A"), true);
    tree->expand(row(u"S"), true);
    tree->expand(row(u"T"), true);
    defineEditor(u"c:ryv_proj_multiple_remove", "=====SUB=S/T\nt.dwg\n");
    select({u"A"});
    run(214);
    EXPECT_EQ(rows(), "*A(S(T(t.dwg)))");
    EXPECT_TRUE(row(u"T").expanded());
    EXPECT_EQ(lockCount(), 0u);
}

TEST_F(Commands, sorting_movesSubfoldersAsTheUserSays) {
    const std::string sorted = "a.dwg\n=====SUB=S\ns1.dwg\n=====SUB=S/T\nt.dwg\n=====SUB=S\ns2.dwg\nb.dwg\n";
    const std::tuple<int, const char*, CStringArray> cases[] = {
        {1001, "S{s1.dwg T{t.dwg} s2.dwg} a.dwg b.dwg", {u""}},
        {1002, "S{T{t.dwg} s1.dwg s2.dwg} a.dwg b.dwg", {u"", u"S", u"S/T"}},
        {1003, "a.dwg b.dwg S{s1.dwg T{t.dwg} s2.dwg}", {u""}},
        {1004, "a.dwg b.dwg S{s1.dwg s2.dwg T{t.dwg}}", {u"", u"S", u"S/T"}}};
    for (const auto& [answer, after, levels] : cases) {
        reRead("A", plainLines);
        defineEditor(u"c:ryv_sort_dlst", sorted);
        ui.answerTask(u"RyvPageMan.MoveSubfoldersAfterSorting", answer);
        select({u"A"});
        run(1147);
        EXPECT_EQ(onDisk(), after);
        const auto chosen = std::get<HostResultBuffer>(lastCall(u"c:ryv_sort_dlst").at(3).value);
        EXPECT_EQ(textsOf(chosen), levels);
    }
    {
        reRead("A", plainLines);
        select({u"A"});
        const CProjectTree::SuppressReread rowsAreLate(*tree);
        ui.answerTask(u"RyvPageMan.MoveSubfoldersAfterSorting", 1003);
        run(1147);
        EXPECT_EQ(onDisk(), "a.dwg b.dwg S{s1.dwg T{t.dwg} s2.dwg}");
    }
    defineEditor(u"c:ryv_sort_dlst", plainLines, HostResultBuffer().addNil());
    ui.answerTask(u"RyvPageMan.MoveSubfoldersAfterSorting", 1001);
    const std::string before = rows();
    run(1147);
    EXPECT_EQ(rows(), before) << "cancelled in LISP";
    select({u"T"}); // no subfolders, no question
    defineEditor(u"c:ryv_sort_dlst", plainLines);
    const std::size_t asked = ui.tasks.size();
    run(1147);
    EXPECT_EQ(ui.tasks.size(), asked);
    EXPECT_EQ(onDisk(), plainTree);
}

TEST_F(Commands, flattening_keepsTheOrder) {
    select({u"A"});
    ui.answerTask(u"RyvPageMan.FlattenStructure", 6);
    run(1143);
    EXPECT_EQ(onDisk(), "b.dwg s2.dwg s1.dwg t.dwg a.dwg");
    EXPECT_EQ(rows(), "*A(b.dwg s2.dwg s1.dwg t.dwg a.dwg)");
}

TEST_F(Commands, itemsOfRows_areThoseOfTheProject) {
    tree->setFilter(u"s1");
    auto items = CProjectTree::GenerateProjDataStruct(row(u"A"));
    const RyvPrmItems owned(std::make_move_iterator(items.begin()), std::make_move_iterator(items.end()));
    EXPECT_EQ(treeText(owned),
        treeText(manager->getProject(CStringView(id))->getProjectData().getProjFileDetails()));
}

TEST_F(Commands, fileNames_changeTheirCaseOnDiskAndInTheProject) {
    select({u"S"});
    run(1146);
    EXPECT_EQ(onDisk(), "b.dwg S{S2.DWG S1.DWG T{T.DWG}} a.dwg");
    EXPECT_EQ(rows(), "*A(b.dwg S(S2.DWG S1.DWG T(T.DWG)) a.dwg)");
    const CStringArray paths = files.paths();
    EXPECT_NE(std::find(paths.begin(), paths.end(), path("S1.DWG")), paths.end());
    EXPECT_EQ(surroundings.projectDatabase.renames.size(), 6u);
    ui.cancelAtStep = 2;
    const std::string& report = nextReport();
    run(1145);
    EXPECT_EQ(onDisk(), "b.dwg S{s2.dwg S1.DWG T{T.DWG}} a.dwg") << "cancelled behind the first";
    EXPECT_EQ(report,
        "Drawings changed: 1, skipped: 0. Cancelled after 1 of 3 drawings.||File names changed:|"
        "C:\\P\\s2.dwg");
    EXPECT_EQ(lockCount(), 0u);
}

TEST_F(Commands, fileNames_ofTwoProjects_changeInTheFirst) {
    const CString b = open("B", "x.dwg\n");
    select({u"S", u"B"});
    EXPECT_FALSE(tree->runCommand(1146));
    tree->ProjectMenuFlipFileNameUpperCase();
    EXPECT_EQ(onDisk(), "b.dwg S{S2.DWG S1.DWG T{T.DWG}} a.dwg");
    EXPECT_EQ(onDisk(b), "x.dwg");
}

TEST_F(Commands, fileNames_thatTheProjectDoesNotGet_areThoseFromBefore) {
    const auto isSpelled = [this](const char* name) {
        const CStringArray all = files.paths();
        return std::find(all.begin(), all.end(), path(name)) != all.end();
    };
    ui.meanwhile = [this] { manager->removeFileFromProject(path("s2.dwg")); };
    const std::string& report = nextReport();
    select({u"S"});
    run(1146);
    EXPECT_EQ(onDisk(), "b.dwg S{S1.DWG T{T.DWG}} a.dwg");
    EXPECT_TRUE(isSpelled("s2.dwg"));
    EXPECT_EQ(report,
        "Drawings changed: 2, skipped: 1.||Skipped:|C:\\P\\s2.dwg: it is not in the project any more||"
        "File names changed:|C:\\P\\S1.DWG|C:\\P\\T.DWG");
    ui.meanwhile = [] {};
    faults.watch = [this, armed = false](FileCall call) mutable { // the save begins
        if (call == FileCall::createFolder || call == FileCall::write)
            if (!std::exchange(armed, true))
                faults.arm({.error = FileError::denied, .kind = FileCall::rename, .lasting = true});
    };
    run(1145);
    faults.watch = [](FileCall) {};
    faults.disarm();
    EXPECT_EQ(onDisk(), "b.dwg S{S1.DWG T{T.DWG}} a.dwg");
    EXPECT_TRUE(isSpelled("s1.dwg"));
    EXPECT_EQ(noticeText().substr(0, 40), "File names that could not be put back: 2");
    EXPECT_EQ(lockCount(), 0u);
}

TEST_F(Commands, fileNames_thatAreInUse_areSkippedAndTold) {
    ui.meanwhile = [this] { surroundings.lockCheck.heldByOthers = {toUpper(path("s1.dwg"))}; };
    faults.arm({.error = FileError::denied, .kind = FileCall::rename}); // the first of them
    const std::string& report = nextReport();
    select({u"S"});
    run(1146);
    EXPECT_EQ(onDisk(), "b.dwg S{s2.dwg s1.dwg T{T.DWG}} a.dwg");
    EXPECT_EQ(report, "Drawings changed: 1, skipped: 2.||Skipped:|C:\\P\\s2.dwg: permission denied|"
                      "C:\\P\\s1.dwg: it could not be locked||File names changed:|C:\\P\\T.DWG");
    EXPECT_EQ(lockCount(), 0u);
}

TEST_F(Commands, questionThatOutlastsItsSubject_changesNothing) {
    struct Case {
        const char16_t* selected;
        int command;
    };
    const Case cases[] = {{u"T", 1136}, {u"t.dwg", 226}, {u"T", 1139}, {u"t.dwg", 207}};
    for (const Case& each : cases) {
        SCOPED_TRACE(each.command);
        ui.meanwhile = [] {};
        reRead("A", plainLines);
        select({each.selected});
        ui.meanwhile = [this] {
            manager->removeFilesFromProject({path("t.dwg")});
            manager->removeSubfoldersFromProject({u"S/T"});
        };
        ui.answerFiles(460, {path("n.dwg")});
        ui.answerFiles(462, {path("n.dwg")});
        ui.answerFiles(463, {path("n.dwg")});
        ui.answerTask(u"RyvPageMan.RemoveSubfoldersAndDrawings", 6);
        run(each.command);
        if (each.command == 207)
            tree->copySelectedDrawing();
        EXPECT_EQ(onDisk(), "b.dwg S{s2.dwg s1.dwg} a.dwg");
        EXPECT_EQ(
            noticeText(), "What the command was about is not in project A any more. Nothing was changed.");
        EXPECT_EQ(lockCount(), 0u);
    }
}

} // namespace
} // namespace ryv::test
