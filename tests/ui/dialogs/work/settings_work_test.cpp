// Work on the settings of many drawings, and comparing one with its project.
#include "ui/dialogs/work/settings_work.h"

#include "base/join.h"
#include "resources/language.h"
#include "resources/messages.h"
#include "resources/setting_message_numbers.h"
#include "tests/ui/dialogs/work/work_fixture.h"
#include "toolkit/label.h"
#include "ui/dialogs/work/compare_dialog.h"
#include "ui/dialogs/work/setting_names.h"

#include <set>

namespace ryv::test {
namespace {

class SettingsWork : public WorkFixture {
protected:
    std::string exceptions() {
        answerReport();
        listExceptions(id);
        return std::exchange(report, {});
    }
    void allow(int question) { surroundings.ui.answerMessage(question, Answer::yes); }
    /// The texts of all message boxes so far, parted by "/".
    std::string told() const {
        std::string texts;
        for (const MessageBoxRequest& each : surroundings.ui.messages)
            texts += (texts.empty() ? "" : "/") + toUtf8(each.text);
        return texts;
    }
    static std::string rowOf(const Grid& grid, std::size_t row) {
        CStringArray texts;
        for (std::size_t column = 0; column < grid.columns().size(); ++column)
            texts.push_back(grid.text(row, column));
        return toUtf8(join(texts, u"|"));
    }
    const CStringArray all{path("a.dwg"), path("b.dwg"), path("c.dwg")};
};

TEST_F(SettingsWork, exceptions_followTheRuleOfTheRecord) {
    const struct {
        Values ofB;
        std::string differences; ///< lines below the drawing
    } cases[] = {{{}, ""}, {{{5, u"%f%n"}}, ""},
        {{{5, u"%N"}}, "/    Components: Tag format: %N instead of %F%N"}, {{{13, u"7"}}, ""},
        {{{46, u"x"}}, ""}, {{{51, u"p"}, {52, u"i"}, {53, u"l"}}, ""}, {{{26, u"pwr, WIRES"}}, ""},
        {{{26, u"PWR"}}, "/    Drawing Format: Wires: PWR instead of WIRES"},
        {{{1, u"4"}, {64, u"1"}, {50, u"x"}},
            "/    Drawing Format: Kind: X-Y grid instead of Reference numbers"
            "/    MISC_FLAGS: x instead of 0/    Cross-References: Sort cross-references: Yes instead of No"},
        {{{9, u""}, {5, u"%S"}, {13, u"7"}}, "/    Components: Tag format: %S instead of %F%N"
                                             "/    Wire Numbers: Wire number format: (empty) instead of %N"}};
    for (const auto& each : cases) {
        drawing("b", each.ofB);
        EXPECT_EQ(exceptions(), each.differences.empty()
                                    ? "A: The settings of all drawings are those of the project."
                                    : "A: Drawings that differ: 1, the same: 2, not checked: 0.//"
                                      "Settings that differ from the project's:/C:\\P\\b.dwg" +
                                          each.differences);
    }
    RyvCfgDrawingSettings partial = settingsOf({}); // what a drawing lacks is the project's
    partial.setValue(60, nullptr);
    files.put(path("b.dwg"), drawingText(partial));
    EXPECT_EQ(exceptions(), "A: The settings of all drawings are those of the project.");
    EXPECT_EQ(lockCount(), 0u);
    EXPECT_TRUE(surroundings.lockCheck.checks.empty()) << "drawings are only read";
}

TEST_F(SettingsWork, exceptions_nameWhatCannotBeReadInTheOrderOfTheTree) {
    drawing("c", {{5, u"%N"}});
    drawing("a", {{5, u"%N"}});
    files.put(path("b.dwg"), drawingText(settingsOf({}), "OTHER"));
    EXPECT_EQ(exceptions(), "A: Drawings that differ: 2, the same: 0, not checked: 1.//"
                            "Not checked:/C:\\P\\b.dwg: the drawing has no settings block//"
                            "Settings that differ from the project's:/"
                            "C:\\P\\a.dwg/    Components: Tag format: %N instead of %F%N/"
                            "C:\\P\\c.dwg/    Components: Tag format: %N instead of %F%N");
    files.erase(path("a.dwg"));
    drawing("c", {});
    EXPECT_EQ(exceptions(), "A: "
                            "The settings of the drawings that were checked are those of the project.//"
                            "Not checked:/C:\\P\\a.dwg: no such file or folder/"
                            "C:\\P\\b.dwg: the drawing has no settings block");
    surroundings.ui.cancelAtStep = 2;
    EXPECT_EQ(exceptions(),
        "A: Drawings that differ: 0, the same: 0, not checked: 1. "
        "Cancelled after 1 of 3 drawings.//Not checked:/C:\\P\\a.dwg: no such file or folder");
}

TEST_F(SettingsWork, defaults_goIntoEachDrawingAndItsLadders) {
    drawing("a", {{5, u"%N"}, {13, u"7"}, {26, u"PWR"}});
    answerReport();
    allow(message::settingsAskApply);
    applyProjectDefaults(id, {all[0], all[2], path("A.DWG")});
    EXPECT_EQ(told(), "Write the default settings of project A into 2 drawings?");
    EXPECT_EQ(report, "Project Defaults Applied: Drawings changed: 2, skipped: 0.//"
                      "Up to date now:/C:\\P\\a.dwg/C:\\P\\c.dwg");
    EXPECT_EQ(valueIn("a", u"TAGFMT") + valueIn("a", u"SHEET") + valueIn("a", u"WIRELAYS"), "%F%N7PWR,WIRES");
    EXPECT_EQ(queued(), "(c:kq_reread_dwg_params)");
    EXPECT_TRUE(manager->notifyLispKQ_MAndRemove(CStringView(all[2])));
    EXPECT_FALSE(manager->notifyLispKQ_MAndRemove(CStringView(all[1])));
    // All are asked about first, then each is locked while it is at work.
    ASSERT_EQ(surroundings.lockCheck.checks.size(), 3u);
    EXPECT_EQ(surroundings.lockCheck.checks[0].files, (CStringList{id, all[0], all[2]}));
    EXPECT_EQ(surroundings.lockCheck.checks[0].secondFlag, 1);
    EXPECT_EQ(surroundings.lockCheck.checks[1].files, CStringList{all[0]});
    EXPECT_EQ(surroundings.lockCheck.checks[1].secondFlag, 0);
}

TEST_F(SettingsWork, defaults_stopBetweenDrawingsAndSkipWhatCannotBeDone) {
    for (const char* const name : {"a", "b", "c"})
        drawing(name, {{5, u"%N"}});
    surroundings.ui.cancelAtStep = 2;
    answerReport();
    allow(message::settingsAskApply);
    applyProjectDefaults(id, all);
    EXPECT_EQ(report, "Project Defaults Applied: Drawings changed: 1, skipped: 0. "
                      "Cancelled after 1 of 3 drawings.//Up to date now:/C:\\P\\a.dwg");
    EXPECT_EQ(valueIn("a", u"TAGFMT") + valueIn("b", u"TAGFMT"), "%F%N%N");

    // A disk that is full for one of them.
    surroundings.ui.cancelAtStep.reset();
    drawing("a", {{5, u"%N"}});
    surroundings.ui.meanwhile = [this] {
        if (surroundings.ui.progressItems.empty())
            return;
        if (surroundings.ui.progressItems.back() == u"b.dwg")
            faults.arm({.error = FileError::noSpace, .kind = FileCall::write, .lasting = true});
        else
            faults.disarm();
    };
    answerReport();
    allow(message::settingsAskApply);
    applyProjectDefaults(id, all);
    faults.disarm();
    EXPECT_EQ(report, "Project Defaults Applied: Drawings changed: 2, skipped: 1.//"
                      "Skipped:/C:\\P\\.b.dwg.saving: no space left on the disk//"
                      "Up to date now:/C:\\P\\a.dwg/C:\\P\\c.dwg");
    EXPECT_EQ(valueIn("b", u"TAGFMT"), "%N");
    EXPECT_EQ(lockCount(), 0u);
}

/// What else the user has changed in it is not saved along, and LISP hears of all that may have changed.
TEST_F(SettingsWork, drawingThatIsOpenedWhileItIsWritten_isSkipped) {
    const std::string before = content(all[2]);
    drawings.onOpen = [this] { surroundings.documents.openDocument(all[2]); };
    answerReport();
    applyProjectDefaults(id, {all[2]});
    EXPECT_NE(
        report.find("Skipped:/C:\\P\\c.dwg: the drawing was opened or closed meanwhile"), std::string::npos)
        << report;
    EXPECT_EQ(content(all[2]), before);
}

TEST_F(SettingsWork, drawingsInTheHost_areChangedInTheirDocumentsAlone) {
    drawing("a", {{5, u"%N"}});
    files.put(all[1], drawingText(settingsOf({}), "OTHER")); // gets no block without the file of that
    for (const std::size_t i : {0u, 1u}) {
        DrawingResult result;
        drawings.documents[toUpper(all[i])] = drafta::Drawing::load(faults, all[i], result);
        surroundings.documents.openDocument(all[i]);
    }
    const std::string before = content(all[0]);
    ASSERT_TRUE(copySettings(all[2]));
    const std::function<void()> runs[] = {
        [this] { applyProjectDefaults(id, all); }, [this] { pasteSettings(all); }};
    for (const auto& run : runs) {
        answerReport();
        allow(message::settingsAskApply);
        allow(message::settingsAskPaste);
        run();
        EXPECT_NE(
            report.find(": Drawings changed: 2, skipped: 1.//Skipped:/C:\\P\\b.dwg: "), std::string::npos)
            << report;
        EXPECT_TRUE(report.ends_with("//Changed in the open drawings, which you save yourself:/C:\\P\\a.dwg//"
                                     "Up to date now:/C:\\P\\c.dwg"))
            << report;
        EXPECT_TRUE(drawings.documents[toUpper(all[0])]->isModified());
        EXPECT_EQ(content(all[0]), before);
        EXPECT_TRUE(manager->notifyLispKQ_MAndRemove(CStringView(all[0])));
        EXPECT_TRUE(manager->notifyLispKQ_MAndRemove(CStringView(all[1])));
    }
}

TEST_F(SettingsWork, manyDrawings_areWrittenOnlyWithTheUsersLeave) {
    ASSERT_TRUE(copySettings(all[1]));
    const auto before = disk();
    pasteSettings(all);
    applyProjectDefaults(id, all);
    EXPECT_EQ(told(), "Write the settings of b.dwg into 3 drawings?/"
                      "Write the default settings of project A into 3 drawings?");
    EXPECT_EQ(disk(), before);
    allow(message::settingsAskApply);
    surroundings.ui.meanwhile = [this] { manager->closeProject(id, true); };
    applyProjectDefaults(id, all);
    EXPECT_TRUE(told().ends_with("/Project A was closed meanwhile. Nothing was changed."));
    EXPECT_TRUE(surroundings.lockCheck.checks.empty());
}

TEST_F(SettingsWork, copiedSettings_arePastedWithoutWhatIsTheDrawingsOwn) {
    EXPECT_FALSE(hasCopiedSettings());
    pasteSettings(all);
    EXPECT_TRUE(surroundings.ui.asked.empty());
    drawing("b", {{5, u"%B"}, {13, u"2"}, {9, u""}});
    EXPECT_TRUE(copySettings(all[1]));
    drawing("b", {});
    drawing("c", {{13, u"3"}});
    answerReport();
    pasteSettings({all[2]});
    EXPECT_EQ(valueIn("c", u"TAGFMT") + valueIn("c", u"SHEET") + valueIn("c", u"WIREFMT"), "%B3");
    files.erase(all[1]);
    EXPECT_FALSE(copySettings(all[1]));
    EXPECT_EQ(messages(), "2810");
    EXPECT_TRUE(hasCopiedSettings()) << "those from before";
}

TEST_F(SettingsWork, comparing_marksFindsAndNarrows) {
    drawing("a", {{5, u"%N"}, {13, u"7"}, {26, u"WIRES,PWR"}, {10, u"5"}});
    surroundings.ui.answerDialog([this](Dialog& shown) {
        auto& dialog = dynamic_cast<CRyvCfgDwgSettingsCompareDlg&>(shown);
        dialog.begin();
        EXPECT_EQ(toUtf8(dialog.title()), "Compare a.dwg with Project A");
        EXPECT_EQ(dialog.grid().rowCount(), 72u);
        EXPECT_EQ(toUtf8(dialog.control<Label>(CRyvCfgDwgSettingsCompareDlg::countId).label()),
            "2 of 72 settings differ.");
        EXPECT_TRUE(dialog.grid().isMarked(5));
        EXPECT_FALSE(dialog.grid().isMarked(4));
        EXPECT_EQ(rowOf(dialog.grid(), 5), "Components: Tag format|%N|%F%N|Component tag format (ex: %F%N) "
                                           "(TAGFMT)");
        EXPECT_EQ(rowOf(dialog.grid(), 1).substr(0, 62),
            "Drawing Format: Kind|Reference numbers|Reference numbers|1=ref");
        EXPECT_TRUE(runDialogScript(dialog, u"differencesOnly=1").ok());
        EXPECT_EQ(dialog.grid().rowCount(), 2u);
        for (const CStringView search : {u"increment", u"(winc)", u"wire numbers"}) {
            EXPECT_TRUE(runDialogScript(dialog, u"search=" + CString(search)).ok());
            EXPECT_EQ(dialog.grid().rowCount(), 1u) << toUtf8(search);
        }
        EXPECT_TRUE(runDialogScript(dialog, u"differencesOnly=0; search=layer").ok());
        EXPECT_GT(dialog.grid().rowCount(), 10u);
        EXPECT_TRUE(runDialogScript(dialog, u"search=no such setting").ok());
        EXPECT_EQ(dialog.grid().placeholder(), messageText(message::compareNoneFound));
        dialog.grid().fill({}, {});
        dialog.grid().show(true, {});
        EXPECT_EQ(dialog.grid().placeholder(), messageText(message::compareNoneDiffers));
        EXPECT_TRUE(surroundings.lockCheck.isLocked(id));
        dialog.pressCancel();
        return dialog.result();
    });
    compareDrawing(all[0]);
    EXPECT_EQ(lockCount(), 0u);
    EXPECT_EQ(surroundings.ui.unusedAnswers(), 0u);
    compareDrawing(path("stranger.dwg"));
    EXPECT_EQ(messages(), "2851");
}

/// Whoever reads a name finds the field; a name that two fields share would lead to the wrong one.
TEST_F(SettingsWork, names_areThoseOfOneFieldEach) {
    for (const Language language : {Language::english, Language::german}) {
        setLanguage(language);
        const SettingNames names;
        std::set<CString> known;
        CStringArray repeated;
        for (int index = 0; index <= RyvCfgDrawingSettings::getMaxBracketIndex(); ++index)
            if (const CString name = names.name(drawingSetting(index));
                name.empty() || !known.insert(name).second)
                repeated.push_back(toText(index) + name);
        EXPECT_EQ(toUtf8(join(repeated, u", ")), "");
    }
    EXPECT_EQ(toUtf8(SettingNames().name(drawingSetting(11))), "Zeichnungsformat: Strompfadabstand");
    EXPECT_EQ(toUtf8(SettingNames().name(miscSetting(9))), "Einstellungen: Wert 9");
    setLanguage(Language::english);
    const SettingNames names;
    const struct {
        int index;
        const char16_t* stored;
        const char* shown;
    } cases[] = {{0, u"h", "Horizontal"}, {0, u"X", "X"}, {1, u"", ""}, {11, u"1", "1"}, {61, u"1", "Yes"},
        {61, u"3", "3"}, {65, u", ", "Comma and blank"}, {55, u"1", "1"}};
    for (const auto& each : cases)
        EXPECT_EQ(toUtf8(names.value(drawingSetting(each.index), each.stored)), each.shown) << each.index;
}

} // namespace
} // namespace ryv::test
