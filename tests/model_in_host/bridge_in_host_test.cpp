// The wrappers of the package's LISP functions against that package: each gives what its header says. A copy
// of the sample project is the active one, and one of its drawings is the current document.
#include "bridge/command_strings.h"
#include "bridge/environment.h"
#include "bridge/lisp.h"
#include "bridge/platform.h"
#include "bridge/project_calls.h"
#include "bridge/project_reread.h"
#include "bridge/recent_projects.h"
#include "bridge/settings_calls.h"
#include "bridge/tag_format_globals.h"
#include "embedded/documents/host.h"
#include "tests/support/temp_folder.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

namespace ryv::test {
namespace {

std::string shown(const CString& text) {
    return toUtf8(text);
}

std::string shown(double number) {
    return std::to_string(number).substr(0, 4);
}

std::string shown(std::int16_t number) {
    return std::to_string(number);
}

template <class Values>
std::string shown(const Values& values) {
    std::string line;
    for (const auto& value : values)
        line += "|" + shown(value);
    return line.substr(line.empty() ? 0 : 1);
}

/// What a wrapper gives, or "false", for which it has to leave its output alone.
template <class Value, class Call>
std::string outcome(const Call& call) {
    Value value{};
    if (call(value))
        return shown(value);
    return value == Value{} ? "false" : "false, but it changed its output";
}

template <class Call>
std::string text(const Call& call) {
    return outcome<CString>(call);
}

template <class Call>
std::string texts(const Call& call) {
    return outcome<CStringArray>(call);
}

class BridgeInHostTest : public ::testing::Test {
protected:
    TempFolder folder;
    std::string printed;
    drafta::Host host{
        {folder.native("profile"), RYV_PRODUCT, [this](std::string_view text) { printed += text; },
            [this](std::string_view text) { printed += text; }, nullptr}};
    const CString project = folder.module(u"pump-station\\Pump Station.kqp");
    const CString cover = folder.module(u"pump-station\\01 Cover Sheet.dwg");
    const CString supply = folder.module(u"pump-station\\Power\\10 Main Supply.dwg");

    void SetUp() override {
        std::filesystem::copy(RYV_SAMPLES "/pump-station", folder.native("pump-station"),
            std::filesystem::copy_options::recursive);
        setPlatform(&host.platform());
        ASSERT_TRUE(host.openDocument(folder.module(u"pump-station\\Power\\Motors\\11 Pump Motors.dwg")));
        for (const char16_t* const name : {u"ryv_makeproj_active", u"kq_cfg_add_lay", u"kq_cfg_Lref_setup",
                 u"kq_proj_figure_kqtitle_fnam", u"kq_ped_get_mg_on_dwg", u"kq_loc_get_locs_or_inst_for_proj",
                 u"kq_proja_cat_legit", u"kq_proja_do_wfmt_bylay_setup", u"kq_strblk_inline_gap_su",
                 u"kq_cfg_Lxy_setup", u"kq_xref_tbl_indexlst", u"kq_xref_tbl_fldnams", u"kq_xref_tbl_jstlst",
                 u"kq_cfg_setup_wlay_doit", u"kq_kqp_get_dwg_WNUM_GAP_settings"})
            ASSERT_EQ(exposeLispFunction(name), LispStatus::success);
        ASSERT_TRUE(lisp::makeProjectActive(project));
        printed.clear();
    }
    void TearDown() override { setPlatform(nullptr); }

