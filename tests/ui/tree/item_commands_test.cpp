// What the commands on drawings and subfolders do.
#include "tests/ui/tree/command_runs.h"

namespace ryv::test {
namespace {

class ItemCommands : public CommandRuns {};

TEST_F(ItemCommands, adding_tellsWhatTheProjectHadBefore) {
    ui.answerFiles(460, {path("n.dwg"), path("a.dwg")});
    select({u"T"});
    run(1136);
    EXPECT_EQ(onDisk(), "b.dwg S{s2.dwg s1.dwg T{t.dwg n.dwg}} a.dwg");
    EXPECT_EQ(noticeText(), "Drawings added: 1. In project A already: 1.");
    EXPECT_EQ(rows(), "*A(b.dwg S(s2.dwg s1.dwg T(t.dwg n.dwg)) a.dwg)");
    documents.openDocument(path("current.dwg"));
    documents.sent.clear();
    select({u"A"});
    run(244);
    documents.runApplicationContext();
    EXPECT_EQ(onDisk(), "b.dwg S{s2.dwg s1.dwg T{t.dwg n.dwg}} a.dwg current.dwg");
    EXPECT_EQ(documents.sentTexts(), CStringArray{u"(c:kq_reread_dwg_params)\r"});
}

TEST_F(ItemCommands, addedDrawings_areSelectedWhereTheyCanBeSeen) {
    documents.openDocument(path("current.dwg"));
    const auto add = [this](std::vector<CString> paths) {
        ui.answerFiles(460, std::move(paths));
        run(tree->GetItemType(tree->focus()) == TreeItemType::project ? 212 : 1136);
    };
    const struct {
        const char* name;
        const char16_t* selected; // nothing below it is expanded
        std::function<void()> command;
        const char* after;
        const char16_t* filter = u"";
    } cases[] = {
        {"collapsed", u"S",
            [&] {
                add({path("n.dwg"), path("m.dwg")});
            },
            "n.dwg m.dwg"},
        {"empty", u"E",
            [&] {
                add({path("n.dwg"), path("a.dwg")});
            },
            "n.dwg"},
        {"project", u"A", [&] { add({path("n.dwg")}); }, "n.dwg"},
        {"hidden by the filter", u"S", [&] { add({path("n.dwg")}); }, "n.dwg", u"s1"},
        {"nothing new", u"S", [&] { add({path("a.dwg")}); }, "S"},
        {"current", u"A", [&] { run(244); }, "current.dwg"},
        {"copy", u"t.dwg",
            [&] {
                ui.answerFiles(463, {path("n.dwg")});
                tree->copySelectedDrawing();
            },
            "n.dwg"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        tree->setFilter({});
        files.erase(path("n.dwg"));
        reRead("A", std::string(plainLines) + "=====SUB=E\n");
        tree->expandAll(nullptr, false);
        select({each.selected});
        tree->setFilter(each.filter);
        each.command();
        EXPECT_EQ(selected(), each.after);
        for (const TreeItem* const item : tree->selection())
            EXPECT_TRUE(item->shown() && isExposed(*item));
    }
}

TEST_F(ItemCommands, newSubfolder_isUniqueAndItsNameIsEdited) {
    select({u"A"});
    run(1144);
    EXPECT_EQ(tree->editedItem(), &row(u"NEW FOLDER"));
    tree->finishEdit(std::nullopt);
    EXPECT_EQ(onDisk(), "b.dwg S{s2.dwg s1.dwg T{t.dwg}} a.dwg NEW FOLDER{}");
    select({u"A"});
    run(1144);
    EXPECT_EQ(tree->editedItem(), &row(u"NEW FOLDER (1)"));
    run(1131); // gives the editing up first
    EXPECT_EQ(tree->editedItem(), nullptr);
    select({u"T"});
    run(1137);
    tree->finishEdit(std::nullopt);
    EXPECT_EQ(onDisk(), "b.dwg S{s2.dwg s1.dwg T{t.dwg NEW FOLDER{}}} a.dwg NEW FOLDER{} NEW FOLDER (1){}");
    EXPECT_EQ(lockCount(), 0u);
}

TEST_F(ItemCommands, newSubfolder_underAFilter_isShown) {
    tree->setFilter(u"s1");
    select({u"S"});
    run(1137);
    ASSERT_TRUE(tree->editedItem());
    EXPECT_EQ(tree->editedItem(), &row(u"NEW FOLDER"));
    EXPECT_TRUE(row(u"NEW FOLDER").shown());
    tree->finishEdit(std::nullopt);
}

TEST_F(ItemCommands, removing_asksAndKeepsFiles) {
    struct Case {
        std::vector<const char16_t*> selected;
        int command;
        const char* list;
        const char* after;
        const char* selectedAfter;
    };
    const Case cases[] = {
        {{u"a.dwg", u"s1.dwg"}, 225, "- s1.dwg\n- a.dwg\n", "b.dwg S{s2.dwg T{t.dwg}}", "T"},
        {{u"T"}, 1139, "- T\n", "b.dwg S{s2.dwg}", "s2.dwg"},
        {{u"b.dwg", u"S", u"s2.dwg"}, 1149, "- b.dwg\n- S\n- s2.dwg\n", "", "A"}};
    for (const Case& each : cases) {
        std::vector<TreeItem*> items;
        for (const char16_t* const label : each.selected) {
            tree->ensureVisible(row(label));
            items.push_back(&row(label));
        }
        tree->setSelection(items);
        ui.answerTask(u"RyvPageMan.RemoveSubfoldersAndDrawings", 7);
        run(each.command);
        ui.answerTask(u"RyvPageMan.RemoveSubfoldersAndDrawings", 6);
        run(each.command);
        EXPECT_EQ(toUtf8(ui.tasks.back().variables[0].second), each.list);
        EXPECT_EQ(onDisk(), each.after);
        EXPECT_EQ(selected(), each.selectedAfter) << each.list;
        EXPECT_EQ(lockCount(), 0u);
    }
    EXPECT_TRUE(files.get(path("t.dwg")));
}

TEST_F(ItemCommands, removing_takesOnlyWhatTheUserWasAskedAbout) {
    ui.meanwhile = [this] {
        manager->SetNewDwgSubfolderTrace(u"S");
        manager->addFileToProject(std::make_unique<RyvPrmFileDetails>(path("n.dwg")));
    };
    select({u"S"});
    ui.answerTask(u"RyvPageMan.RemoveSubfoldersAndDrawings", 6);
    run(1139);
    EXPECT_EQ(onDisk(), "b.dwg S{s2.dwg s1.dwg T{t.dwg} n.dwg} a.dwg");
    EXPECT_EQ(noticeText().substr(0, 37), "There is more in the subfolders now t");
    ui.meanwhile = [] {};
    // A drawing that is listed elsewhere stays there, and names that differ in case are one row.
    reRead("A", "a.dwg\n=====SUB=S\na.dwg\n");
    auto twin = std::make_unique<RyvPrmSubfolder>(u"s");
    twin->add(std::make_unique<RyvPrmFileDetails>(path("t.dwg")));
    manager->getProject(CStringView(id))->editProjectData().addFile(std::move(twin));
    tree->onProjectReRead(id);
    select({u"S"});
    ui.answerTask(u"RyvPageMan.RemoveSubfoldersAndDrawings", 6);
    run(1139);
    EXPECT_EQ(onDisk(), "a.dwg");
}

TEST_F(ItemCommands, linkedProject_asksInOtherWords) {
    RyvPmMiscProjSettings settings =
        manager->getProject(CStringView(id))->getProjectData().getMiscProjSettings();
    const CString link = u"link";
    settings.setValue(39, &link);
    const CStringArray asked = {u"task RyvPageMan.RemoveSubfoldersAndDrawingsLinkBreak",
        u"task RyvPageMan.RemoveSubfoldersAndDrawings", u"file 462",
        u"task RyvPageMan.ReplaceDrawingLinkBreak"};
    const std::function<void()> links[] = {
        [&] { manager->setMiscProjSettingsInProject(settings, CStringView(id)); },
        [&] {
            files.put(path("A.rypx"), "RYPX 1\nnext=1\nlinked=other\tthere\n");
            reRead("A", plainLines);
        }};
    for (const auto& linkUp : links) {
        ui.asked.clear();
        linkUp();
        select({u"S"});
        run(1139);
        select({u"a.dwg"});
        run(225);
        ui.answerFiles(462, {path("n.dwg")});
        run(226);
        EXPECT_EQ(ui.asked, asked);
        EXPECT_EQ(onDisk(), plainTree);
    }
}

TEST_F(ItemCommands, replacing_refusesWhatIsListed) {
    select({u"a.dwg"});
    ui.answerFiles(462, {path("b.dwg")});
    run(226);
    EXPECT_EQ(ui.messages.back().message, 470);
    ui.answerFiles(462, {path("n.dwg")});
    run(226);
    EXPECT_EQ(onDisk(), "b.dwg S{s2.dwg s1.dwg T{t.dwg}} n.dwg");
    EXPECT_EQ(rows(), "*A(b.dwg S(s2.dwg s1.dwg T(t.dwg)) n.dwg)");
}

TEST_F(ItemCommands, replacingAnOpenDrawing_closesItsDocument) {
    const CString opening = u"_.open \"C:\\P\\n.dwg\"\r";
    const CString closing = u"_.close\r";
    files.put(path("n.dwg"), "drawing");
    DocumentId document = DocumentId::none;
    const auto nothing = [] {};
    const auto listedByAnother = [this] { open("B", "a.dwg\n"); };
    const auto leftFront = [this] { documents.openDocument(path("b.dwg")); };
    const struct {
        const char* name;
        std::function<void()> before;    // the command
        std::function<void()> meanwhile; // while the user chooses
        std::function<void()> after;     // before the host gets to it
        CStringArray sent;
        const char* notice = "";
        bool replaces = true;
    } cases[] = {
        {"in front", nothing, nothing, nothing, {opening, closing}},
        {"behind another", leftFront, nothing, nothing, {closing}},
        {"opened while asked", [&] { documents.closeDocument(document); },
            [&] { document = documents.openDocument(path("a.dwg")); }, nothing, {opening, closing}},
        {"closed while asked", nothing, [&] { documents.closeDocument(document); }, nothing, {}},
        {"closed behind the command", nothing, nothing, [&] { documents.closeDocument(document); }, {}},
        {"listed again", nothing, nothing,
            [this] { manager->addFileToProject(std::make_unique<RyvPrmFileDetails>(path("a.dwg"))); }, {}},
        {"listed by another project", listedByAnother, nothing, nothing, {}},
        {"at work", [&] { documents.setQuiescent(document, false); }, nothing, nothing, {},
            "a.dwg was replaced in the project, but stays open, because a command runs in it."},
        {"taken out while asked", nothing, [this] { manager->removeFileFromProject(path("a.dwg")); }, nothing,
            {}, "What the command was about is not in project A any more. Nothing was changed.", false},
        {"project closed while asked", nothing, [this] { manager->closeProject(id, true); }, nothing, {}, "",
            false},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        manager->closeProject(path("B.kqp"), true);
        manager->openProject(id, true);
        reRead("A", plainLines);
        for (const DocumentId open : documents.documents())
            documents.closeDocument(open);
        documents.openDocument(path("first.dwg"));
        document = documents.openDocument(path("A.dwg"));
        tree->notice().clear();
        documents.sent.clear();
        select({u"a.dwg"});
        each.before();
        ui.answerFiles(462, {path("n.dwg")});
        ui.meanwhile = each.meanwhile;
        run(226);
        ui.meanwhile = nothing;
        each.after();
        documents.runApplicationContext();
        EXPECT_EQ(documents.sentTexts(), each.sent);
        EXPECT_EQ(documents.sent.empty() ? document : documents.sent.back().document, document);
        EXPECT_EQ(noticeText().substr(0, std::string(each.notice).size()), each.notice);
        EXPECT_EQ(onDisk().find("n.dwg") != std::string::npos, each.replaces);
        EXPECT_EQ(lockCount(), 0u);
    }
}

TEST_F(ItemCommands, copying_takesTheDrawingThatTheMenuWasFor) {
    select({u"t.dwg"});
    run(207);
    select({u"a.dwg"});
    ui.answerFiles(463, {path("n.dwg")});
    tree->copySelectedDrawing();
    EXPECT_EQ(onDisk(), "b.dwg S{s2.dwg s1.dwg T{t.dwg n.dwg}} a.dwg");
    select({u"a.dwg"});
    ui.answerFiles(463, {path("m.dwg")});
    tree->copySelectedDrawing();
    EXPECT_EQ(onDisk(), "b.dwg S{s2.dwg s1.dwg T{t.dwg n.dwg}} a.dwg m.dwg") << "now the selected one";
}

TEST_F(ItemCommands, copying_savesTheCurrentDrawingAndNeverReplaces) {
    const auto copyTo = [this](const char* name) {
        ui.answerFiles(463, {path(name)});
        tree->copySelectedDrawing();
    };
    select({u"t.dwg"});
    copyTo("copy");
    EXPECT_EQ(onDisk(), "b.dwg S{s2.dwg s1.dwg T{t.dwg copy.dwg}} a.dwg");
    EXPECT_EQ(files.get(path("copy.dwg")), "drawing");
    select({u"t.dwg"});
    copyTo("a.dwg");
    EXPECT_EQ(ui.messages.back().message, 470);
    files.put(path("taken.dwg"), "another");
    copyTo("taken.dwg");
    EXPECT_EQ(ui.messages.back().message, 471);
    EXPECT_EQ(files.get(path("a.dwg")), "drawing");
    EXPECT_EQ(files.get(path("taken.dwg")), "another");
    documents.openDocument(path("t.dwg"));
    surroundings.lisp.answer(u"veval-str+", HostResultBuffer().addTruth());
    surroundings.lisp.setVariable(u"GBL_QSave_accept", HostResultBuffer().addInteger(0));
    copyTo("second.dwg");
    EXPECT_FALSE(files.get(path("second.dwg"))) << "not saved";
    surroundings.lisp.setVariable(u"GBL_QSave_accept", HostResultBuffer().addInteger(1));
    const CString b = open("B", "x.dwg\n");
    ui.answerForm(u"copy_drawing", {{u"project", {u"B"}}});
    tree->copySelectedDrawing();
    EXPECT_EQ(onDisk(b), "x.dwg second.dwg");
    EXPECT_EQ(noticeText(), "second.dwg was added to project B.");
}

TEST_F(ItemCommands, openAndClose_goThroughDocuments) {
    files.erase(path("b.dwg"));
    select({u"s1.dwg", u"a.dwg", u"b.dwg"});
    tree->DrawingMenuOpen();
    EXPECT_EQ(
        documents.sentTexts(), (CStringArray{u"_.open \"C:\\P\\s1.dwg\"\r", u"_.open \"C:\\P\\a.dwg\"\r"}));
    EXPECT_EQ(noticeText().substr(0, 23), "b.dwg was not found in ");
    files.erase(path("s1.dwg"));
    tree->DrawingMenuOpen();
    EXPECT_EQ(noticeText(), "2 of the drawings could not be opened.");
    const DocumentId first = documents.openDocument(path("S1.dwg"));
    documents.openDocument(path("other.dwg"));
    documents.sent.clear();
    run(205);
    documents.runApplicationContext();
    ASSERT_EQ(documents.sent.size(), 1u);
    EXPECT_EQ(documents.sent[0].document, first);
    EXPECT_EQ(documents.sent[0].text, u"_.close\r");
}

} // namespace
} // namespace ryv::test
