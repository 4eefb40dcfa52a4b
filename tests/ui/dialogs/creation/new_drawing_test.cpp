#include "tests/ui/dialogs/creation/creation_fixture.h"
#include "toolkit/combo_box.h"
#include "ui/dialogs/creation/drawing_maker.h"
#include "ui/dialogs/creation/new_drawing.h"
#include "ui/dialogs/creation/new_drawing_dialog.h"

#include "model/file_details.h"

namespace ryv::test {
namespace {

using Dlg = CRyvCfgDrawingNewDlg;
using Values = NewDrawingValues;

const CString id = u"C:\\P\\a.kqp";
const CString newPath = u"C:\\P\\n.dwg";
const std::string lines =
    "?[51]PS01\n?[5]%L%N\n===Cover\n===North\none.dwg\n=E1\n==M\n===North\n===\n===Pump\n"
    "=====SUB=S\ntwo.dwg\n=E1\n==N\n===Cover\n=====SUB=S\nthree.dwg\n";

class NewDrawing : public CreationFixture {
protected:
    NewDrawing() {
        for (const char16_t* const name : {u"one", u"two", u"three", u"theirs"})
            files.put(u"C:\\P\\" + CString(name) + u".dwg", "drawing");
        activate("a", lines);
    }

    static std::string rows(const Dialog& dialog, int control) {
        std::string text;
        for (const Choice& row : dialog.control<ComboBox>(control).rows())
            text += toUtf8(row.text) + ",";
        return text;
    }
    CString registered() {
        return surroundings.registry.string(
            surroundings.profile.key + u"\\Settings\\DrawingNewDlg", u"TemplateFile");
    }
    bool isAtRest() const { return surroundings.lockCheck.locked.empty() && !state.newDrawing; }
    /// What the script does: opens the drawing, and runs the second half in it.
    void openAndContinue() {
        const DocumentId opened = surroundings.documents.openDocument(newPath);
        continueNewDrawing();
        surroundings.documents.closeDocument(opened);
        surroundings.documents.open = true;
    }

    static bool makesIt(const Values&) { return true; }

