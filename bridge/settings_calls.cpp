#include "bridge/settings_calls.h"

#include "bridge/lisp_call.h"

#include <algorithm>

namespace ryv::lisp {

namespace {

HostResultBuffer call(CStringView function) {
    return HostResultBuffer().addString(function);
}

/// A call with one list of strings.
template <std::size_t N>
HostResultBuffer call(CStringView function, const std::array<CString, N>& values) {
    return call(function).addStrings(CStringArray(values.begin(), values.end()));
}

} // namespace

bool setUpGraphicalReferences(const GraphicalReferenceValues& values, GraphicalReferenceValues& edited) {
    CStringArray list;
    if (!callLispForStrings(call(u"c:kq_xref_setup_graphical", values), list) || list.size() != edited.size())
        return false;
    std::move(list.begin(), list.end(), edited.begin());
    return true;
}

bool setUpReferenceTable(const ReferenceTableValues& values, CStringArray& edited) {
    return callLispForStrings(call(u"c:kq_xref_setup_table", values), edited);
}

bool setUpReferenceText(const ReferenceTextValues& values, CStringArray& edited) {
    return callLispForStrings(call(u"c:kq_xref_setup_text", values), edited);
}

bool referenceTableFieldNames(CString& names) {
    return callLispForString(call(u"kq_xref_tbl_fldnams"), names);
}

bool referenceTableIndices(CString& indices) {
    return callLispForString(call(u"kq_xref_tbl_indexlst"), indices);
}

bool referenceTableAlignments(CString& alignments) {
    return callLispForString(call(u"kq_xref_tbl_jstlst"), alignments);
}

bool wireNumberGap(CString& gap) {
    return callLispForString(call(u"kq_kqp_get_dwg_WNUM_GAP_settings"), gap);
}

bool editComponentSuffixes(CStringView suffixes, CString& edited) {
    return callLispForString(call(u"c:ryv_cfg_component_suffix_dlg").addString(suffixes), edited);
}

bool editWireNumberSuffixes(CStringView suffixes, CString& edited) {
    return callLispForString(call(u"c:ryv_cfg_wirenum_suffix_dlg").addString(suffixes), edited);
}

bool renameWireProperties(CStringView properties, CString& renamed) {
    return callLispForString(call(u"ryv_rename_wire_properties").addString(properties), renamed);
}

bool setUpLadderReferences(CStringView kind, CStringView text, CString& result) {
    return callLispForString(
        call(u"kq_cfg_Lref_setup").addString(kind).addString(text).addNil().addNil(), result);
}

bool setUpGridReferences(CStringView text, const CStringArray& values, CStringArray& edited) {
    return callLispForStrings(call(u"kq_cfg_Lxy_setup").addNil().addString(text).addStrings(values), edited);
}

bool setUpWireLayers(std::int16_t number, const std::vector<CStringArray>& lists) {
    HostResultBuffer request = call(u"kq_cfg_setup_wlay_doit").addListBegin().addInteger(number);
    for (const CStringArray& list : lists)
        request.addStrings(list);
    return callLisp(request.addListEnd());
}

bool addLayers(std::int16_t kind, const CStringArray& layers) {
    return callLisp(call(u"kq_cfg_add_lay").addInteger(kind).addStrings(layers));
}

bool setUpWireFormatByLayer(CStringView setting, CStringArray& formats) {
    return callLispForStrings(call(u"kq_proja_do_wfmt_bylay_setup").addString(setting), formats);
}

bool checkCatalogValue(CStringView value, std::int16_t& verdict) {
    return callLispForInteger(call(u"kq_proja_cat_legit").addString(value), verdict);
}

bool inlineGap(std::vector<double>& gap) {
    return callLispForNumbers(call(u"kq_strblk_inline_gap_su").addNil().addInteger(1), gap);
}

bool setUpInlineGap(const std::vector<double>& present, std::vector<double>& gap) {
    HostResultBuffer request = call(u"kq_strblk_inline_gap_su").addListBegin();
    for (const double number : present)
        request.addReal(number);
    return callLispForNumbers(request.addListEnd(), gap);
}

bool findBlockFile(CStringView block, CString& file) {
    return callLispForString(call(u"kq_fio_does_block_exist_disk").addString(block), file);
}

bool tellBlockFileMissing(CStringView block) {
    return callLisp(call(u"kq_fio_block_path_failed_msg").addString(block));
}

bool installationsOnDrawing(CStringArray& values) {
    return callLispForItems(call(u"kq_ped_get_mg_on_dwg").addInteger(1).addString(u"INST"), values);
}

bool installationsOfProject(CStringArray& values) {
    return callLispForItems(call(u"kq_loc_get_locs_or_inst_for_proj").addString(u"INST").addNil(), values);
}

bool locationsOnDrawing(CStringArray& values) {
    return callLispForItems(call(u"c:kq_get_locs_on_dwg").addInteger(1), values);
}

bool locationsOfProject(CStringArray& values) {
    return callLispForItems(call(u"c:kq_get_locs_for_proj").addNil(), values);
}

} // namespace ryv::lisp
