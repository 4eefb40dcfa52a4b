#include "manager/project_manager.h"

#include "resources/message_numbers.h"
#include "tests/manager/manager_fixture.h"

#include <stdexcept>

namespace ryv::test {
namespace {

using ProjectManagerTest = ManagerFixture;

TEST_F(ProjectManagerTest, lookUps_ignoreCaseAndSlashes) {
    const CString a = project("My.Proj", {"one"});
    EXPECT_EQ(manager->getProjectIndex(a), -1);
    EXPECT_EQ(manager->getProject(std::nullopt), nullptr);
    ASSERT_TRUE(open(u"C:/P/My.Proj.kqp", true));
    EXPECT_EQ(manager->getProjectCount(), 1);
    EXPECT_EQ(manager->getProjectIndex(u"c:/p\\my.proj.KQP"), 0);
    EXPECT_EQ(manager->getProjectIndex(std::nullopt), -1);
    EXPECT_EQ(manager->getProject(std::nullopt), manager->getProject(0));
    EXPECT_EQ(manager->getProject(1), nullptr);
    EXPECT_EQ(manager->getProject(-1), nullptr);
    EXPECT_EQ(GetActiveProject(), manager->getProject(u"C:/p/MY.proj.kqp"));
    CString text;
    EXPECT_TRUE(manager->getProjectFullPath(u"mY.pROJ", text));
    EXPECT_EQ(text, a);
    EXPECT_TRUE(manager->getProjNameFromID(u"C:\\x\\My.Proj.kqp", text));
    EXPECT_EQ(text, u"MY.PROJ");
    EXPECT_TRUE(manager->makeProjectPrettyNameFromID(std::nullopt, text));
    EXPECT_EQ(text, u"MY.PROJ");
    EXPECT_TRUE(manager->isFileInProject(u"c:/P/ONE.dwg"));
    EXPECT_TRUE(manager->isInProject(u"c:/P/ONE.dwg"));
    EXPECT_FALSE(manager->isInProject(u"C:\\P\\two.dwg", a));
    EXPECT_EQ(FindDwgInOpenProject(u"C:/P/one.DWG"), manager->getProject(0));
}

TEST_F(ProjectManagerTest, projectOfADrawing_isTheActiveOneFirst) {
    const CString a = project("a", {"shared", "onlyA"});
    const CString b = project("b", {"shared"});
    CString found;
    open(a);
    EXPECT_FALSE(manager->findMatchingProject(u"C:\\P\\shared.dwg", found)); // none is active
    open(b, true);
    EXPECT_TRUE(manager->findMatchingProject(u"C:\\P\\shared.dwg", found));
    EXPECT_EQ(found, b);
    EXPECT_TRUE(manager->findMatchingProject(u"C:\\P\\onlyA.dwg", found));
    EXPECT_EQ(found, a);
}

TEST_F(ProjectManagerTest, filesThatBelongToAProject) {
    const CString a = project("a", {"one"});
    files.put(path("a.rypx"), "RYPX 1\n");
    open(a, true);
    CString text;
    EXPECT_TRUE(manager->generateTaskFileNameForProject(u"C:/P/a.kqp", text));
    EXPECT_EQ(text, u"C:\\P\\A_update.mdb");
    EXPECT_TRUE(manager->generateProjectFileNameFromTaskName(u"C:/P/a_Update.mdb", text));
    EXPECT_EQ(text, u"C:\\P\\A.kqp");
    EXPECT_FALSE(manager->generateProjectFileNameFromTaskName(u"C:\\x_update.mdb\\a.mdb", text));
    EXPECT_FALSE(manager->projectHasTasks());
    files.put(u"C:\\P\\A_update.mdb", "");
    EXPECT_TRUE(manager->projectHasTasks(u"C:/p/A.kqp"));

    EXPECT_FALSE(manager->getProjectDbFullPath(a, text));
    surroundings.projectDatabase.paths[toUpper(a)] = u"D:\\db.mdb";
    EXPECT_TRUE(manager->getProjectDbFullPath(a, text));
    EXPECT_EQ(text, u"D:\\db.mdb");
    surroundings.userFolders.userDirectory = u"E:\\db\\";
    EXPECT_TRUE(manager->getProjectDbFullPath(a, text));
    EXPECT_EQ(text, u"E:\\db\\A.mdb");

    CStringList list;
    EXPECT_TRUE(manager->getProjectFiles(list));
    EXPECT_EQ(list, (CStringList{a, path("one.dwg")}));
    CStringArray packed;
    EXPECT_FALSE(manager->getProjectFilesToBePacked(packed));
    manager->setProjectToBePacked(u"C:\\P\\a.KQP"); // taken as a drawing, which none of the projects lists
    EXPECT_TRUE(manager->getProjectToBePacked().empty());
    manager->setProjectToBePacked(u"C:/P/one.dwg");
    EXPECT_EQ(manager->getProjectToBePacked(), a);
    EXPECT_TRUE(manager->getProjectFilesToBePacked(packed));
    EXPECT_EQ(packed, (CStringArray{a, path("a.rypx"), path("one.dwg")}));
    manager->resetProjectToBePacked();
    manager->setProjectToBePacked(u"");
    EXPECT_EQ(manager->getProjectToBePacked(), a);
}

TEST_F(ProjectManagerTest, open_firesInOrderAndRecords) {
    const CString a = project("a");
    EXPECT_FALSE(manager->openProject(std::nullopt, true));
    EXPECT_FALSE(open(path("missing.kqp"), true));
    EXPECT_EQ(story(), "");
    EXPECT_TRUE(open(a));
    EXPECT_EQ(story(), "open a.kqp");
    EXPECT_EQ(lastProjects(), "a.kqp:1");
    EXPECT_TRUE(open(a)); // open already
    EXPECT_EQ(story(), "");
    EXPECT_TRUE(open(a, true));
    EXPECT_EQ(story(), "veto?, setActive a.kqp, actived a.kqp");
    EXPECT_EQ(lastProjects(), "a.kqp:2");
    EXPECT_TRUE(manager->setActiveProject(u"c:/p/A.KQP"));
    EXPECT_EQ(story(), "");
    surroundings.documents.open = true;
    surroundings.lisp.answer(u"c:ryv_update_dwg_lst", HostResultBuffer().addNil());
    EXPECT_TRUE(open(project("b"), true));
    EXPECT_EQ(story(), "open b.kqp, veto?, setActive b.kqp, deactivate a.kqp, actived b.kqp");
    EXPECT_EQ(lastProjects(), "b.kqp:2 a.kqp:1");
    EXPECT_EQ(surroundings.lisp.calls().back().front(), u"c:ryv_update_dwg_lst");
    EXPECT_EQ(surroundings.catalogBrowser.notified, 2u);
}

TEST_F(ProjectManagerTest, catalogBrowserThatCannotBeLoaded_isNamed_andLookedForAgain) {
    surroundings.catalogBrowser.available = false;
    open(project("a"), true);
    EXPECT_EQ(surroundings.console.printed, u"Unable to load module [RYVCATALOGBROWSERMGDREV.dll].\n");
    surroundings.catalogBrowser.available = true;
    manager->reReadProject();
    manager->reReadProject();
    EXPECT_EQ(surroundings.catalogBrowser.loaded.size(), 2u);
    EXPECT_EQ(surroundings.catalogBrowser.notified, 2u);
}

TEST_F(ProjectManagerTest, secondProjectOfAName_isRefused_unlessTheCheckIsSkipped) {
    open(project("a"));
    files.put(u"D:\\A.kqp", "\n");
    CString existing;
    EXPECT_TRUE(manager->isProjectSameNameAsExisting(u"D:\\A.kqp", &existing));
    EXPECT_EQ(existing, path("a.kqp"));
    EXPECT_FALSE(open(u"D:\\A.kqp"));
    EXPECT_TRUE(manager->openProject(u"D:\\A.kqp", false, true));
    EXPECT_EQ(manager->getProjectCount(), 2);
}

TEST_F(ProjectManagerTest, open_whileACommandRuns_isRecordedLater) {
    const DocumentId document = surroundings.documents.openDocument(u"C:\\d.dwg");
    surroundings.documents.setQuiescent(document, false);
    open(project("a"));
    EXPECT_EQ(lastProjects(), "");
    EXPECT_TRUE(state.deferredRequests().flush());
    EXPECT_EQ(lastProjects(), "a.kqp:1");
    EXPECT_FALSE(state.deferredRequests().flush());
}

TEST_F(ProjectManagerTest, veto_keepsTheActiveProject) {
    open(project("a"), true);
    story();
    recorder->veto = true;
    EXPECT_TRUE(open(project("b"), true)); // opened, not activated
    EXPECT_EQ(story(), "open b.kqp, veto?");
    EXPECT_TRUE(manager->isActiveProject(path("a.kqp")));
    EXPECT_TRUE(manager->sendEventVetoCheck());
}

TEST_F(ProjectManagerTest, limitOfOpenProjects_closesTheFirstThatIsNotActive) {
    for (int i = 0; i < 31; ++i)
        ASSERT_TRUE(open(project("p" + std::to_string(i))));
    EXPECT_EQ(manager->getProjectCount(), 31);
    story();
    manager->setActiveProject(path("p0.kqp"));
    EXPECT_EQ(story(), "veto?, setActive p0.kqp, close p1.kqp, actived p0.kqp");
    open(project("p31"), true);
    EXPECT_EQ(
        story(), "open p31.kqp, veto?, setActive p31.kqp, deactivate p0.kqp, close p0.kqp, actived p31.kqp");
    EXPECT_EQ(manager->getProjectCount(), 30);
}

TEST_F(ProjectManagerTest, close_keepsTheActiveName) {
    const CString a = project("a");
    open(a, true);
    EXPECT_FALSE(manager->closeProject(a, false));
    EXPECT_FALSE(manager->closeProject(path("b.kqp"), true));
    story();
    EXPECT_TRUE(manager->closeProject(u"c:/p/a.kqp", true));
    EXPECT_EQ(story(), "close a.kqp");
    EXPECT_EQ(lastProjects(), "a.kqp:0");
    EXPECT_TRUE(manager->isActiveProject(a));
    EXPECT_EQ(manager->getActiveProject(), nullptr);
    CString id = u"untouched";
    EXPECT_FALSE(manager->getActiveProjectID(id));
    EXPECT_EQ(id, u"untouched");
    EXPECT_TRUE(surroundings.monitor.watched.empty());
    open(a);
    EXPECT_EQ(manager->getActiveProject(), manager->getProject(0));
}

TEST_F(ProjectManagerTest, closeAllNonActive_raisesWithAnyProjectOpen) {
    EXPECT_TRUE(manager->closeAllNonActiveProjects());
    EXPECT_EQ(story(), "closeAll");
    open(project("a"));
    EXPECT_THROW(manager->closeAllNonActiveProjects(), std::invalid_argument);
    EXPECT_EQ(manager->getProjectCount(), 1);
}

TEST_F(ProjectManagerTest, reRead_bringsInWhatOthersWrote_andKeepsItOtherwise) {
    const CString a = project("a", {"one"});
    EXPECT_FALSE(manager->reReadProject());
    open(a, true);
    story();
    RyvPrmFileDetails* const before = manager->getProject(0)->getProjectData().findFile(path("one.dwg"));
    EXPECT_TRUE(manager->reReadProject()); // nothing changed: announced, and nothing disturbed
    EXPECT_EQ(story(), "preReRead a.kqp, reRead a.kqp");
    EXPECT_EQ(manager->getProject(0)->getProjectData().findFile(path("one.dwg")), before);
    files.put(a, "two.dwg\n");
    EXPECT_TRUE(manager->reReadProject(a));
    EXPECT_TRUE(manager->isFileInProject(path("two.dwg")));
    story();
    files.put(a, ""); // somebody begins to write it in place
    EXPECT_FALSE(manager->reReadProject());
    files.erase(a);
    EXPECT_FALSE(manager->reReadProject());
    EXPECT_EQ(story(), "preReRead a.kqp, preReRead a.kqp");
    EXPECT_TRUE(manager->isFileInProject(path("two.dwg")));
}

TEST_F(ProjectManagerTest, reRead_letsLispReadToo_orLaterWhenItIsBusy) {
    const DocumentId document = surroundings.documents.openDocument(u"C:\\d.dwg");
    open(project("a"), true);
    manager->reReadProject();
    ASSERT_EQ(surroundings.documents.sent.size(), 1u);
    EXPECT_EQ(surroundings.documents.sent[0].text, u"(c:ryv_kqp_reread)\r");
    state.projectReread().queuedHasRun();
    surroundings.documents.setQuiescent(document, false);
    manager->reReadProject();
    EXPECT_EQ(surroundings.documents.sent.size(), 1u);
    EXPECT_EQ(state.deferredRequests().count(), 1u);
    surroundings.documents.setQuiescent(document, true);
    EXPECT_TRUE(state.deferredRequests().flush());
    EXPECT_EQ(surroundings.documents.sent.size(), 2u);
}

TEST_F(ProjectManagerTest, replace_activatesTheNextFirst) {
    const CString a = project("a");
    open(a, true);
    EXPECT_FALSE(manager->replaceOpenProject(a, project("n"), true)); // the only one
    open(project("b"));
    open(project("c"));
    manager->setActiveProject(path("c.kqp"));
    story();
    EXPECT_TRUE(manager->replaceOpenProject(path("c.kqp"), path("n.kqp"), true));
    EXPECT_EQ(story(),
        "veto?, setActive a.kqp, deactivate c.kqp, actived a.kqp, close c.kqp, open n.kqp, veto?, "
        "setActive n.kqp, deactivate a.kqp, actived n.kqp");
    EXPECT_FALSE(manager->replaceOpenProject(u"", a, true));
}

TEST_F(ProjectManagerTest, replaceWithPrompt_asksOrExplains) {
    surroundings.taskDialogs.dialogs[u"RyvPageMan.BrowseOpenLastProjSameName"];
    const CString a = project("a");
    open(a);
    files.put(u"D:\\a.kqp", "\n");
    EXPECT_FALSE(manager->replaceOpenProjectWithPrompt(a, u"D:\\a.kqp", true));
    ASSERT_EQ(surroundings.ui.tasks.size(), 1u);
    EXPECT_EQ(surroundings.ui.tasks[0].variables[0].second, u"A");
    open(project("b"));
    EXPECT_FALSE(manager->replaceOpenProjectWithPrompt(a, u"D:\\a.kqp", true)); // no answer: No
    surroundings.ui.answerMessage(message::replaceOpenProject, Answer::yes);
    EXPECT_TRUE(manager->replaceOpenProjectWithPrompt(a, u"D:\\a.kqp", true));
    EXPECT_TRUE(manager->isActiveProject(u"D:\\a.kqp"));
    EXPECT_EQ(surroundings.ui.messages.back().icon, MessageIcon::warning);
}

TEST_F(ProjectManagerTest, movedProject_forgetsIdentifiersOfDrawingsThatItLacks) {
    const CString a = project("a");
    open(a, true);
    open(project("b"));
    files.put(u"D:\\a.kqp", "one.dwg\n");
    files.put(u"D:\\a.rypx", "RYPX 1\nnext=3\nid=1\tone.dwg\nid=2\ttwo.dwg\n");
    EXPECT_TRUE(manager->projectMoved(a, u"D:/a.kqp"));
    EXPECT_TRUE(manager->isActiveProject(u"D:\\a.kqp"));
    EXPECT_EQ(bytes(u"D:\\a.rypx").find("two.dwg"), std::string::npos);
}

TEST_F(ProjectManagerTest, addin_isForwardedWhileHooked) {
    IRyvAddinHandler& addin = *manager->getAddinHandler();
    EXPECT_FALSE(addin.synchronize());
    manager->hookOZMZarnEventHandler();
    EXPECT_TRUE(addin.synchronize());
    CStringArray found;
    addin.queryOZMFiles(found);
    addin.queryNonActiveProjOZMFiles(u"X", found);
    addin.relinkProject(u"C:\\old", u"C:\\new");
    EXPECT_EQ(found, (CStringArray{u"a.ozm", u"X"}));
    EXPECT_EQ(story(), "synchronize, relink old new");
    manager->unHookOZMZarnEventHandler();
    EXPECT_FALSE(addin.synchronize());
}

TEST_F(ProjectManagerTest, locks_ofTheActiveProjectsFiles_goThroughTheLockCheck) {
    CStringList locked;
    EXPECT_FALSE(manager->lockProjectFiles(locked));
    open(project("a", {"one"}), true);
    EXPECT_TRUE(manager->lockProjectFiles(locked));
    EXPECT_EQ(locked, (CStringList{path("a.kqp"), path("one.dwg")}));
    EXPECT_EQ(surroundings.lockCheck.checks.back().firstFlag, 1);
    EXPECT_EQ(surroundings.lockCheck.checks.back().secondFlag, 0);
    EXPECT_TRUE(manager->unlockProjectFiles(locked));
    EXPECT_TRUE(surroundings.lockCheck.locked.empty());

    CString who = u"untouched";
    EXPECT_EQ(manager->whoHasProjectFileLocked(std::nullopt, &who, nullptr, nullptr), lockInvalid);
    EXPECT_TRUE(manager->lockProjectFile(u"C:/P/a.kqp"));
    EXPECT_TRUE(manager->isProjectFileLocked(u"C:/P/a.kqp"));
    EXPECT_EQ(manager->whoHasProjectFileLocked(u"C:/P/a.kqp", &who, nullptr, nullptr), lockMine);
    EXPECT_EQ(who.substr(0, 8), u"ann(DESK");
    EXPECT_TRUE(manager->unlockProjectFile(u"C:/P/a.kqp"));
    EXPECT_FALSE(manager->unlockProjectFile(u"C:/P/a.kqp"));
}

} // namespace
} // namespace ryv::test
