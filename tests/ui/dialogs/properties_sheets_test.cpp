// What the properties sheets edit beside the settings of drawings.
#include "resources/messages.h"
#include "resources/setting_message_numbers.h"
#include "tests/support/scripted_platform.h"
#include "tests/support/text.h"
#include "toolkit/combo_box.h"
#include "toolkit/control_value.h"
#include "toolkit/dialog_script.h"
#include "toolkit/text_field.h"
#include "ui/dialogs/sheets/drawing_sheet.h"
#include "ui/dialogs/sheets/project_sheet.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace ryv::test {
namespace {

void run(Dialog& dialog, CStringView script) {
    dialog.begin();
    const ScriptResult result = runDialogScript(dialog, script);
    EXPECT_TRUE(result.ok()) << toUtf8(result.failedStep + u": " + result.problem);
}

RyvPmMiscProjSettings miscOf(std::initializer_list<std::pair<int, CString>> values) {
    RyvPmMiscProjSettings misc;
    for (const auto& [index, value] : values)
        misc.setValue(index, &value);
    return misc;
}

TEST(ProjectSheet, valuesOfTheProject_areEditedAndOthersKept) {
    ScriptedPlatform surroundings;
    surroundings.documents.open = true;
    const ProjectValues before{{u"Pump station", u"", u"1998"},
        miscOf({{5, u"7"}, {8, u"1"}, {12, u"kept"}, {39, u"X:\\link"}}), {}};
    CRyvCfgProjPropSheet sheet(u"Properties of PUMPS", before);
    EXPECT_EQ(sheet.title(), u"Properties of PUMPS");
    run(sheet, u"defaultGraphics=1; defaultSeparator=Comma; defaultSort=1; descriptions=One||Three|; ok");
    const ProjectValues after = sheet.values();
    EXPECT_EQ(after.misc, miscOf({{5, u"15"}, {8, u"0"}, {12, u"kept"}, {28, u"1"}, {39, u"X:\\link"}}));
    EXPECT_EQ(after.descriptions, (CStringList{u"One", u"", u"Three"}));
    EXPECT_TRUE(sheet.control<TextField>(2039).isReadOnly());
    surroundings.documents.runApplicationContext();
    ASSERT_EQ(surroundings.documents.sent.size(), 1u);
    EXPECT_EQ(surroundings.documents.sent[0].text, u"kq_menu_clear_kqmenu2use\r");
}

TEST(ProjectSheet, referencesThatStillAreAsTheDefaultsMadeThem_followTheDefaults) {
    const ScriptedPlatform surroundings;
    const RyvPmMiscProjSettings misc = miscOf({{5, u"0"}, {7, u"spare"}, {8, u"0"}, {28, u"0"}});
    ProjectValues before{{}, misc, {}};
    before.settings.fillWithDefaults(misc);
    const CString own = u"; ";
    before.settings.setValue(65, &own);
    const struct {
        const char16_t* script;
        std::map<int, CString> changed;
        CString separator = u"0";
    } cases[] = {{u"defaultGraphics=1; ok", {{60, u"1"}, {66, u"0"}, {67, u"1"}}},
        {u"defaultUnusedText=; ok", {{61, u"0"}, {63, u""}}},
        {u"defaultUnusedText=free; unusedText=mine; ok", {{63, u"mine"}}},
        {u"defaultSort=1; ok", {{64, u"1"}}}, {u"defaultSeparator=Comma and blank; ok", {}, u"1"},
        {u"defaultSeparator=Comma and blank; defaultSeparator=Comma; ok", {}},
        // Buttons whose questions are cancelled.
        {u"defaultGraphics=1; browseMenuFile; ok", {{60, u"1"}, {66, u"0"}, {67, u"1"}}},
        {u"defaultSeparator=Comma and blank; browseMenuFile; defaultSeparator=Comma; ok", {}}};
    for (const auto& each : cases) {
        CRyvCfgProjPropSheet sheet(u"", before);
        run(sheet, each.script);
        RyvCfgDrawingSettings expected(before.settings);
        for (const auto& [index, value] : each.changed)
            expected.setValue(index, &value);
        EXPECT_TRUE(sheet.values().settings == expected) << toUtf8(each.script);
        EXPECT_EQ(sheet.values().misc.values().at(8), each.separator) << toUtf8(each.script);
    }
    CRyvCfgProjPropSheet absent(u"", {{}, misc, {}});
    run(absent, u"defaultGraphics=1; ok");
    EXPECT_TRUE(absent.values().settings == RyvCfgDrawingSettings());
}

TEST(ProjectSheet, libraries_areShownInFullAndKeptWithTheirVariables) {
    ScriptedPlatform surroundings;
    surroundings.documents.open = true;
    surroundings.lisp.setVariable(u"GBL_kq_BaseLibs", HostResultBuffer().addString(u"\\libs"));
    const CString stored = u"%SL_DIR%\\iec2;%SL_DIR%\\own";
    const ProjectValues before{{}, miscOf({{1, stored}, {3, u"\\else"}}), {}};
    CRyvCfgProjPropSheet sheet(u"", before);
    EXPECT_EQ(sheet.control<TextField>(2001).text(), u"\\libs\\iec2;\\libs\\own");
    EXPECT_EQ(toUtf8(sheet.control<TextField>(2001).warning()), "Folder not found: \\libs\\iec2");
    surroundings.lisp.setVariable(u"GBL_kq_BaseLibs", HostResultBuffer().addString(u"\\moved"));
    EXPECT_EQ(sheet.values().misc, before.misc) << "untouched, whatever the variable says by now";
    surroundings.lisp.setVariable(u"GBL_kq_BaseLibs", HostResultBuffer().addString(u"\\libs"));
    run(sheet, u"schematicLibraries=\"\\libs\\other\"; menuFile=\"\\menu.dat\"");
    EXPECT_EQ(sheet.values().misc, miscOf({{1, u"%SL_DIR%\\other"}, {3, u"\\else"}, {4, u"\\menu.dat"}}));
    EXPECT_EQ(toUtf8(sheet.control<TextField>(2004).warning()), "File not found: \\menu.dat");
}

TEST(ProjectSheet, libraries_areChosen) {
    ScriptedPlatform surroundings;
    surroundings.ui.answerFiles(message::librarySchematic, {u"\\libs\\own"});
    surroundings.ui.answerFiles(message::librarySchematic, {u"\\libs\\OWN"});
    surroundings.ui.answerFiles(message::libraryPanel, {});
    surroundings.ui.answerFiles(message::libraryMenu, {u"\\menu.dat"});
    CRyvCfgProjPropSheet sheet(u"", {{}, miscOf({{1, u"\\libs\\iec"}}), {}});
    run(sheet, u"browseSchematic; browseSchematic; browsePanel; browseMenuFile");
    EXPECT_EQ(sheet.values().misc, miscOf({{1, u"\\libs\\iec;\\libs\\own"}, {4, u"\\menu.dat"}}));
}

TEST(ProjectSheet, absentSettings_tellWhatCountsInstead) {
    ScriptedPlatform surroundings;
    surroundings.documents.open = true;
    ProjectValues values{{}, miscOf({{7, u"spare"}}), {}};
    const CString format = u"%N";
    values.settings.setValue(5, &format);
    const CRyvCfgProjPropSheet sheet(u"", values);
    const auto& calls = surroundings.lisp.calls();
    EXPECT_EQ(std::count(calls.begin(), calls.end(), std::vector<CString>{u"kq_xref_tbl_fldnams"}), 1)
        << "LISP is asked once for all";
    RyvCfgDrawingSettings usual;
    usual.fillWithDefaults(values.misc);
    EXPECT_EQ(sheet.control<TextField>(1009).placeholder(), *usual.find(9));
    EXPECT_EQ(sheet.control<TextField>(1005).placeholder(), u"") << "it is given";
    EXPECT_EQ(sheet.control<ComboBox>(1059).placeholder(), messageText(message::numberingOrderUnset));
    EXPECT_EQ(sheet.values().settings.find(9), nullptr) << "it stays absent";
}

TEST(ProjectSheet, separatorThatIsAbsent_countsAsAComma) {
    const ScriptedPlatform surroundings;
    const ProjectValues values{{}, miscOf({{7, u"spare"}}), {}};
    CRyvCfgProjPropSheet sheet(u"", values);
    EXPECT_EQ(valueOf(*sheet.find(2008)), u"0");
    EXPECT_EQ(sheet.values().misc, values.misc) << "it stays absent";
    run(sheet, u"defaultSeparator=Comma and blank; ok");
    EXPECT_EQ(sheet.values().misc, miscOf({{7, u"spare"}, {8, u"1"}}));
}

TEST(ProjectSheet, formats_nameTheCodesThatTheyMayHold) {
    const ScriptedPlatform surroundings;
    const CRyvCfgProjPropSheet sheet(u"", {});
    for (const int id : {1005, 1009, 1014, 1047})
        EXPECT_NE(sheet.find(id)->tooltip().find(u"%S sheet, %N number"), CString::npos) << id;
}

TEST(DrawingSheet, entryInTheProject_isEdited) {
    const ScriptedPlatform surroundings;
    RyvPrmFileDetails details(u"\\p\\a.dwg");
    details.setDescription1(u"S1");
    details.addDescription(u"Supply");
    details.setFileId(7);
    CRyvCfgDrawingPropSheet sheet(u"", {details, true, {}, u"PUMPS"});
    EXPECT_EQ(sheet.values().details, details) << "untouched";
    run(sheet, u"subSection==B; descriptions=Supply|=400 V; referenceOnly=1; sheet=10; locationCode=K1; ok");
    const DrawingValues after = sheet.values();
    RyvPrmFileDetails expected(details);
    expected.setDescription2(u"B");
    expected.addDescription(u"400 V");
    expected.setReferenceOnly(true);
    EXPECT_EQ(after.details, expected);
    EXPECT_EQ(*after.settings.find(13), u"10");
    EXPECT_EQ(*after.settings.find(53), u"K1");
}

/// It changes the drawing at once, behind the sheet.
TEST(DrawingSheet, makingLayersInTheCurrentDrawing_isOfferedForOthersOnly) {
    ScriptedPlatform surroundings;
    const auto isOffered = [](const CRyvCfgPropSheet& sheet) {
        for (const Control* const control : sheet.controls())
            if (control->name() == u"makeWireLayers")
                return control->isVisible();
        return false;
    };
    surroundings.documents.openDocument(u"\\p\\a.dwg");
    EXPECT_FALSE(isOffered(CRyvCfgDrawingPropSheet(u"", {RyvPrmFileDetails(u"\\P\\A.dwg"), true, {}})));
    EXPECT_TRUE(isOffered(CRyvCfgDrawingPropSheet(u"", {RyvPrmFileDetails(u"\\p\\b.dwg"), true, {}})));
    EXPECT_TRUE(isOffered(CRyvCfgProjPropSheet(u"", ProjectValues())));
    surroundings.documents.openDocument(u"Drawing2.dwg", false);
    EXPECT_TRUE(isOffered(CRyvCfgDrawingPropSheet(u"", {RyvPrmFileDetails(u"\\p\\a.dwg"), true, {}})));
    EXPECT_FALSE(isOffered(CRyvCfgDrawingPropSheet(u"", {RyvPrmFileDetails(u"Drawing2.dwg"), false, {}})));
}

TEST(DrawingSheet, outsideOfProjects_hasNoEntry) {
    const ScriptedPlatform surroundings;
    const CRyvCfgDrawingPropSheet sheet(u"", {RyvPrmFileDetails(u"\\p\\a.dwg"), false, {}});
    for (const Control* const control : sheet.controls())
        if (control->name() == u"section" || control->name() == u"project" || control->name() == u"file") {
            EXPECT_EQ(control->isVisible(), control->name() == u"file") << toUtf8(control->name());
        }
}

} // namespace
} // namespace ryv::test
