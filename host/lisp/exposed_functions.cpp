#include "host/lisp/exposed_functions.h"

#include "bridge/lisp.h"
#include "bridge/platform.h"

#include <array>

namespace ryv {

namespace {

struct ExposedFunction {
    CStringView name;
    CStringView problem; // what is told when it cannot be made callable
};

/// In the order of making them callable. The messages stand here whole, so that they can be found by what
/// users see of them.
constexpr std::array<ExposedFunction, 19> exposed{{
    {u"kq_cpyprj_chk4_related_files", u"\n*** Unable to register \"kq_cpyprj_chk4_related_files\" ***"},
    {u"kq_proj_figure_kqtitle_fnam", u"\n*** Unable to register \"kq_proj_figure_kqtitle_fnam\" ***"},
    {u"ryv_makeproj_active", u"\n*** Unable to register \"ryv_makeproj_active\" ***"},
    {u"kq_cfg_add_lay", u"\n*** Unable to register \"kq_cfg_add_lay\" ***"},
    {u"kq_cfg_Lref_setup", u"\n*** Unable to register \"kq_cfg_Lref_setup\" ***"},
    {u"kqupda_chkdwglockstatus", u"\n*** Unable to register \"kqupda_chkdwglockstatus\" ***"},
    {u"kq_ped_get_mg_on_dwg", u"\n*** Unable to register \"kq_ped_get_mg_on_dwg\" ***"},
    {u"kq_loc_get_locs_or_inst_for_proj",
        u"\n*** Unable to register \"kq_loc_get_locs_or_inst_for_proj\" ***"},
    {u"kq_proja_cat_legit", u"\n*** Unable to register \"kq_proja_cat_legit\" ***"},
    {u"kq_proja_do_wfmt_bylay_setup", u"\n*** Unable to register \"kq_proja_do_wfmt_bylay_setup\" ***"},
    {u"kq_strblk_inline_gap_su", u"\n*** Unable to register \"kq_strblk_inline_gap_su\" ***"},
    {u"kq_cfg_Lxy_setup", u"\n*** Unable to register \"kq_cfg_Lxy_setup\" ***"},
    {u"kq_xref_tbl_indexlst", u"\n*** Unable to register \"kq_xref_tbl_indexlst\" ***"},
    {u"kq_xref_tbl_fldnams", u"\n*** Unable to register \"kq_xref_tbl_fldnams\" ***"},
    {u"kq_xref_tbl_jstlst", u"\n*** Unable to register \"kq_xref_tbl_jstlst\" ***"},
    {u"kq_cfg_setup_wlay", u"\n*** Unable to register \"kq_cfg_setup_wlay\" ***"},
    // Deliberate: it is told under the name of the function that it is the working half of, which is the
    // one that users and support know.
    {u"kq_cfg_setup_wlay_doit", u"\n*** Unable to register \"kq_cfg_setup_wlay\" ***"},
    {u"kq_kqp_get_dwg_WNUM_GAP_settings",
        u"\n*** Unable to register \"kq_kqp_get_dwg_WNUM_GAP_settings\" ***"},
    {u"kqupda_chkdwglockstatus_internal",
        u"\n*** Unable to register \"kqupda_chkdwglockstatus_internal\" ***"},
}};

} // namespace

void exposeLispFunctions() {
    for (const ExposedFunction& function : exposed)
        if (exposeLispFunction(function.name) != LispStatus::success)
            platform().host.console->print(function.problem);
}

} // namespace ryv