    void answer(const std::string& lines) {
        drafta::Answers answers;
        CString problem;
        ASSERT_TRUE(drafta::Answers::parse(decodeUtf8(lines), answers, problem)) << toUtf8(problem);
        host.userInterface().setAnswers(answers);
    }
    bool fileHolds(const std::string& lines) const {
        return folder.read("pump-station/Pump Station.kqp").find(lines) != std::string::npos;
    }
    bool wasPrinted(const std::string& what) const { return printed.find(what) != std::string::npos; }
};

TEST_F(BridgeInHostTest, projects_areMadeChosenAndRemembered) {
    answer("file 5001: " + folder.native("new") + "\nform recent_project: \nform recent_project: cancel\n");
    EXPECT_EQ(text(lisp::newProject), shown(folder.module(u"new.kqp")));
    EXPECT_EQ(text(lisp::newProject), "false") << "the file exists";
    ASSERT_TRUE(lisp::makeProjectActive(folder.module(u"new.kqp")));
    RecentProjects recent;
    ASSERT_TRUE(readRecentProjects(recent));
    EXPECT_EQ(recent.paths, (CStringArray{folder.module(u"new.kqp"), project}));
    EXPECT_EQ(recent.flags, (CStringArray{u"2", u"1"}));
    EXPECT_EQ(text(lisp::chooseRecentProject), shown(folder.module(u"new.kqp")));
    EXPECT_EQ(text(lisp::chooseRecentProject), "false");
}

TEST_F(BridgeInHostTest, projectFile_followsTheDialogs) {
    answer("form sort_drawings: first=sheet; descending=1\nform sort_drawings: cancel\n"
           "form remove_drawings: drawings=01 Cover Sheet.dwg\n"
           "form section: section=NEW; sub-section=\"=SUB\"\n"
           "form description_lines: 1=Erste Ä\nform description_lines: cancel\n"
           "form description_lines: 1=; 2=b\nform description_lines: 1=; 2=; 3=; 4=; 5=; 7=; 8=\n");
    bool cancelled = true;
    EXPECT_TRUE(lisp::sortDrawings(project, {supply, cover}, cancelled));
    EXPECT_FALSE(cancelled);
    EXPECT_TRUE(lisp::sortDrawings(project, {}, cancelled));
    EXPECT_TRUE(cancelled);
    EXPECT_TRUE(lisp::removeDrawings(project));
    EXPECT_FALSE(fileHolds("Cover Sheet.dwg"));
    ASSERT_TRUE(setSelectedDrawings({supply}));
    EXPECT_TRUE(lisp::editSections(u"", u""));
    EXPECT_TRUE(fileHolds("=NEW\n==SUB\n===MAIN SUPPLY\n")) << printed;
    const auto edit = [](CStringArray& lines) { return lisp::editDescriptionLines(1, lines); };
    EXPECT_TRUE(texts(edit).starts_with("Erste Ä|Waste water"));
    EXPECT_TRUE(fileHolds("*[1]Erste Ä\n"));
    EXPECT_EQ(texts(edit), "false");
    EXPECT_EQ(
        texts([](CStringArray& lines) { return lisp::editDescriptionLines(u"New", {u"a"}, lines); }), "|b");
    EXPECT_EQ(texts(edit), "") << "no line is left";
    EXPECT_FALSE(fileHolds("*["));
    EXPECT_TRUE(lisp::updateDrawingList());
}

TEST_F(BridgeInHostTest, drawings_areBroughtUpToDate) {
    EXPECT_EQ(text([&](CString& file) { return lisp::findTitleBlockFile(project, file); }),
        shown(host.platform().os.paths->fromNative(RYV_PRODUCT "/package/default.kqt")));
    for (const auto call : {lisp::rereadDrawingParameters, lisp::updateTitleBlock,
             lisp::updateLadderReferences, lisp::displayProjectProperties, lisp::showProjectSettingsHelp})
        EXPECT_TRUE(call());
    EXPECT_TRUE(lisp::updateLadderSheet(u"11", u"12", true));
    EXPECT_TRUE(lisp::editSymbolLibraries(project));
    for (const char* const what : {"11 Pump Motors.dwg: attributes changed: 0\n", "Ladders updated: 0\n",
             "15 drawings, 75 default settings\n", "defaults of all drawings", "package/libs/panel_mm\n"})
        EXPECT_TRUE(wasPrinted(what)) << what << printed;
    EXPECT_FALSE(wasPrinted("\\")) << "paths are shown as the system writes them: " << printed;
    HostResultBuffer links;
    EXPECT_FALSE(lisp::checkTerminalLinks({cover, supply}, u"x.mdb", links));
    host.runLine(
        u"(ryp-with-drawing (path-full \"" + replaceAll(supply, u'\\', u'/') +
        u"\") '(lambda (d) (dwg-first d \"KQ_HT1\") (dwg-add d (caar (dwg-attributes d)) \"LINKTERM\" \"7\" "
        u"'(0 -2 0)) (dwg-save d)))");
    ASSERT_TRUE(lisp::checkTerminalLinks({cover, supply}, u"x.mdb", links)) << printed;
    ASSERT_EQ(links.size(), 1u);
    EXPECT_EQ(*links.stringAt(0), supply);
    EXPECT_TRUE(lisp::updateTerminalLinks({supply}));
    EXPECT_TRUE(wasPrinted("Waiting for an update: terminal links, 1 drawings\n"));
}

TEST_F(BridgeInHostTest, setUps_giveValuesAsEdited_andFalseWhenCancelled) {
    answer("form xref_graphical: 7=g\nform xref_graphical: cancel\nform xref_table: 12=t\n"
           "form xref_table: cancel\nform xref_text: 5=x\nform xref_text: cancel\n"
           "form component_suffixes: value=c\nform component_suffixes: cancel\n"
           "form wire_suffixes: value=w\nform wire_suffixes: cancel\nform wire_properties: value=p\n"
           "form wire_properties: cancel\nform ladder_references: kind=4\nform ladder_references: cancel\n"
           "form ladder_grid: 2=y\nform ladder_grid: cancel\nform wire_formats: 2=B=%N\n"
           "form wire_formats: cancel\nform wire_formats: 1=\nform wire_formats: cancel\n"
           "form inline_gap: 1=3.5\nform inline_gap: cancel\n");
    const std::vector<std::pair<std::function<std::string()>, const char*>> cases = {
        {[] {
             return outcome<lisp::GraphicalReferenceValues>([](auto& edited) {
                 return lisp::setUpGraphicalReferences({u"1", u"2"}, edited);
             });
         },
            "1|2|||||g"},
        {[] { return texts([](auto& edited) { return lisp::setUpReferenceTable({u"1"}, edited); }); },
            "1|||||||||||t"},
        {[] { return texts([](auto& edited) { return lisp::setUpReferenceText({u"1"}, edited); }); },
            "1||||x"},
        {[] { return text([](auto& edited) { return lisp::editComponentSuffixes(u"a", edited); }); }, "c"},
        {[] { return text([](auto& edited) { return lisp::editWireNumberSuffixes(u"a", edited); }); }, "w"},
        {[] { return text([](auto& edited) { return lisp::renameWireProperties(u"a", edited); }); }, "p"},
        {[] { return text([](auto& kind) { return lisp::setUpLadderReferences(u"1", u"t", kind); }); }, "4"},
        {[] {
             return texts([](auto& edited) { return lisp::setUpGridReferences(u"t", {u"1", u"2"}, edited); });
         },
            "1|y"},
        {[] { return texts([](auto& edited) { return lisp::setUpWireFormatByLayer(u"A=1;C=2", edited); }); },
            "A=1|B=%N"},
        {[] { return texts([](auto& edited) { return lisp::setUpWireFormatByLayer(u"A=1", edited); }); }, ""},
        {[] {
             return outcome<std::vector<double>>([](auto& gap) {
                 return lisp::setUpInlineGap({0.5, 1.25}, gap);
             });
         },
            "3.50|1.25"},
    };
    for (const auto& [call, expected] : cases) {
        EXPECT_EQ(call(), expected);
        EXPECT_EQ(call(), "false") << expected;
    }
}

TEST_F(BridgeInHostTest, valuesWithoutAQuestion_areThere) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {text(lisp::referenceTableIndices), "1,2,3,5"},
        {text(lisp::referenceTableAlignments), "MC,MC,MC,MC,MC,MC,MC,MC,L,L"},
        {text(lisp::referenceTableFieldNames), "W1,T1,TYPE,T2,W2,REF,SH,SHDWGNAM,FILENAME,FULLFILENAM"},
        {text(lisp::wireNumberGap), "0.0,0.0,0.0"},
        {outcome<std::vector<double>>(lisp::inlineGap), "0.00|0.00|0.00"},
        {outcome<std::int16_t>([](auto& it) { return lisp::checkCatalogValue(u"A-1", it); }), "1"},
        {outcome<std::int16_t>([](auto& it) { return lisp::checkCatalogValue(u"A*", it); }), "0"},
        {text([](auto& file) { return lisp::findBlockFile(u"KQ_M", file); }),
            RYV_PRODUCT "/support/KQ_M.dwg"},
        {text([](auto& file) { return lisp::findBlockFile(u"none", file); }), "false"},
        {texts(lisp::installationsOnDrawing), "PUMPS"},
        {texts(lisp::installationsOfProject), "HVAC|PUMP1|PUMP2|PUMPS|STATION|ÜBERLAUF"},
        {texts(lisp::locationsOnDrawing), "MCC1"},
        {texts(lisp::locationsOfProject), "GEBÄUDE-N|MCC1|PLC1|WELL"},
        {text([](auto& value) { return lisp::substituteReplaceables(u"100%NONE%", value); }), "100%NONE%"},
        {text([](auto& value) { return readEnvironment(u"KQ_TAGLOC_SUPPRESS", value); }), "0"},
        {text([](auto& value) { return readEnvironment(4, value); }), ""},
        {text([](auto& value) { return readEnvironment(5, value); }), "false"},
        {shown(lispMessage(u"CFG041", u"default")), "default"},
        {shown(lispMessage(u"remove", u"default")), "Remove drawings"},
    };
    for (std::size_t i = 0; i < cases.size(); ++i)
        EXPECT_EQ(cases[i].first, cases[i].second) << "case " << i;
    EXPECT_TRUE(lisp::addLayers(0, {u"NEUTRAL"}));
    EXPECT_TRUE(lisp::setUpWireLayers(2, {{u"SHIELD", u"red"}, {}, {u""}}));
    EXPECT_TRUE(lisp::tellBlockFileMissing(u"KQ_X"));
    EXPECT_TRUE(wasPrinted("wire layer SHIELD: red\n") && wasPrinted("block KQ_X")) << printed;
    EXPECT_FALSE(wasPrinted("%1")) << printed;
}

