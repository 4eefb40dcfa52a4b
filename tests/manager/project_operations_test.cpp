#include "tests/manager/manager_fixture.h"

#include <algorithm>

namespace ryv::test {
namespace {

class OperationsTest : public ManagerFixture {
protected:
    OperationsTest() {
        a = project("a", {"one", "two", "three"});
        files.put(path("a.rypx"), "RYPX 1\nnext=8\nid=7\tone.dwg\n");
        open(a, true);
        story();
        surroundings.documents.open = true;
        surroundings.lisp.answer(u"c:ryv_update_dwg_lst", HostResultBuffer().addNil());
        // Whoever hears of a change finds it on disk already.
        recorder->during = [this](const std::string&) { onDisk = bytes(a); };
    }
    std::unique_ptr<RyvPrmFileDetails> four() { return drawing(path("four.dwg")); }
    std::ptrdiff_t writes() {
        const auto& calls = surroundings.lisp.calls();
        return std::count_if(calls.begin(), calls.end(),
            [](const auto& call) { return call.front() == u"c:ryv_update_dwg_lst"; });
    }
    std::string tree() { return treeText(manager->getProject(0)->getProjectData().getProjFileDetails()); }

    CString a;
    std::string onDisk;
};

TEST_F(OperationsTest, add_writesThenTells_andForgetsTheSubfolder) {
    manager->SetNewDwgSubfolderTrace(u"power/motors");
    EXPECT_FALSE(manager->addFileToProject(drawing(u"c:/p/ONE.dwg"), a));
    EXPECT_TRUE(manager->addFileToProject(four(), a)); // the failure has used the trace up
    EXPECT_EQ(story(), "add a.kqp four.dwg");
    EXPECT_NE(onDisk.find("four.dwg"), std::string::npos);
    EXPECT_EQ(onDisk.find("=====SUB"), std::string::npos);
    manager->SetNewDwgSubfolderTrace(u"power/motors");
    EXPECT_TRUE(manager->addFileToProject(drawing(path("five.dwg")), u"c:/p/A.kqp"));
    EXPECT_NE(onDisk.find("=====SUB=POWER/MOTORS\nfive.dwg"), std::string::npos) << onDisk;
    EXPECT_FALSE(manager->addFileToProject(drawing(path("six.dwg")), path("b.kqp")));
    EXPECT_EQ(surroundings.lisp.calls().back().front(), u"c:ryv_update_dwg_lst");
}

TEST_F(OperationsTest, addSeveral_addsWhatIsMissing_inOneWrite) {
    std::vector<bool> added;
    const CArray<RyvPrmFileDetails> drawings{RyvPrmFileDetails(path("four.dwg")),
        RyvPrmFileDetails(path("ONE.dwg")), RyvPrmFileDetails(path("FOUR.dwg"))};
    EXPECT_TRUE(manager->addFilesToProject(drawings, added, std::nullopt, u"sub"));
    EXPECT_EQ(added, (std::vector<bool>{true, false, false}));
    EXPECT_EQ(story(), "addAll a.kqp four.dwg");
    EXPECT_EQ(writes(), 1);
    EXPECT_FALSE(manager->addFilesToProject(drawings, added));
    EXPECT_EQ(story(), "");
}

TEST_F(OperationsTest, remove_tellsWhatWasThere) {
    RyvPrmFileDetails reference(path("one.dwg"));
    reference.setReferenceOnly(true);
    EXPECT_TRUE(manager->modifyDetailsForFileInProject(reference));
    EXPECT_EQ(story(), "preModify a.kqp one.dwg");
    EXPECT_TRUE(manager->removeFileFromProject(u"c:/p/one.DWG"));
    EXPECT_EQ(story(), "remove a.kqp one.DWG REF");
    EXPECT_FALSE(manager->removeFileFromProject(path("one.dwg")));
    const std::string before = bytes(a);
    EXPECT_TRUE(manager->removeFilesFromProject({}));
    EXPECT_TRUE(manager->removeSubfoldersFromProject({}));
    EXPECT_FALSE(manager->removeFilesFromProject({path("nine.dwg")}));
    EXPECT_EQ(bytes(a), before);
    EXPECT_TRUE(manager->removeFilesFromProject({path("three.dwg"), path("TWO.dwg")}));
    EXPECT_EQ(story(), "removeAll a.kqp two.dwg three.dwg");
    manager->SetNewDwgSubfolderTrace(u"x/y");
    manager->addFileToProject(four());
    story();
    EXPECT_TRUE(manager->removeSubfoldersFromProject({u"X", u"x/Y"}));
    EXPECT_EQ(story(), "");
    EXPECT_EQ(tree(), "");
    EXPECT_EQ(bytes(a).find("four.dwg"), std::string::npos);
}

TEST_F(OperationsTest, replaceTells_renameDoesNot) {
    EXPECT_TRUE(manager->replaceFileInProject(path("one.dwg"), u"C:/P/uno.dwg"));
    EXPECT_EQ(story(), "replace a.kqp one.dwg:7 uno.dwg:7");
    EXPECT_NE(onDisk.find("uno.dwg"), std::string::npos);
    EXPECT_TRUE(manager->renameFileInProject(path("uno.dwg"), path("eins.dwg")));
    EXPECT_EQ(story(), "");
    EXPECT_NE(bytes(a).find("eins.dwg"), std::string::npos);
    EXPECT_NE(bytes(path("a.rypx")).find("id=7\teins.dwg"), std::string::npos);
    EXPECT_FALSE(manager->renameFileInProject(path("uno.dwg"), path("due.dwg")));
}

TEST_F(OperationsTest, failedWrite_keepsTheChangeInMemory_andTellsNobody) {
    files.put(a, "one.dwg\nother.dwg\n"); // another process was faster
    EXPECT_FALSE(manager->addFileToProject(four()));
    EXPECT_EQ(story(), "");
    EXPECT_TRUE(manager->isFileInProject(path("four.dwg")));
    EXPECT_EQ(manager->getProject(0)->getLastError(), RyvPmUtilsKQPFiler::changedOutside);
    EXPECT_TRUE(manager->reReadProject());
    EXPECT_EQ(tree(), "C:\\P\\one.dwg C:\\P\\other.dwg");
    EXPECT_TRUE(manager->addFileToProject(four()));
    files.protect(a);
    EXPECT_FALSE(manager->removeFileFromProject(path("four.dwg")));
    EXPECT_FALSE(manager->isFileInProject(path("four.dwg")));
    EXPECT_TRUE(manager->reReadProject()); // the file is as we wrote it, memory is not
    EXPECT_TRUE(manager->isFileInProject(path("four.dwg")));
}

TEST_F(OperationsTest, noticeOfOurOwnWrite_leavesUnwrittenChangesAlone) {
    manager->addFileToProject(four());
    RyvPmMiscProjSettings settings;
    const CString link = u"link";
    settings.setValue(39, &link);
    manager->setMiscProjSettingsInProject(settings);
    story();
    surroundings.monitor.notify(a, FileChange::contentChanged);
    surroundings.messages.advance(std::chrono::milliseconds(100));
    EXPECT_EQ(story(), "preReRead a.kqp, reRead a.kqp");
    EXPECT_TRUE(manager->getProject(0)->isOZMProject());
    EXPECT_TRUE(manager->reReadProject()); // who asks for it gets what is on disk
    EXPECT_FALSE(manager->getProject(0)->isOZMProject());
}

TEST_F(OperationsTest, miscSettings_areLeftForTheCallerToWrite) {
    RyvPmMiscProjSettings settings;
    const CString link = u"link";
    settings.setValue(39, &link);
    const std::string before = bytes(a);
    EXPECT_FALSE(manager->getProject(0)->isOZMProject());
    EXPECT_TRUE(manager->setMiscProjSettingsInProject(settings));
    EXPECT_EQ(story(), "preMisc a.kqp");
    EXPECT_TRUE(manager->getProject(0)->isOZMProject());
    EXPECT_EQ(bytes(a), before);
}

TEST_F(OperationsTest, terminalLinks_areUpdatedFirst_unlessTheUserDeclines) {
    surroundings.projectDatabase.paths[toUpper(a)] = u"C:\\db.mdb";
    surroundings.lisp.answer(u"c:ryv_check_linkterm", HostResultBuffer().addString(u"link"));
    surroundings.lisp.answer(u"c:ryv_term_linkterm_update_main", HostResultBuffer().addTruth());
    const auto updates = [this] {
        const auto& calls = surroundings.lisp.calls();
        return std::count_if(calls.begin(), calls.end(),
            [](const auto& call) { return call.front() == u"c:ryv_term_linkterm_update_main"; });
    };
    EXPECT_TRUE(manager->addFileToProject(four(), std::nullopt, true, false)); // declined, added all the same
    EXPECT_EQ(updates(), 0);
    ASSERT_EQ(surroundings.ui.forms.size(), 1u);
    EXPECT_EQ(surroundings.ui.forms[0].fields[0].values[0], path("four.dwg"));
    surroundings.ui.answerForm(u"CRyvCfgMessageWithEditDlg", {});
    EXPECT_TRUE(manager->addFileToProject(drawing(path("five.dwg")), std::nullopt, true, false));
    EXPECT_EQ(updates(), 1);
    std::vector<bool> added;
    EXPECT_TRUE(manager->addFilesToProject(
        {RyvPrmFileDetails(path("six.dwg"))}, added, std::nullopt, {}, true, true));
    EXPECT_EQ(updates(), 2);
    EXPECT_EQ(surroundings.ui.forms.size(), 2u);
}

TEST_F(OperationsTest, drawingsThatNeedTheirSettingsRead_areListedOnce) {
    EXPECT_FALSE(manager->notifyLispKQ_MAndRemove(std::nullopt));
    manager->setDrawingsNeedKQ_MUpdate({path("one.dwg"), path("two.dwg")}, false);
    manager->setDrawingsNeedKQ_MUpdate({path("two.dwg"), path("three.dwg")}, true);
    EXPECT_TRUE(manager->notifyLispKQ_MAndRemove(path("TWO.dwg")));
    EXPECT_FALSE(manager->notifyLispKQ_MAndRemove(path("two.dwg")));
    EXPECT_EQ(surroundings.documents.runApplicationContext(), 1u);
    ASSERT_EQ(surroundings.documents.sent.size(), 1u);
    EXPECT_EQ(surroundings.documents.sent[0].text, u"(c:kq_reread_dwg_params)\r");
    manager->setDrawingsNeedKQ_MUpdate({}, false);
    EXPECT_FALSE(manager->notifyLispKQ_MAndRemove(path("three.dwg")));
}

TEST_F(OperationsTest, displaySetting_hasDefaultsAndRoundTrips) {
    surroundings.profile.key = u"Software\\Drafta";
    CArray<int> order;
    CString separator;
    bool selection = false;
    EXPECT_TRUE(manager->getDwgDisplaySetting(order, separator, selection));
    EXPECT_EQ(order, (CArray<int>{103}));
    EXPECT_EQ(separator, u"-");
    EXPECT_TRUE(selection);
    EXPECT_TRUE(manager->setDwgDisplaySetting({101, 108, 291}, u" | ", false));
    EXPECT_TRUE(manager->getDwgDisplaySetting(order, separator, selection));
    EXPECT_EQ(order, (CArray<int>{101, 108, 291}));
    EXPECT_EQ(separator, u" | ");
    EXPECT_FALSE(selection);
    const CString key = u"Software\\Drafta\\Settings\\CurrDisplayOrder";
    CString second;
    EXPECT_EQ(surroundings.registry.readString(key, u"B", second), RegistryStatus::ok);
    EXPECT_EQ(second, u"108");
    surroundings.registry.put(key, u"B", std::uint32_t{5}); // cannot be read as text: skipped
    EXPECT_TRUE(manager->getDwgDisplaySetting(order, separator, selection));
    EXPECT_EQ(order, (CArray<int>{101, 291}));
    surroundings.profile.key.clear();
    EXPECT_FALSE(manager->getDwgDisplaySetting(order, separator, selection));
    EXPECT_FALSE(manager->setDwgDisplaySetting(order, separator, selection));
    EXPECT_EQ(order, (CArray<int>{101, 291}));
}

TEST_F(OperationsTest, displaySetting_thatIsOddIsReadAsFarAsItGoes) {
    const struct {
        std::map<CString, ScriptedRegistry::Value> values;
        const char* read; ///< "103 108;-;1", or empty when it cannot be read
    } cases[] = {
        {{{u"NR_ENTRIES", u"1"}, {u"A", u"103"}, {u"SEPARATOR", u"/"}, {u"ShowSelection", u"1"}}, "103;/;1"},
        {{{u"NR_ENTRIES", u"1"}, {u"A", u"103"}, {u"ShowSelection", u"yes"}}, "103;?;0"},
        {{{u"NR_ENTRIES", u"1"}, {u"A", u"103"}}, "103;?;1"},
        {{{u"NR_ENTRIES", u"3"}, {u"A", u"103"}, {u"C", u"x"}}, "103 0;?;1"},
        {{{u"NR_ENTRIES", u"-2"}, {u"A", u"103"}}, ";?;1"},
        // The 33rd entry would be "a", which the registry takes for "A".
        {{{u"NR_ENTRIES", u"999999999"}, {u"A", u"103"}}, "103 103;?;1"},
        {{{u"NR_ENTRIES", std::uint32_t{5}}}, ""},
        {{{u"A", u"103"}, {u"SEPARATOR", u"-"}}, ""},
    };
    int number = 0;
    for (const auto& each : cases) {
        surroundings.profile.key = u"Software\\P" + toText(++number);
        for (const auto& [name, value] : each.values)
            surroundings.registry.put(
                surroundings.profile.key + u"\\Settings\\CurrDisplayOrder", name, value);
        CArray<int> order;
        CString separator = u"?";
        bool selection = false;
        std::string text;
        if (manager->getDwgDisplaySetting(order, separator, selection)) {
            for (const int field : order)
                text += (text.empty() ? "" : " ") + std::to_string(field);
            text += ";" + toUtf8(separator) + (selection ? ";1" : ";0");
        }
        EXPECT_EQ(text, each.read) << number;
    }
}

} // namespace
} // namespace ryv::test
