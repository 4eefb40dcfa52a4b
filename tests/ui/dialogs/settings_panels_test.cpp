// Every panel of settings, as the properties sheets show it: by table, setting by setting.
#include "resources/messages.h"
#include "tests/support/golden.h"
#include "tests/support/scripted_platform.h"
#include "toolkit/check_box.h"
#include "toolkit/combo_box.h"
#include "toolkit/dialog_script.h"
#include "toolkit/radio_group.h"
#include "toolkit/text_field.h"
#include "toolkit/text_renderer.h"
#include "ui/dialogs/sheets/drawing_sheet.h"
#include "ui/dialogs/sheets/project_sheet.h"

#include <set>

namespace ryv::test {
namespace {

constexpr int settingCount = static_cast<int>(RyvCfgDrawingSettings::count);

RyvCfgDrawingSettings defaults() {
    RyvCfgDrawingSettings settings;
    settings.fillWithDefaults(RyvPmMiscProjSettings());
    return settings;
}

CString shownSetting(const RyvCfgDrawingSettings& settings, int index) {
    const CString* const value = settings.find(index);
    return value ? u"\"" + *value + u"\"" : CString(u"absent");
}

/// The indices of the settings that differ, exactly compared.
std::set<int> differences(const RyvCfgDrawingSettings& a, const RyvCfgDrawingSettings& b) {
    std::set<int> indices;
    for (int index = 0; index < settingCount; ++index)
        if (shownSetting(a, index) != shownSetting(b, index))
            indices.insert(index);
    return indices;
}

/// The rows of a sheet that hold a value of a drawing setting.
std::vector<SettingRow> valueRows(const CRyvCfgPropSheet& sheet) {
    std::vector<SettingRow> rows;
    for (const auto& page : sheet.settingsPages())
        for (const auto& panel : page->panels())
            for (const SettingRow& row : panel->rows())
                if (row.key.area == SettingArea::drawing && row.kind != ControlKind::button)
                    rows.push_back(row);
    return rows;
}

/// Gives a control another value as a user would; what is to be stored then. Empty when it was refused.
CString changeAsUser(Control& control, const SettingRow& row, const CString& before) {
    if (auto* const field = dynamic_cast<TextField*>(&control))
        return field->type(before + u"7") ? before + u"7" : CString();
    if (auto* const box = dynamic_cast<CheckBox*>(&control)) {
        const bool done = box->click();
        return !done ? u"" : box->isChecked() ? u"1" : u"0";
    }
    const std::size_t other = equalNoCase(row.choices[0].value, before) ? 1 : 0;
    auto* const radio = dynamic_cast<RadioGroup*>(&control);
    auto* const combo = dynamic_cast<ComboBox*>(&control);
    const bool done = radio ? radio->choose(other) : combo && combo->choose(other);
    return done ? CString(row.choices[other].value) : CString();
}

class SettingsPanels : public testing::Test {
protected:
    DrawingValues drawing(const RyvCfgDrawingSettings& settings) {
        DrawingValues values{RyvPrmFileDetails(u"\\p\\Power\\10 Supply.dwg"), true, settings, u"PUMPS"};
        return values;
    }
    CRyvCfgDrawingPropSheet sheetOf(const RyvCfgDrawingSettings& settings) {
        return CRyvCfgDrawingPropSheet(u"Properties", drawing(settings));
    }
    void answer(CStringView function, const CStringArray& values) {
        surroundings.documents.open = true;
        HostResultBuffer reply;
        for (const CString& value : values)
            reply.addString(value);
        surroundings.lisp.answer(function, values.empty() ? HostResultBuffer().addNil() : reply);
    }
    void run(Dialog& dialog, CStringView script) {
        dialog.begin();
        const ScriptResult result = runDialogScript(dialog, script);
        EXPECT_TRUE(result.ok()) << toUtf8(result.failedStep + u": " + result.problem);
    }