    Dlg dialog{id, makesIt};
};

TEST_F(NewDrawing, opened_offersWhatTheProjectUses_onceEach) {
    surroundings.lisp.answer(
        u"kq_loc_get_locs_or_inst_for_proj", HostResultBuffer().addString(u"").addString(u"PUMPS"));
    surroundings.lisp.answer(u"c:kq_get_locs_for_proj", HostResultBuffer().addString(u"MCC1"));
    dialog.begin();
    EXPECT_EQ(text(dialog, Dlg::folderId), "C:\\P");
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(rows(dialog, Dlg::description1Id + i), "Cover,North,Pump,");
    EXPECT_EQ(rows(dialog, NewDrawingSheetPanel::sectionId), "E1,");
    EXPECT_EQ(rows(dialog, NewDrawingSheetPanel::subSectionId), "M,N,");
    EXPECT_EQ(rows(dialog, NewDrawingCodesPanel::installationId), "PUMPS,");
    EXPECT_EQ(rows(dialog, NewDrawingCodesPanel::locationId), "MCC1,");
    EXPECT_EQ(text(dialog, NewDrawingCodesPanel::projectId), "PS01");
    const auto& description = dialog.control<ComboBox>(Dlg::description1Id);
    EXPECT_TRUE(dialog.control<ComboBox>(Dlg::description1Id).type(CString(256, u'x')));
    EXPECT_FALSE(dialog.control<ComboBox>(Dlg::description1Id).type(CString(257, u'x')));
    EXPECT_EQ(description.text().size(), 256u);
    Dlg other(u"C:\\P\\b.kqp", makesIt); // is not open
    other.begin();
    EXPECT_FALSE(other.isOpen());
}

TEST_F(NewDrawing, largeProject_hasCodesLookedUpOnDemand) {
    const struct {
        std::size_t drawings;
        std::size_t calls;
    } cases[] = {{Dlg::mostDrawingsRead, 2}, {Dlg::mostDrawingsRead + 1, 0}};
    for (const auto& each : cases) {
        std::string many;
        for (std::size_t i = 0; i < each.drawings; ++i)
            many += "===Same\nd" + std::to_string(i) + ".dwg\n";
        files.put(id, many);
        EXPECT_TRUE(manager->reReadProject(id));
        const std::size_t before = surroundings.lisp.calls().size();
        Dlg fresh(id, makesIt);
        fresh.begin();
        EXPECT_EQ(surroundings.lisp.calls().size() - before, each.calls);
        EXPECT_EQ(rows(fresh, Dlg::description1Id), "Same,");
        fresh.press(NewDrawingCodesPanel::lookUpId);
        EXPECT_EQ(surroundings.lisp.calls().size() - before, each.calls + 2);
        EXPECT_TRUE(
            fresh.control<Control>(NewDrawingCodesPanel::foundId).label().starts_with(u"Installations: "));
    }
}

TEST_F(NewDrawing, ok_staysOpenAtTheFieldAtFault) {
    files.put(u"C:\\P\\old.dwg", "");
    files.put(u"C:\\t.dwt", "");
    const struct {
        const char16_t* script;
        std::string message;
        int focus;
        const char* path; ///< as it is shown
    } cases[] = {{u"name=OLD", "3141", Dlg::nameId, "C:\\P\\OLD.dwg"}, {u"name=", "3140", Dlg::nameId, ""},
        {u"name=E1.2; folder=here", "3142", Dlg::folderId, "here\\E1.2.dwg"},
        {u"folder=C:\\P; name=a/b", "3142", Dlg::folderId, "C:\\P\\a/b.dwg"},
        {u"name=\"a\"\"b\"", "482", Dlg::nameId, "C:\\P\\a\"b.dwg"},
        {u"name=a?", "482", Dlg::nameId, "C:\\P\\a?.dwg"},
        {u"name=n; folder=C:\\nowhere", "3144", Dlg::folderId, "C:\\nowhere\\n.dwg"},
        {u"folder=C:\\P; name=Panel3.DWG; template=C:\\none.dwt", "3143", Dlg::templateId,
            "C:\\P\\Panel3.DWG"},
        {u"name=Panel3; template=\" C:/t.dwt \"", "", 0, "C:\\P\\Panel3.dwg"}};
    for (const auto& each : cases) {
        if (!dialog.isOpen())
            dialog.begin();
        play(dialog, each.script);
        EXPECT_EQ(text(dialog, Dlg::pathId), each.path);
        dialog.press(Dialog::idOk);
        EXPECT_EQ(messages(), each.message) << toUtf8(each.script);
        EXPECT_EQ(dialog.isOpen(), !each.message.empty()) << toUtf8(each.script);
        if (dialog.isOpen())
            EXPECT_EQ(dialog.focus(), each.focus) << toUtf8(each.script);
    }
    EXPECT_EQ(dialog.values().templateFile, u"C:\\t.dwt");
    EXPECT_EQ(registered(), u"C:\\t.dwt");
    Dlg next(id, makesIt);
    next.begin();
    EXPECT_EQ(text(next, Dlg::templateId), "C:\\t.dwt");
    play(next, u"template=; name=n; ok");
    EXPECT_EQ(next.values().templateFile, u"C:\\T\\qdra.dwt");
    EXPECT_EQ(registered(), u"");
}

TEST(NewDrawingValues, areFoundByName) {
    const struct {
        const char16_t* name;
        int index;
    } cases[] = {{u"Drawing Description 1", 0}, {u"drawing description 3", 2}, {u"PROJECT CODE", 3},
        {u"Installation Code", 4}, {u"Location Code", 5}, {u"Sheet", 6}, {u"Drawing", 7}, {u"Section", 8},
        {u"Sub-Section", 9}, {u"Subsection", -1}, {u"", -1}};
    Values values;
    CString value = u"kept";
    for (const auto& each : cases) {
        EXPECT_EQ(Values::indexOf(each.name), each.index);
        EXPECT_EQ(values.setValue(each.index, each.name), each.index >= 0);
    }
    EXPECT_FALSE(values.setValue(10, u"x"));
    EXPECT_FALSE(values.getValue(10, value));
    EXPECT_EQ(value, u"kept");
    EXPECT_TRUE(values.getValue(9, value));
    EXPECT_EQ(value, u"Sub-Section");
}

/// The host opens the drawing and runs the second half in it.
TEST_F(NewDrawing, bothHalves_putItIntoTheProjectThatWasActiveAtFirst) {
    surroundings.lisp.answer(u"c:ryv_tb_nodlg", HostResultBuffer().addTruth());
    manager->SetNewDwgSubfolderTrace(u"S");
    answerDialog(u"name=n; description1=Cover; description3=Third; reference=1; projectCode=P; "
                 u"installation=I; location=L; sheet=7; drawing=D; section=E1; subSection=X; ok");
    CStringList locked;
    commands.script = [&] {
        locked = surroundings.lockCheck.locked;
        activate("b", "");
        manager->SetNewDwgSubfolderTrace(u"elsewhere");
        openAndContinue();
        EXPECT_TRUE(isAtRest());
    };
    startNewDrawing();
    EXPECT_EQ(messages(), "");
    ASSERT_EQ(commands.runs, (std::vector<CStringArray>{{u"_.RYV_SCRIPT", u"C:\\U\\_SCRTMP1.SCR"}}));
    EXPECT_EQ(content(u"C:/U/_SCRTMP1.SCR"), "_.open\n\"C:\\P\\n.dwg\"\n_ryvcontinuenewdrawing\n");
    EXPECT_EQ(std::count(locked.begin(), locked.end(), id), 1);
    EXPECT_EQ(std::count(locked.begin(), locked.end(), newPath), 1);
    EXPECT_TRUE(
        content(id).ends_with("three.dwg\n=E1\n==X\n===Cover\n===\n===Third\n====REF\n=====SUB=S\nn.dwg\n"))
        << content(id);
    EXPECT_EQ(content(newPath), "template");
    const std::pair<const char16_t*, const char16_t*> settings[] = {{u"IEC_PROJ", u"P"}, {u"IEC_INST", u"I"},
        {u"IEC_LOC", u"L"}, {u"SHEET", u"7"}, {u"SHEETDWGNAME", u"D"}, {u"TAGFMT", u"%L%N"}};
    for (const auto& [tag, value] : settings)
        EXPECT_EQ(drawings.saved[tag], value);
    EXPECT_EQ(surroundings.lisp.calls().end()[-2].front(), u"c:ryv_tb_nodlg");
    EXPECT_EQ(surroundings.lisp.calls().back().front(), u"c:kq_upd_ldr_ref");
    EXPECT_EQ(content(u"C:\\P\\b.kqp").find("n.dwg"), std::string::npos);
    continueNewDrawing(); // there is none any more
    EXPECT_EQ(messages(), "");
}

/// What the template's block lacks is the project's, whichever one is active.
TEST_F(NewDrawing, templateWithABlock_isReplacedWhenTheUserAgrees) {
    const struct {
        Answer answer;
        const char16_t* tagFormat;
    } cases[] = {{Answer::yes, u"%L%N"}, {Answer::no, u"own"}};
    files.put(id, "?[9]W%N\n" + lines);
    EXPECT_TRUE(manager->reReadProject(id));
    activate("b", "?[9]B%N\n");
    for (const auto& each : cases) {
        drawings.templateBlock = {{u"TAGFMT", u"own", {}}, {u"SHEET", u"99", {}}};
        surroundings.ui.answerMessage(message::newDrawingReplaceSettings, each.answer);
        Values values;
        values.path = newPath;
        values.templateFile = u"C:\\T\\qdra.dwt";
        values.setValue(Values::sheet, u"7");
        RyvPrmFileDetails details;
        EXPECT_TRUE(makeDrawing(values, id, details));
        EXPECT_EQ(drawings.saved[u"TAGFMT"], each.tagFormat);
        EXPECT_EQ(drawings.saved[u"WIREFMT"], u"W%N");
        EXPECT_EQ(drawings.saved[u"SHEET"], u"7");
        EXPECT_EQ(drawings.saved[u"IEC_LOC"], u"");
        files.erase(newPath);
    }
}

/// However it ends, nothing stays locked or pending, and the project is what it was.
TEST_F(NewDrawing, anythingThatFails_isToldAndLeavesEverythingAsItWas) {
    using Act = std::function<void()>;
    const Act nothing = [] {};
    const Act adds = [] { continueNewDrawing(); };
    struct Case {
        const char* name;
        std::string message;
        bool isDrawingLeft;
        Act before, underDialog, inScript;
    };
    const Act closes = [this] { manager->closeProject(id, true); };
    const Act occupies = [this] { files.put(newPath, "theirs"); };
    const Case cases[] = {
        {"first lock", "3150", false, [this] { surroundings.lockCheck.heldByOthers = {u"C:\\P\\TWO.DWG"}; },
            nothing, nothing},
        {"no template any more", "3143", false, nothing, [this] { files.erase(u"C:\\T\\qdra.dwt"); },
            nothing},
        {"full disk", "3152", false, nothing,
            [this] {
                faults.arm({FileError::noSpace, 1, FileCall::write, true});
            },
            nothing},
        {"name taken meanwhile", "3141", true, nothing, occupies, nothing},
        {"unreadable", "3153", false, nothing, [this] { drawings.readable = false; }, nothing},
        {"no block", "3155", false, [this] { surroundings.lisp.fail(u"kq_fio_does_block_exist_disk"); },
            nothing, nothing},
        {"not saved", "3156", false, nothing, [this] { drawings.writable = false; }, nothing},
        {"closed under the dialog", "3151", false, nothing, closes, nothing},
        {"no script", "3157", true, [this] { surroundings.lisp.fail(u"ryv_get_var"); }, nothing, nothing},
        {"second lock", "3150", false, nothing,
            [this] { surroundings.lockCheck.heldByOthers = {toUpper(newPath)}; }, nothing},
        {"not opened", "3157", true, nothing, nothing, nothing},
        {"another drawing opened", "3157", true, nothing, nothing, adds},
        {"closed by the script", "3158", true, nothing, nothing,
            [&] {
                closes();
                openAndContinue();
            }},
        {"project not written", "3159", true, nothing, nothing,
            [this] {
                faults.arm({FileError::noSpace, 1, FileCall::write, true});
                openAndContinue();
                faults.disarm();
            }},
        {"project neither written nor read", "3159", true, nothing, nothing,
            [this] {
                faults.watch = [this](FileCall call) {
                    if (call == FileCall::write)
                        faults.arm({.error = FileError::denied, .lasting = true});
                };
                openAndContinue();
                faults.watch = [](FileCall) {};
                faults.disarm();
            }},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.name);
        surroundings.lockCheck.heldByOthers.clear();
        surroundings.lisp.setVariable(u"GBL_kq_usr", HostResultBuffer().addString(u"C:/U/"));
        surroundings.lisp.answer(
            u"kq_fio_does_block_exist_disk", HostResultBuffer().addString(u"/lib/KQ_M.dwg"));
        files.put(u"C:\\T\\qdra.dwt", "template");
        drawings.readable = drawings.writable = true;
        files.erase(newPath);
        EXPECT_TRUE(manager->openProject(id, true));
        manager->SetNewDwgSubfolderTrace(u"S");
        each.before();
        if (surroundings.lockCheck.heldByOthers.empty()) // else it is not shown
            surroundings.ui.answerDialog([&each](Dialog& shown) {
                shown.begin();
                play(shown, u"name=n");
                each.underDialog();
                shown.press(Dialog::idOk);
                if (shown.isOpen()) // with what was typed
                    EXPECT_EQ(text(shown, Dlg::nameId), "n");
                shown.pressCancel();
                return shown.result();
            });
        commands.script = each.inScript;
        startNewDrawing();
        faults.disarm();
        EXPECT_EQ(messages(), each.message);
        EXPECT_TRUE(isAtRest());
        EXPECT_TRUE(manager->takeNewDwgSubfolderTrace().empty());
        EXPECT_EQ(content(id), lines);
        EXPECT_EQ(files.get(newPath).has_value(), each.isDrawingLeft);
        if (const RyvPrmProject* const project = manager->getProject(id))
            EXPECT_FALSE(project->isFileInProject(newPath));
    }
}

TEST_F(NewDrawing, templateThatIsNoDrawing_isNamed) {
    drawings.readable = false;
    answerDialog(u"name=n; ok");
    startNewDrawing();
    ASSERT_EQ(surroundings.ui.messages.size(), 1u);
    EXPECT_EQ(toUtf8(surroundings.ui.messages[0].text),
        "The copy of the template cannot be read.\nC:\\T\\qdra.dwt: not a drawing.");
    EXPECT_FALSE(files.get(newPath));
}

TEST_F(NewDrawing, scriptThatIsBrokenOff_leavesNothing) {
    struct BrokenOff {};
    answerDialog(u"name=n; ok");
    commands.script = [] { throw BrokenOff(); };
    EXPECT_THROW(startNewDrawing(), BrokenOff);
    EXPECT_TRUE(isAtRest());
    answerDialog(u"name=m; cancel");
    startNewDrawing();
    EXPECT_TRUE(isAtRest());
    EXPECT_EQ(messages(), "");
}

TEST_F(NewDrawing, changeFromOutside_isKeptBesideTheNewDrawing) {
    answerDialog(u"name=n; properties=1; ok");
    commands.script = [this] {
        files.put(id, lines + "theirs.dwg\n");
        openAndContinue();
    };
    closeDialog(); // the properties
    startNewDrawing();
    EXPECT_EQ(messages(), "");
    EXPECT_EQ(surroundings.ui.unusedAnswers(), 0u);
    EXPECT_TRUE(isAtRest());
    for (const char* const name : {"theirs.dwg\n", "\nn.dwg\n", "three.dwg"})
        EXPECT_NE(content(id).find(name), std::string::npos) << name;
}

TEST_F(NewDrawing, rereadUnderTheDialog_losesNeitherTheirsNorTheDrawing) {
    surroundings.ui.answerDialog([this](Dialog& shown) {
        shown.begin();
        play(shown, u"name=n; section=E1");
        files.put(id, "*[1]theirs\n" + lines);
        EXPECT_TRUE(manager->reReadProject(id));
        play(shown, u"ok");
        return shown.result();
    });
    commands.script = [this] { openAndContinue(); };
    startNewDrawing();
    EXPECT_EQ(messages(), "");
    EXPECT_TRUE(isAtRest());
    EXPECT_TRUE(content(id).starts_with("*[1]theirs\n"));
    EXPECT_TRUE(content(id).ends_with(lines.substr(lines.find("===Cover")) + "=E1\nn.dwg\n")) << content(id);
}

TEST_F(NewDrawing, withoutAnActiveProject_nothingHappens) {
    manager->closeProject(id, true);
    manager->SetNewDwgSubfolderTrace(u"S");
    startNewDrawing();
    continueNewDrawing();
    EXPECT_TRUE(surroundings.ui.asked.empty());
    EXPECT_TRUE(manager->takeNewDwgSubfolderTrace().empty());
}

} // namespace
} // namespace ryv::test
