#include "bridge/environment.h"
#include "bridge/project_calls.h"
#include "bridge/settings_calls.h"
#include "tests/bridge/recording_host.h"

#include <gtest/gtest.h>

namespace ryv::test {
namespace {

using Chain = HostResultBuffer;

/// What a wrapper takes as its result.
enum class Takes { status, string, integer, list, strings, sevenStrings, numbers, items };

/// The output of a wrapper before a call, and where it puts its result.
struct Output {
    CString text = u"before";
    std::int16_t number = 4711;
    Chain list = Chain().addString(u"before");
    CStringArray strings{u"before"};
    lisp::GraphicalReferenceValues seven{u"1", u"2", u"3", u"4", u"5", u"6", u"7"};
    std::vector<double> numbers{0.5};
    bool cancelled = false;

    std::string shownAs(Takes kind) const {
        std::string line;
        for (const double each : numbers)
            line += std::to_string(each).substr(0, 4) + ";";
        switch (kind) {
        case Takes::status:
            return "";
        case Takes::string:
            return shown(text);
        case Takes::integer:
            return std::to_string(number);
        case Takes::list:
            return written(list);
        case Takes::numbers:
            return line;
        case Takes::sevenStrings:
            return written(Chain().addStrings({seven.begin(), seven.end()}));
        default:
            return written(Chain().addStrings(strings));
        }
    }
};

struct Wrapper {
    std::string call; ///< what LISP is asked
    Takes takes;
    std::function<bool(Output&)> run;
};

const lisp::ReferenceTableValues twelve{
    u"1", u"2", u"3", u"4", u"5", u"6", u"7", u"8", u"9", u"a", u"b", u"c"};

const Wrapper wrappers[] = {
    {R"("ryv_makeproj_active" "P")", Takes::status, [](Output&) { return lisp::makeProjectActive(u"P"); }},
    {R"("c:ryv_proj_new" 0)", Takes::string, [](Output& o) { return lisp::newProject(o.text); }},
    {R"("c:ryv_proj_recent")", Takes::string, [](Output& o) { return lisp::chooseRecentProject(o.text); }},
    {R"("c:ryv_update_dwg_lst")", Takes::status, [](Output&) { return lisp::updateDrawingList(); }},
    {R"("c:ryv_proj_multiple_remove" 1 "P")", Takes::status,
        [](Output&) { return lisp::removeDrawings(u"P"); }},
    {R"("c:ryv_sort_dlst" 1 "P" {"a" "b"})", Takes::status,
        [](Output& o) {
            return lisp::sortDrawings(u"P", {u"a", u"b"}, o.cancelled);
        }},
    {R"("c:ryv_proj_edit_proj_description_lines" 2 nil nil)", Takes::strings,
        [](Output& o) { return lisp::editDescriptionLines(2, o.strings); }},
    {R"("c:ryv_proj_edit_proj_description_lines" nil "T" ( "before" ))", Takes::strings,
        [](Output& o) { return lisp::editDescriptionLines(u"T", o.strings, o.strings); }},
    {R"("c:ryv_proj_dwg_secsub_properties" 1 "s" "b")", Takes::status,
        [](Output&) { return lisp::editSections(u"s", u"b"); }},
    {R"("kq_proj_figure_kqtitle_fnam" "P")", Takes::string,
        [](Output& o) { return lisp::findTitleBlockFile(u"P", o.text); }},
    {R"("c:kq_proj_properties_display")", Takes::status,
        [](Output&) { return lisp::displayProjectProperties(); }},
    {R"("c:kq_help_proj_settings")", Takes::status, [](Output&) { return lisp::showProjectSettingsHelp(); }},
    {R"("c:ryv_proj_symbol_lib_dlg" 1 "P")", Takes::status,
        [](Output&) { return lisp::editSymbolLibraries(u"P"); }},
    {R"("c:kq_reread_dwg_params")", Takes::status, [](Output&) { return lisp::rereadDrawingParameters(); }},
    {R"("c:ryv_tb_nodlg")", Takes::status, [](Output&) { return lisp::updateTitleBlock(); }},
    {R"("c:kq_upd_ldr_ref")", Takes::status, [](Output&) { return lisp::updateLadderReferences(); }},
    {R"("c:ryv_ladr_update_sheet" "1" "2" T)", Takes::status,
        [](Output&) { return lisp::updateLadderSheet(u"1", u"2", true); }},
    {R"("c:ryv_ladr_update_sheet" "1" "2" nil)", Takes::status,
        [](Output&) { return lisp::updateLadderSheet(u"1", u"2", false); }},
    {R"("c:ryv_check_linkterm" ( "a" "b" "D" ))", Takes::list,
        [](Output& o) {
            return lisp::checkTerminalLinks({u"a", u"b"}, u"D", o.list);
        }},
    {R"("c:ryv_term_linkterm_update_main" ( "a" "b" ))", Takes::status,
        [](Output&) {
            return lisp::updateTerminalLinks({u"a", u"b"});
        }},
    {R"("kq_1_luk4_replaceable_substitution" "before")", Takes::string,
        [](Output& o) { return lisp::substituteReplaceables(o.text, o.text); }},
    {R"("c:kq_xref_setup_graphical" ( "1" "2" "3" "4" "5" "6" "7" ))", Takes::sevenStrings,
        [](Output& o) { return lisp::setUpGraphicalReferences(o.seven, o.seven); }},
    {R"("c:kq_xref_setup_table" ( "1" "2" "3" "4" "5" "6" "7" "8" "9" "a" "b" "c" ))", Takes::strings,
        [](Output& o) { return lisp::setUpReferenceTable(twelve, o.strings); }},
    {R"("c:kq_xref_setup_text" ( "1" "2" "3" "4" "5" ))", Takes::strings,
        [](Output& o) {
            return lisp::setUpReferenceText({u"1", u"2", u"3", u"4", u"5"}, o.strings);
        }},
    {R"("kq_xref_tbl_fldnams")", Takes::string,
        [](Output& o) { return lisp::referenceTableFieldNames(o.text); }},
    {R"("kq_xref_tbl_indexlst")", Takes::string,
        [](Output& o) { return lisp::referenceTableIndices(o.text); }},
    {R"("kq_xref_tbl_jstlst")", Takes::string,
        [](Output& o) { return lisp::referenceTableAlignments(o.text); }},
    {R"("kq_kqp_get_dwg_WNUM_GAP_settings")", Takes::string,
        [](Output& o) { return lisp::wireNumberGap(o.text); }},
    {R"("c:ryv_cfg_component_suffix_dlg" ",A")", Takes::string,
        [](Output& o) { return lisp::editComponentSuffixes(u",A", o.text); }},
    {R"("c:ryv_cfg_wirenum_suffix_dlg" ",A")", Takes::string,
        [](Output& o) { return lisp::editWireNumberSuffixes(u",A", o.text); }},
    {R"("ryv_rename_wire_properties" "w")", Takes::string,
        [](Output& o) { return lisp::renameWireProperties(u"w", o.text); }},
    {R"("kq_cfg_Lref_setup" "1" "2" nil nil)", Takes::string,
        [](Output& o) { return lisp::setUpLadderReferences(u"1", u"2", o.text); }},
    {R"("kq_cfg_Lxy_setup" nil "4" ( "x" "y" ))", Takes::strings,
        [](Output& o) {
            return lisp::setUpGridReferences(u"4", {u"x", u"y"}, o.strings);
        }},
    {R"("kq_cfg_setup_wlay_doit" ( 3 ( "a" "b" ) nil ( "c" ) ))", Takes::status,
        [](Output&) {
            return lisp::setUpWireLayers(3, {{u"a", u"b"}, {}, {u"c"}});
        }},
    {R"("kq_cfg_add_lay" 2 ( "L" ))", Takes::status, [](Output&) { return lisp::addLayers(2, {u"L"}); }},
    {R"("kq_proja_do_wfmt_bylay_setup" "s")", Takes::strings,
        [](Output& o) { return lisp::setUpWireFormatByLayer(u"s", o.strings); }},
    {R"("kq_proja_cat_legit" "c")", Takes::integer,
        [](Output& o) { return lisp::checkCatalogValue(u"c", o.number); }},
    {R"("kq_strblk_inline_gap_su" nil 1)", Takes::numbers,
        [](Output& o) { return lisp::inlineGap(o.numbers); }},
    {R"("kq_strblk_inline_gap_su" ( 0.50 ))", Takes::numbers,
        [](Output& o) { return lisp::setUpInlineGap(o.numbers, o.numbers); }},
    {R"("kq_fio_does_block_exist_disk" "B")", Takes::string,
        [](Output& o) { return lisp::findBlockFile(u"B", o.text); }},
    {R"("kq_fio_block_path_failed_msg" "B")", Takes::status,
        [](Output&) { return lisp::tellBlockFileMissing(u"B"); }},
    {R"("kq_ped_get_mg_on_dwg" 1 "INST")", Takes::items,
        [](Output& o) { return lisp::installationsOnDrawing(o.strings); }},
    {R"("kq_loc_get_locs_or_inst_for_proj" "INST" nil)", Takes::items,
        [](Output& o) { return lisp::installationsOfProject(o.strings); }},
    {R"("c:kq_get_locs_on_dwg" 1)", Takes::items,
        [](Output& o) { return lisp::locationsOnDrawing(o.strings); }},
    {R"("c:kq_get_locs_for_proj" nil)", Takes::items,
        [](Output& o) { return lisp::locationsOfProject(o.strings); }},
    {R"("c:kq_getenv" "KQ_PROJ")", Takes::string,
        [](Output& o) { return readEnvironment(u"KQ_PROJ", o.text); }},
    {R"("c:kq_getenv" "KQ_LIB")", Takes::string, [](Output& o) { return readEnvironment(1, o.text); }},
    {R"("c:kq_getenv" "KQ_MENU")", Takes::string, [](Output& o) { return readEnvironment(2, o.text); }},
    {R"("c:kq_getenv" "KQ_PNL")", Takes::string, [](Output& o) { return readEnvironment(3, o.text); }},
    {R"("c:kq_getenv" "KQ_PMENU")", Takes::string, [](Output& o) { return readEnvironment(4, o.text); }},
};

/// An answer of LISP, and what each kind of wrapper makes of it: its output, or empty when it refuses.
struct Answer {
    Chain chain;
    std::map<Takes, std::string> taken;
};

const Answer answers[] = {
    {Chain(), {{Takes::items, "nil"}}},
    {Chain().addNil(), {{Takes::items, "nil"}}},
    {Chain().addTruth(), {}},
    {Chain().addInteger(3), {{Takes::integer, "3"}, {Takes::list, "3"}, {Takes::numbers, "3.00;"}}},
    {Chain().addReal(1.5).addInteger(2).addLongInteger(40000),
        {{Takes::list, "1.50 2 ?"}, {Takes::numbers, "1.50;2.00;4000;"}}},
    {Chain().addString(u"x"), {{Takes::string, R"("x")"}, {Takes::list, R"("x")"},
                                  {Takes::strings, R"(( "x" ))"}, {Takes::items, R"(( "x" ))"}}},
    {Chain().addStrings({u"x", u"y"}), {{Takes::list, R"(( "x" "y" ))"}, {Takes::items, R"(( "x" "y" ))"}}},
    {Chain().addString(u"x").addInteger(1),
        {{Takes::string, R"("x")"}, {Takes::list, R"("x" 1)"}, {Takes::items, R"(( "x" ))"}}},
    {Chain().addNestedList(Chain().addString(u"x")), {{Takes::list, R"({"x"})"}}},
    {Chain().addString(u"a")
            .addString(u"b")
            .addString(u"c")
            .addString(u"d")
            .addString(u"e")
            .addString(u"f")
            .addString(u""),
        {{Takes::string, R"("a")"}, {Takes::list, R"("a" "b" "c" "d" "e" "f" "")"},
            {Takes::strings, R"(( "a" "b" "c" "d" "e" "f" "" ))"},
            {Takes::items, R"(( "a" "b" "c" "d" "e" "f" "" ))"},
            {Takes::sevenStrings, R"(( "a" "b" "c" "d" "e" "f" "" ))"}}},
};

TEST(Wrappers, everyOne_asksAndTakesItsKindOfResultOnly) {
    RecordingHost host;
    for (const Wrapper& wrapper : wrappers) {
        SCOPED_TRACE(wrapper.call);
        for (const Answer& answer : answers) {
            SCOPED_TRACE(written(answer.chain));
            const auto hit = answer.taken.find(wrapper.takes);
            const bool taken = hit != answer.taken.end();
            host.lisp.reply = answer.chain;
            host.lisp.calls.clear();
            Output output;
            EXPECT_EQ(wrapper.run(output), taken || wrapper.takes == Takes::status);
            EXPECT_EQ(output.shownAs(wrapper.takes), taken ? hit->second : Output().shownAs(wrapper.takes));
            EXPECT_EQ(host.lisp.calls, std::vector{wrapper.call});
        }
    }
}

/// A status that is not 5100 decides, whatever came with it; without a document nothing is called.
TEST(Wrappers, everyOne_failsWithoutSuccessAndLeavesItsOutput) {
    RecordingHost host;
    for (const auto& [status, document] :
        {std::pair(LispStatus::failure, DocumentId{7}), std::pair(static_cast<LispStatus>(0), DocumentId{7}),
            std::pair(LispStatus::success, DocumentId::none)})
        for (const Wrapper& wrapper : wrappers)
            for (const Answer& answer : answers) {
                host.lisp.status = status;
                host.lisp.reply = answer.chain;
                host.lisp.calls.clear();
                host.documents.current = document;
                Output output;
                EXPECT_FALSE(wrapper.run(output)) << wrapper.call;
                EXPECT_EQ(output.shownAs(wrapper.takes), Output().shownAs(wrapper.takes)) << wrapper.call;
                EXPECT_EQ(host.lisp.calls.size(), document == DocumentId::none ? 0u : 1u) << wrapper.call;
            }
}

TEST(Wrappers, sorting_tellsWhenItWasCancelled) {
    RecordingHost host;
    bool cancelled = true;
    for (const auto& [reply, expected] : {std::pair(Chain().addTruth(), false),
             std::pair(Chain().addNil(), true), std::pair(Chain(), false)}) {
        host.lisp.reply = reply;
        EXPECT_TRUE(lisp::sortDrawings(u"P", {}, cancelled));
        EXPECT_EQ(cancelled, expected) << written(reply);
    }
    EXPECT_EQ(host.lisp.calls[0], R"("c:ryv_sort_dlst" 1 "P" {})");
}

TEST(Environment, codeOutsideOneToFour_callsNothing) {
    RecordingHost host;
    host.lisp.reply = Chain().addString(u"value");
    CString value = u"before";
    for (const int code : {0, 5, -1, 2147483647})
        EXPECT_FALSE(readEnvironment(code, value)) << code;
    EXPECT_EQ(value, u"before");
    EXPECT_TRUE(host.lisp.calls.empty());
}

TEST(Environment, message_isReplacedByAStringOnly) {
    RecordingHost host;
    host.lisp.reply = Chain().addString(u"Leiter");
    EXPECT_EQ(lispMessage(u"CFG037", u"Ladder"), u"Leiter");
    EXPECT_EQ(host.lisp.calls, std::vector<std::string>{R"("c:kq_msg" "CFG037" nil "Ladder")"});
    host.lisp.reply = Chain().addNil();
    EXPECT_EQ(lispMessage(u"CFG037", u"Ladder"), u"Ladder");
    host.documents.current = DocumentId::none;
    EXPECT_EQ(lispMessage(u"CFG037", u"Ladder"), u"Ladder");
}

} // namespace
} // namespace ryv::test