    ScriptedPlatform surroundings;
};

TEST_F(SettingsPanels, eachSetting_standsOnOnePanelOfEachSheet) {
    const CRyvCfgDrawingPropSheet ofDrawing = sheetOf(defaults());
    const CRyvCfgProjPropSheet ofProject(u"", {{}, {}, defaults()});
    for (int index = 0; index < settingCount; ++index) {
        const bool edited = index != 50 && index != 55;
        const auto count = [index](const CRyvCfgPropSheet& sheet) {
            const std::vector<SettingRow> rows = valueRows(sheet);
            return std::count_if(rows.begin(), rows.end(),
                [index](const SettingRow& row) { return row.key == drawingSetting(index); });
        };
        EXPECT_EQ(count(ofDrawing), edited ? 1 : 0) << index;
        EXPECT_EQ(count(ofProject), edited && !RyvCfgDrawingSettings::isDrawingSpecific(index) ? 1 : 0)
            << index;
    }
    std::set<CString> names;
    for (const Control* const control : ofDrawing.controls()) {
        EXPECT_FALSE(control->label().empty()) << toUtf8(control->name());
        EXPECT_TRUE(names.insert(control->name()).second) << toUtf8(control->name());
    }
    for (const SettingRow& row : valueRows(ofDrawing))
        EXPECT_GT(ofDrawing.find(controlIdOf(row))->tooltip().size(), 20u) << row.key.number;
}

/// Also that it is stored under its code, and nothing beside it.
TEST_F(SettingsPanels, settingChangedByTheUser_isTheOnlyOneThatChanges) {
    for (const SettingRow& row : valueRows(sheetOf(defaults()))) {
        RyvCfgDrawingSettings before = defaults();
        if (row.when.key.area == SettingArea::drawing) {
            const CString usable(row.when.values.substr(0, row.when.values.find(u',')));
            before.setValue(row.when.key.number, &usable);
        }
        CRyvCfgDrawingPropSheet sheet = sheetOf(before);
        sheet.begin();
        EXPECT_EQ(differences(sheet.values().settings, before), std::set<int>()) << row.key.number;
        const CString expected = changeAsUser(
            *sheet.find(controlIdOf(row)), row, row.bit != 0 ? CString() : *before.find(row.key.number));
        EXPECT_FALSE(expected.empty()) << row.key.number;
        const RyvCfgDrawingSettings after = sheet.values().settings;
        EXPECT_EQ(differences(after, before), std::set<int>{row.key.number}) << row.key.number;
        EXPECT_EQ(toUtf8(*after.find(row.key.number)), toUtf8(expected)) << row.key.number;
    }
}

TEST_F(SettingsPanels, unknownAndAbsentValues_stayAsTheyAre) {
    RyvCfgDrawingSettings odd;
    for (int index = 0; index < settingCount; ++index) {
        const CString value = u"?? " + toText(index);
        odd.setValue(index, &value);
    }
    RyvCfgDrawingSettings empty;
    for (RyvCfgDrawingSettings* const settings : {&odd, &empty}) {
        const DrawingValues ofDrawing = sheetOf(*settings).values();
        EXPECT_EQ(differences(ofDrawing.settings, *settings), std::set<int>());
        const ProjectValues ofProject = CRyvCfgProjPropSheet(u"", {{}, {}, *settings}).values();
        EXPECT_EQ(differences(ofProject.settings, *settings), std::set<int>());
        EXPECT_TRUE(ofProject.misc.values().empty());
    }
    CRyvCfgDrawingPropSheet sheet = sheetOf(empty);
    run(sheet, u"tagMode=Sequential; wireFormat=W%N; fillUnused=1; ok");
    EXPECT_EQ(differences(sheet.values().settings, empty), (std::set<int>{2, 9, 61}));
}

TEST_F(SettingsPanels, codes_areSpelledOut) {
    struct Case {
        int index;
        const char16_t* choices; ///< "code text" of each, in order
    };
    const Case cases[] = {{0, u"H Horizontal|V Vertical"}, {2, u"R By line reference|S Sequential"},
        {6, u"R By line reference|S Sequential"}, {16, u"0 Draw all|1 Skip every other one"},
        {24, u"1 Horizontal first|0 Vertical first"}, {30, u"1.0 1.0 (inches)|25.4 25.4 (millimetres)"},
        {41, u"0 As required|1 Always|2 Never"}, {49, u"0 Gap|1 Loop|2 No gap"},
        {59, u"0 As drawn|1 Down, then to the right|2 Down, then to the left|3 Up, then to the right|"
             u"4 Up, then to the left|5 To the right, then down|6 To the right, then up|"
             u"7 To the left, then down|8 To the left, then up"},
        {60, u"0 Text|1 Graphics|2 Table"}, {65, u", Comma|,  Comma and blank"},
        {66, u"0 Graphic style|1 Contact map"}, {75, u"0 In line|1 Above the wire|2 Below the wire"},
        {1, u"1 Reference numbers|2 Ruling|3 User block|4 X-Y grid|5 X zones|6 Sheet and numbers|"
            u"7 Sheet, dash and numbers|8 Numbers in hexagons|9 Sheet and numbers in hexagons"}};
    const CRyvCfgDrawingPropSheet sheet = sheetOf(defaults());
    for (const Case& each : cases) {
        const auto* const combo = dynamic_cast<const ComboBox*>(sheet.find(1000 + each.index));
        const Choices& choices =
            combo ? combo->rows() : sheet.control<RadioGroup>(1000 + each.index).choices();
        CString shown;
        for (const Choice& choice : choices)
            shown += (shown.empty() ? u"" : u"|") + choice.storedValue() + u" " + choice.text;
        EXPECT_EQ(toUtf8(shown), toUtf8(each.choices)) << each.index;
    }
}

TEST_F(SettingsPanels, codesInAnotherCase_areThatChoiceAndKeepTheirSpelling) {
    RyvCfgDrawingSettings settings = defaults();
    const CString lower = u"v";
    settings.setValue(0, &lower);
    CRyvCfgDrawingPropSheet sheet = sheetOf(settings);
    EXPECT_EQ(sheet.control<ComboBox>(1000).chosen(), 1u);
    EXPECT_EQ(*sheet.values().settings.find(0), u"v");
    EXPECT_TRUE(sheet.control<ComboBox>(1000).warning().empty());
}

TEST_F(SettingsPanels, dependentControls_followAcrossPanels) {
    struct Case {
        const char16_t* script;
        std::vector<CString> usable;
        std::vector<CString> disabled;
    };
    const Case cases[] = {
        {u"tagMode=Sequential", {u"tagStart"}, {u"tagSuffixes", u"editTagSuffixes"}},
        {u"tagMode=By line reference", {u"tagSuffixes"}, {u"tagStart"}},
        {u"wireMode=Sequential", {u"wireStart", u"wireIncrement"}, {u"wireSuffixes"}},
        {u"wireNumberPosition=In line", {u"wireNumberGap", u"setUpGap"}, {u"wireNumberOffset"}},
        {u"lineReferences=1", {}, {u"xOrigin", u"ySpacing", u"gridOrder", u"setUpGrid"}},
        {u"lineReferences=X zones", {u"xOrigin", u"xFirst", u"setUpGrid"}, {u"ySpacing", u"gridDelimiter"}},
        {u"lineReferences=X-Y grid", {u"xOrigin", u"yFirst", u"gridOrder", u"gridDelimiter"}, {}},
        {u"fillUnused=0", {}, {u"unusedText"}},
        {u"fillUnused=1", {u"unusedText"}, {}},
        {u"referenceStyle=Text", {u"textBetween", u"setUpText"}, {u"graphics", u"contactMap", u"tableTitle"}},
        {u"referenceStyle=Graphics", {u"graphicStyle", u"contactMap"}, {u"textBetween", u"tableStyle"}},
        {u"referenceStyle=Table", {u"contactMap", u"tableNames"}, {u"textBetween", u"graphics"}},
    };
    CRyvCfgDrawingPropSheet sheet = sheetOf(defaults());
    const auto isEnabled = [&sheet](const CString& name) {
        for (const Control* const control : sheet.controls())
            if (control->name() == name)
                return control->isEnabled();
        ADD_FAILURE() << toUtf8(name);
        return false;
    };
    for (const Case& each : cases) {
        run(sheet, each.script);
        for (const CString& name : each.usable)
            EXPECT_TRUE(isEnabled(name)) << toUtf8(each.script) << ": " << toUtf8(name);
        for (const CString& name : each.disabled)
            EXPECT_FALSE(isEnabled(name)) << toUtf8(each.script) << ": " << toUtf8(name);
    }
}

TEST_F(SettingsPanels, doubtfulValues_areWarnedOfAndStored) {
    struct Case {
        int index;
        const char16_t* value;
        int warning; ///< number of the text; 0 for none
    };
    const Case cases[] = {{5, u"%F", message::warnFormatWithoutNumber}, {5, u"%F%n", 0},
        {9, u"", message::warnFormatWithoutNumber}, {10, u"1.5", 0}, {11, u"-1", message::warnNotPositive},
        {11, u" +0.75 ", 0}, {11, u"1e400", message::warnNotPositive},
        {11, u"0,75", message::warnDecimalComma}, {11, u"1,2,3", message::warnNotPositive},
        {12, u"", message::warnNotPositive}, {15, u"1.5", message::warnNotWhole}, {15, u"10", 0},
        {27, u"A,B", message::warnNoLayer}, {27, u"", message::warnNoLayer}, {27, u"Draht 1", 0},
        {26, u"WIRES,,RED", message::warnNoLayers}, {26, u"WIRE*, RED", 0},
        {26, u"A|B", message::warnNoLayers}, {30, u"nan", message::warnNotPositive}, {30, u"10", 0},
        {43, u"", message::warnNotWhole}, {74, u"x", message::warnNoNumber},
        {74, u"-0,5", message::warnDecimalComma}, {74, u"", 0}, {1, u"10", 2511},
        {0, u"D", message::warnUnknown}, {69, u"", 0}};
    for (const Case& each : cases) {
        RyvCfgDrawingSettings settings = defaults();
        const CString value = each.value;
        settings.setValue(each.index, &value);
        CRyvCfgDrawingPropSheet sheet = sheetOf(settings);
        const CString pattern(messageText(each.warning));
        EXPECT_EQ(toUtf8(sheet.control<Control>(1000 + each.index).warning()),
            toUtf8(replaceAll(pattern, u"%s",
                each.warning == message::warnDecimalComma ? replaceAll(value, u",", u".") : value)))
            << each.index << " " << toUtf8(value);
        run(sheet, u"ok");
        EXPECT_EQ(sheet.result(), Dialog::idOk);
        EXPECT_EQ(*sheet.values().settings.find(each.index), value);
    }
    CRyvCfgDrawingPropSheet sheet = sheetOf(RyvCfgDrawingSettings());
    for (const Control* const control : sheet.controls())
        EXPECT_TRUE(control->warning().empty()) << toUtf8(control->name()) << " is absent";
    run(sheet, u"rungSpacing=x");
    EXPECT_FALSE(sheet.control<Control>(1011).warning().empty());
    run(sheet, u"rungSpacing=2");
    EXPECT_TRUE(sheet.control<Control>(1011).warning().empty());
}

TEST_F(SettingsPanels, packageDialogs_getWhatTheControlsShow) {
    struct Case {
        const char16_t* script;
        const char16_t* function;
        CStringArray reply;
        CStringArray call; ///< the strings that LISP gets
        std::set<int> changed;
    };
    const Case cases[] = {
        {u"editTagSuffixes", u"c:ryv_cfg_component_suffix_dlg", {u",X"}, {u",A,B,C,D,E,F,G,H,J"}, {4}},
        {u"tagSuffixes=X,Y; editTagSuffixes", u"c:ryv_cfg_component_suffix_dlg", {}, {u"X,Y"}, {4}},
        {u"sortReferences=1; textBetween=;; setUpText", u"c:kq_xref_setup_text",
            {u"/", u"1", u"5", u"...", u"0"}, {u"", u"1", u"0", u"", u"0"}, {61, 63, 64, 65}},
        {u"referenceStyle=Graphics; setUpGraphics", u"c:kq_xref_setup_graphical",
            {u"1", u"3", u"NO", u"0", u"0", u"", u"0"}, {u"1", u"0", u"NO,NC,NONC", u"0", u"0", u"", u"0"},
            {60, 67, 68}},
        {u"referenceStyle=Table; setUpTable", u"c:kq_xref_setup_table", {u"too", u"short"},
            {u"Standard", u"%T", u"1,2,3,5", u"W1,T1,TYPE,T2,W2,REF,SH,SHDWGNAM,FILENAME,FULLFILENAM",
                u"MC,MC,MC,MC,MC,MC,MC,MC,L,L", u"NO,NC,NONC", u"0", u"0", u"", u"0", u"%N", u"%N"},
            {60}},
        {u"lineReferences=X-Y grid; setUpGrid", u"kq_cfg_Lxy_setup",
            {u"1", u"2", u"3", u"4", u"B", u"5", u"0", u"."},
            {u"X-Y and X-zone references", u"", u"", u"2.0", u"2.0", u"A", u"1", u"1", u"-"},
            {1, 18, 19, 20, 21, 22, 23, 24, 25}},
        {u"formatsByLayer", u"kq_proja_do_wfmt_bylay_setup", {u"RED=R%N", u"BLUE=B%N"}, {u""}, {55}},
    };
    for (const Case& each : cases) {
        answer(each.function, each.reply);
        RyvCfgDrawingSettings before = defaults();
        CRyvCfgDrawingPropSheet sheet = sheetOf(before);
        run(sheet, each.script);
        CStringArray call{CString(each.function)};
        call.insert(call.end(), each.call.begin(), each.call.end());
        EXPECT_EQ(
            CStringArray(surroundings.lisp.calls().back().begin(), surroundings.lisp.calls().back().end()),
            call)
            << toUtf8(each.script);
        EXPECT_EQ(differences(sheet.values().settings, before), each.changed) << toUtf8(each.script);
    }
}

TEST_F(SettingsPanels, gapAndForeignData_areHandledWithCare) {
    RyvCfgDrawingSettings settings = defaults();
    const CString foreign = u"somebody's";
    const CString inLine = u"0";
    settings.setValue(55, &foreign);
    settings.setValue(75, &inLine);
    CRyvCfgDrawingPropSheet sheet = sheetOf(settings);
    run(sheet, u"formatsByLayer");
    EXPECT_EQ(surroundings.ui.messages.back().message, message::formatsByLayerForeign);
    surroundings.documents.open = true;
    surroundings.lisp.answer(
        u"kq_strblk_inline_gap_su", HostResultBuffer().addReal(0.5).addReal(2).addReal(0));
    run(sheet, u"wireNumberGap=a,b; setUpGap");
    EXPECT_EQ(sheet.control<TextField>(1076).text(), u"0.5,2.0,0.0");
    EXPECT_EQ(*sheet.values().settings.find(55), foreign);
    const CString formats = u"RED=R%N";
    settings.setValue(55, &formats);
    const std::pair<CStringArray, CString> replies[] = {{{}, formats}, {{u""}, {}}}; // cancelled, emptied
    for (const auto& [reply, stored] : replies) {
        answer(u"kq_proja_do_wfmt_bylay_setup", reply);
        CRyvCfgDrawingPropSheet other = sheetOf(settings);
        run(other, u"formatsByLayer; ok");
        EXPECT_EQ(*other.values().settings.find(55), stored);
    }
}

TEST_F(SettingsPanels, pages_areGolden) {
    RyvCfgDrawingSettings settings = defaults();
    const CString format = u"%F";
    settings.setValue(5, &format);
    CRyvCfgDrawingPropSheet sheet = sheetOf(settings);
    sheet.turnTo(1);
    CString text = TextRenderer().dialog(sheet);
    sheet.turnTo(5);
    text += u"\n" + TextRenderer().dialog(sheet);
    expectGolden("settings_pages", text);
}

} // namespace
} // namespace ryv::test
