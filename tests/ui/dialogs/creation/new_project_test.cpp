#include "embedded/os/posix_platform.h"
#include "tests/support/temp_folder.h"
#include "tests/ui/dialogs/creation/creation_fixture.h"
#include "ui/dialogs/creation/new_project.h"
#include "ui/dialogs/creation/new_project_dialog.h"
#include "ui/dialogs/creation/project_maker.h"

namespace ryv::test {
namespace {

using Dlg = CRyvCfgProjNewDlg;

class NewProject : public CreationFixture {
protected:
    CString registered() {
        return surroundings.registry.string(
            surroundings.profile.key + u"\\Settings\\ProjNewDlg", u"SettingsFile");
    }
    void registers(CStringView file) {
        surroundings.registry.put(
            surroundings.profile.key + u"\\Settings\\ProjNewDlg", u"SettingsFile", CString(file));
    }

    std::vector<NewProjectValues> made;
    bool canMake = true;
    Dlg dialog{[this](const NewProjectValues& values) {
        made.push_back(values);
        return canMake;
    }};
};

TEST_F(NewProject, path_isMadeOfFolderAndName) {
    const struct {
        const char16_t* script;
        const char* path;
    } cases[] = {{u"name=MyProj.kqp; folder=C:\\Proj; ownFolder=1", "C:\\Proj\\MyProj\\MyProj.kqp"},
        {u"name=\" Plant 2 \"; folder=; ownFolder=0", "C:\\P\\Plant 2.kqp"},
        {u"name=a.b.txt; folder=\\home\\u\\", "\\home\\u\\a.b.kqp"}, {u"folder=C:/a/../b/", "C:\\b\\a.b.kqp"},
        {u"name=; folder=C:\\Proj", ""}};
    dialog.begin();
    EXPECT_EQ(text(dialog, Dlg::folderId), "C:\\P");
    for (const auto& each : cases) {
        play(dialog, each.script);
        EXPECT_EQ(text(dialog, Dlg::pathId), each.path);
    }
}

TEST_F(NewProject, ok_staysOpenAtTheFieldAtFault) {
    files.put(u"C:\\P\\old.kqp", "");
    files.put(u"C:\\P\\dir.kqp\\x", "");
    const struct {
        const char16_t* script;
        std::string message;
        int focus;
    } cases[] = {{u"name=OLD", "3021", Dlg::nameId}, {u"name=dir", "3021", Dlg::nameId},
        {u"name=", "3020", Dlg::nameId}, {u"name=n; folder=here", "3022", Dlg::folderId},
        {u"folder=C:\\P; name=a/b", "3022", Dlg::folderId}, {u"name=a|b", "482", Dlg::nameId},
        {u"name=ends.", "", 0}, {u"name=n; settings=C:\\none.kqp", "3023", Dlg::settingsId},
        {u"settings=C:\\P\\dir.kqp", "3023", Dlg::settingsId}, {u"settings=", "3024", Dlg::settingsId}};
    for (const auto& each : cases) {
        dialog.begin();
        made.clear();
        play(dialog, each.script);
        dialog.press(Dialog::idOk);
        EXPECT_EQ(messages(), each.message) << toUtf8(each.script);
        EXPECT_EQ(dialog.isOpen(), !each.message.empty()) << toUtf8(each.script);
        EXPECT_EQ(made.empty(), !each.message.empty());
        if (dialog.isOpen())
            EXPECT_EQ(dialog.focus(), each.focus) << toUtf8(each.script);
    }
    play(dialog, u"folder=C:\\" + CString(1000, u'x'));
    dialog.press(Dialog::idOk);
    EXPECT_EQ(messages(), "3022");
}

TEST_F(NewProject, settings_startAsTheLastOnes_orTheHostsWhereNoneAreKnown) {
    const struct {
        const char16_t* registered;
        bool isActive;
        bool isShipped;
        const char* shown;
        const char* taken; ///< as the source, when nothing is typed; empty: OK is refused
    } cases[] = {{u"", false, true, "C:\\T\\default.kqp", "C:\\T\\default.kqp"}, {u"", false, false, "", ""},
        {u"C:\\s.kqp", false, true, "C:\\s.kqp", "C:\\s.kqp"}, {u"", true, true, "", "C:\\P\\a.kqp"},
        {u"C:\\s.kqp", true, true, "C:\\s.kqp", "C:\\s.kqp"}};
    files.put(u"C:\\s.kqp", "");
    for (const auto& each : cases) {
        registers(each.registered);
        if (each.isActive)
            activate("a", "");
        if (!each.isShipped)
            files.erase(u"C:\\T\\default.kqp");
        else
            files.put(u"C:\\T\\default.kqp", "");
        Dlg fresh([this](const NewProjectValues& values) {
            made.push_back(values);
            return true;
        });
        made.clear();
        fresh.begin();
        EXPECT_EQ(text(fresh, Dlg::settingsId), each.shown);
        play(fresh, u"name=n; ok");
        ASSERT_EQ(made.size(), *each.taken ? 1u : 0u);
        if (*each.taken)
            EXPECT_EQ(toUtf8(made[0].source), each.taken);
    }
}

TEST_F(NewProject, ok_remembersTheSettings_alsoWhenMakingFails_andTheFolderBox) {
    files.put(u"C:\\s.kqp", "");
    dialog.begin();
    canMake = false;
    play(dialog, u"name=n; ownFolder=1; settings=\"  C:/s.kqp \"; ok");
    EXPECT_TRUE(dialog.isOpen());
    EXPECT_EQ(registered(), u"C:\\s.kqp");
    EXPECT_EQ(text(dialog, Dlg::nameId), "n");
    canMake = true;
    EXPECT_TRUE(dialog.press(Dialog::idOk));
    EXPECT_FALSE(dialog.isOpen());
    EXPECT_EQ(made.size(), 2u);
    EXPECT_TRUE(state.newProjectInOwnFolder);
    Dlg next([](const NewProjectValues&) { return true; });
    next.begin();
    play(next, u"name=n");
    EXPECT_EQ(text(next, Dlg::pathId), "C:\\P\\n\\n.kqp");
    play(next, u"ownFolder=0; cancel");
    EXPECT_FALSE(state.newProjectInOwnFolder);
}

TEST_F(NewProject, buttons_fillTheFieldsIn) {
    surroundings.lisp.answer(u"c:ryv_proj_edit_proj_description_lines",
        HostResultBuffer().addString(u"Pumps").addString(u"").addString(u"North"));
    surroundings.ui.answerFiles(message::newProjectChooseFolder, {u"C:\\F"});
    surroundings.ui.answerFiles(message::newProjectChooseSettings, {u"C:\\T\\default.kqp"});
    dialog.begin();
    play(dialog, u"name=n; browseFolder; browseSettings; editLines; properties=1; browseFolder");
    EXPECT_TRUE(surroundings.ui.fileRequests[0].choosesFolder);
    EXPECT_EQ(text(dialog, Dlg::pathId), "C:\\F\\n.kqp");
    EXPECT_EQ(text(dialog, Dlg::linesId), "Pumps\n\nNorth");
    canMake = false;
    surroundings.lisp.answer(u"c:ryv_proj_edit_proj_description_lines", HostResultBuffer().addNil());
    play(dialog, u"editLines; ok"); // cancelled there
    surroundings.lisp.answer(u"c:ryv_proj_edit_proj_description_lines", HostResultBuffer().addString(u""));
    play(dialog, u"editLines; value9=\" 2 \"; ok"); // all emptied
    EXPECT_FALSE(dialog.find(Dlg::linesId)->isVisible());
    ASSERT_EQ(made.size(), 2u);
    EXPECT_EQ(made[0].descriptions, (CStringArray{u"Pumps", u"", u"North"}));
    EXPECT_EQ(made[1].descriptions, CStringArray());
    EXPECT_EQ(made[0].setting9, std::nullopt);
    EXPECT_EQ(made[1].setting9, u"2");
    EXPECT_TRUE(made[0].showsProperties);
}

TEST_F(NewProject, making_takesTheSettingsAndNeitherDrawingsNorLink) {
    files.put(
        u"C:\\s.kqp", "*[1]old\n+[1]C:\\lib\n+[9]1\n+[39]outside\n?[5]%L%N\n=====SUB=S\na.dwg\nb.dwg\n");
    NewProjectValues values{u"C:\\P\\n.kqp", u"C:\\s.kqp", {u"", u"Pumps"}, {}, false};
    for (const bool sets : {false, true}) {
        if (sets) {
            values.setting9 = u"2";
            files.erase(values.path);
        }
        EXPECT_TRUE(makeProject(values));
        RyvPrmKQPFiler filer(values.path, false, true);
        RyvPrmProjectData data;
        filer.readProject(data);
        EXPECT_TRUE(data.getProjFileDetails().empty());
        EXPECT_EQ(data.getProjDescriptions(), (CStringList{u"", u"Pumps"}));
        EXPECT_EQ(*data.getProjDefKQMVals().find(5), u"%L%N");
        const auto& misc = data.getMiscProjSettings().values();
        EXPECT_EQ(misc.at(1), u"C:\\lib");
        EXPECT_EQ(misc.at(9), sets ? u"2" : u"1");
        EXPECT_EQ(misc.at(39), u"");
    }
    EXPECT_EQ(messages(), "");
    EXPECT_EQ(content(u"C:\\s.kqp").substr(0, 8), "*[1]old\n");
    files.erase(values.path);
    files.put(u"C:\\s.kqp", "a.dwg\n"); // has no settings
    EXPECT_TRUE(makeProject(values));
    EXPECT_TRUE(content(values.path).starts_with("*[2]Pumps\n+[9]2\n+[39]\n?")) << content(values.path);
    files.put(values.path, "somebody else's");
    EXPECT_FALSE(makeProject(values));
    EXPECT_EQ(content(values.path), "somebody else's");
    EXPECT_EQ(messages(), "3027");
}

TEST_F(NewProject, makingThatFails_isToldAndLeavesTheDialogOpen) {
    files.put(u"C:\\P\\x", "");
    const struct {
        Fault fault;
        const char* message;
    } cases[] = {{{FileError::denied, 1, FileCall::createFolder, true}, "3025"},
        {{FileError::denied, 1, FileCall::open, true}, "3026"},
        {{FileError::io, 1, FileCall::read, true}, "3026"},
        {{FileError::noSpace, 1, FileCall::write, true}, "3027"},
        {{FileError::io, 1, FileCall::rename}, "3027"}};
    for (const auto& each : cases) {
        surroundings.ui.answerDialog([&](Dialog& shown) {
            shown.begin();
            play(shown, u"name=n; ownFolder=1");
            faults.arm(each.fault);
            shown.press(Dialog::idOk);
            faults.disarm();
            EXPECT_TRUE(shown.isOpen());
            EXPECT_EQ(messages(), each.message);
            EXPECT_EQ(content(u"C:\\P\\n\\n.kqp"), "(none)");
            shown.pressCancel();
            return shown.result();
        });
        makeNewProject();
        EXPECT_EQ(manager->getProjectCount(), 0);
    }
}

TEST_F(NewProject, command_opensWhatWasMade_afterTheVeto) {
    struct Veto {
        bool objects = true;
        void ask(bool& vetoed) { vetoed = objects; }
    } veto;
    manager->OnProjectEventVetoCheck.subscribe(veto, &Veto::ask);
    makeNewProject();
    EXPECT_TRUE(surroundings.ui.asked.empty());
    veto.objects = false;
    answerDialog(u"name=n; ok");
    EXPECT_EQ(makeNewProject(), u"C:\\P\\n.kqp");
    EXPECT_TRUE(manager->isActiveProject(u"C:\\P\\n.kqp"));
    answerDialog(u"name=n; settings=; folder=C:\\Q; ok"); // of the name of the only one that is open
    makeNewProject();
    EXPECT_TRUE(manager->isActiveProject(u"C:\\P\\n.kqp"));
    EXPECT_EQ(surroundings.ui.tasks.size(), 1u);
    EXPECT_EQ(content(u"C:\\Q\\n.kqp"), content(u"C:\\P\\n.kqp"));
    answerDialog(u"name=m; properties=1; ok");
    closeDialog(); // the properties
    makeNewProject();
    EXPECT_EQ(surroundings.ui.unusedAnswers(), 0u);
    EXPECT_TRUE(surroundings.lockCheck.locked.empty());
    answerDialog(u"name=m; folder=C:\\Q; ok");
    surroundings.ui.answerMessage(173, Answer::yes);
    makeNewProject();
    EXPECT_TRUE(manager->isActiveProject(u"C:\\Q\\m.kqp"));
    EXPECT_EQ(manager->getProjectCount(), 2);
    manager->OnProjectEventVetoCheck.unsubscribe(veto, &Veto::ask);
}

TEST_F(NewProject, rereadUnderTheDialog_givesTheSourceAsItIsNow) {
    files.put(u"C:\\P\\a.dwg", "drawing");
    files.put(u"C:\\P\\b.dwg", "drawing");
    const CString id = activate("a", "?[5]%F%N\na.dwg\n");
    surroundings.ui.answerDialog([this, &id](Dialog& shown) {
        shown.begin();
        play(shown, u"name=n; settings=");
        files.put(id, "?[5]%L%N\nb.dwg\n");
        EXPECT_TRUE(manager->reReadProject(id));
        play(shown, u"ok");
        return shown.result();
    });
    makeNewProject();
    EXPECT_EQ(messages(), "");
    EXPECT_EQ(content(id), "?[5]%L%N\nb.dwg\n");
    EXPECT_NE(content(u"C:\\P\\n.kqp").find("?[5]%L%N\n"), std::string::npos);
}

TEST_F(NewProject, activeProjectThatIsClosedMeanwhile_isNoSource) {
    const CString id = activate("a", "");
    dialog.begin();
    manager->closeProject(id, true);
    play(dialog, u"name=n; ok");
    EXPECT_EQ(messages(), "3024");
    EXPECT_TRUE(dialog.isOpen());
}

TEST(CreateFolders, onDisk_makesWhatIsMissing) {
    TempFolder folder;
    drafta::PosixPlatform ports;
    setPlatform(&ports.platform());
    folder.write("file", "");
    const struct {
        CString path;
        FileError error;
        const char* made; ///< empty: nothing
    } cases[] = {{u"  " + folder.module(u"a\\b\\c") + u"\\ ", FileError::none, "a/b/c"},
        {folder.module(u"a\\b"), FileError::none, ""}, {folder.module(u"a\\d"), FileError::none, "a/d"},
        {u"", FileError::none, ""}, {u"C:", FileError::none, ""},
        {folder.module(u"file\\x"), FileError::notFolder, ""}};
    for (const auto& each : cases) {
        CString failed;
        EXPECT_EQ(createFolders(each.path, failed).error, each.error) << toUtf8(each.path);
        EXPECT_EQ(failed.empty(), each.error == FileError::none);
        if (*each.made)
            EXPECT_TRUE(std::filesystem::is_directory(folder.native(each.made))) << each.made;
    }
    setPlatform(nullptr);
}

} // namespace
} // namespace ryv::test