TEST_F(BridgeInHostTest, globals_areTheDocumentsOwnFirst) {
    const TagFormatGlobals before = readTagFormatGlobals();
    for (const TagFormatGlobals::Global& global : before.globals)
        EXPECT_EQ(global, (TagFormatGlobals::Global{true, 0}));
    CString value;
    EXPECT_FALSE(readLispGlobal(u"GBL_kq_combined_tagloc_prefix", value)) << "it is a number";
    host.runLine(u"(setq GBL_kq_combined_tagloc_prefix \"0\")");
    EXPECT_TRUE(readLispGlobal(u"GBL_kq_combined_tagloc_prefix", value) && value == u"0");
    EXPECT_EQ(readTagFormatGlobals().globals[2], (TagFormatGlobals::Global{false, 0}));
    ProjectReread reread;
    EXPECT_TRUE(reread.run());
    EXPECT_EQ(readTagFormatGlobals(), before) << "shared anew";
    EXPECT_TRUE(readLispGlobal(u"GBL_kq_usr", value) && value.ends_with(u"/profile/"));
}

TEST_F(BridgeInHostTest, commandStrings_reachThePackage) {
    ASSERT_TRUE(setSelectedDrawings({supply}));
    queueCommandString(CommandString::updateTitleBlocks);
    queueCommandString(CommandString::publishDrawings);
    host.runLine(u"");
    EXPECT_TRUE(wasPrinted("Title blocks up to date: 1 of 1 drawings\n")) << printed;
    EXPECT_TRUE(wasPrinted("publish: 15 drawings\n")) << "the selection is used up: " << printed;
}

} // namespace
} // namespace ryv::test
