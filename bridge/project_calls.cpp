#include "bridge/project_calls.h"

#include "bridge/lisp.h"
#include "bridge/lisp_call.h"

namespace ryv::lisp {

namespace {

HostResultBuffer call(CStringView function) {
    return HostResultBuffer().addString(function);
}

} // namespace

bool makeProjectActive(CStringView project) {
    return callLisp(call(u"ryv_makeproj_active").addString(project));
}

bool newProject(CString& answer) {
    return callLispForString(call(u"c:ryv_proj_new").addInteger(0), answer);
}

bool chooseRecentProject(CString& project) {
    return callLispForString(call(u"c:ryv_proj_recent"), project);
}

bool updateDrawingList() {
    return callLisp(call(u"c:ryv_update_dwg_lst"));
}

bool removeDrawings(CStringView project) {
    return callLisp(call(u"c:ryv_proj_multiple_remove").addInteger(1).addString(project));
}

bool sortDrawings(CStringView project, const CStringArray& chosen, bool& cancelled) {
    HostResultBuffer list;
    for (const CString& each : chosen)
        list.addString(each);
    HostResultBuffer reply;
    if (invokeLisp(call(u"c:ryv_sort_dlst").addInteger(1).addString(project).addNestedList(std::move(list)),
            reply) != LispStatus::success)
        return false;
    cancelled = reply.size() == 1 && reply.at(0).type == ResultType::nil;
    return true;
}

bool editDescriptionLines(std::int16_t selection, CStringArray& lines) {
    return callLispForStrings(
        call(u"c:ryv_proj_edit_proj_description_lines").addInteger(selection).addNil().addNil(), lines);
}

bool editDescriptionLines(CStringView text, const CStringArray& present, CStringArray& lines) {
    return callLispForStrings(
        call(u"c:ryv_proj_edit_proj_description_lines").addNil().addString(text).addStrings(present), lines);
}

bool editSections(CStringView section, CStringView subSection) {
    return callLisp(
        call(u"c:ryv_proj_dwg_secsub_properties").addInteger(1).addString(section).addString(subSection));
}

bool findTitleBlockFile(CStringView project, CString& file) {
    return callLispForString(call(u"kq_proj_figure_kqtitle_fnam").addString(project), file);
}

bool displayProjectProperties() {
    return callLisp(call(u"c:kq_proj_properties_display"));
}

bool showProjectSettingsHelp() {
    return callLisp(call(u"c:kq_help_proj_settings"));
}

bool editSymbolLibraries(CStringView project) {
    return callLisp(call(u"c:ryv_proj_symbol_lib_dlg").addInteger(1).addString(project));
}

bool rereadDrawingParameters() {
    return callLisp(call(u"c:kq_reread_dwg_params"));
}

bool updateTitleBlock() {
    return callLisp(call(u"c:ryv_tb_nodlg"));
}

bool updateLadderReferences() {
    return callLisp(call(u"c:kq_upd_ldr_ref"));
}

bool updateLadderSheet(CStringView oldSheet, CStringView newSheet, bool all) {
    HostResultBuffer request = call(u"c:ryv_ladr_update_sheet").addString(oldSheet).addString(newSheet);
    return callLisp(all ? request.addTruth() : request.addNil());
}

bool checkTerminalLinks(const CStringArray& drawings, CStringView database, HostResultBuffer& links) {
    CStringArray list = drawings;
    list.emplace_back(database);
    return callLispForList(call(u"c:ryv_check_linkterm").addStrings(list), links);
}

bool updateTerminalLinks(const CStringArray& drawings) {
    return callLisp(call(u"c:ryv_term_linkterm_update_main").addStrings(drawings));
}

bool substituteReplaceables(CStringView text, CString& result) {
    return callLispForString(call(u"kq_1_luk4_replaceable_substitution").addString(text), result);
}

} // namespace ryv::lisp
