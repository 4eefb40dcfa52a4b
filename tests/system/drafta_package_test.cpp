// What the project manager relies on: which functions the package has, and which of them it may call.
#include "bridge/recent_projects.h"
#include "embedded/documents/host.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

namespace ryv::test {
namespace {

class Package {
public:
    Package() { host.newDocument(); }

    /// Calls a function with more arguments than any takes. A function that may be called from outside says
    /// so, which is printed; any other is not found.
    bool isInvocable(const CString& name) {
        printed.clear();
        HostResultBuffer call = HostResultBuffer().addString(name);
        for (int i = 0; i < 20; ++i)
            call.addNil();
        HostResultBuffer result;
        EXPECT_EQ(host.platform().host.lisp->invoke(call, result), LispStatus::failure);
        return printed.find("too many arguments") != std::string::npos;
    }

    /// As the project manager makes a function callable; false when the package does not have it.
    bool expose(const CString& name) {
        const auto call =
            HostResultBuffer().addString(u"veval-str+").addString(u"(expose-function '" + name + u")");
        HostResultBuffer result;
        return host.platform().host.lisp->invoke(call, result) == LispStatus::success;
    }

    TempFolder profile;
    std::string printed;
    drafta::Host host{{profile.native(), DRAFTA_PRODUCT, [this](std::string_view text) { printed += text; },
        [this](std::string_view text) { printed += text; }, nullptr}};
};

TEST(DraftaPackageTest, package_loading_printsNothing) {
    EXPECT_EQ(Package().printed, "");
}

TEST(DraftaPackageTest, functions_thatAreCalledFromOutside_areInvocable) {
    Package package;
    for (const char16_t* const name : {u"ryv_get_var", u"c:kq_getenv", u"c:kq_msg", u"veval-str+",
             u"c:kq_get_recent_prj_lst", u"ryv_proj_closed", u"c:ryv_proj_new", u"c:ryv_proj_recent",
             u"c:ryv_kqp_reread", u"c:ryv_update_dwg_lst", u"c:ryv_proj_multiple_remove", u"c:ryv_sort_dlst",
             u"c:ryv_proj_edit_proj_description_lines", u"c:ryv_proj_dwg_secsub_properties",
             u"c:kq_proj_properties_display", u"c:kq_help_proj_settings", u"c:ryv_proj_symbol_lib_dlg",
             u"c:kq_reread_dwg_params", u"c:ryv_tb_nodlg", u"c:kq_upd_ldr_ref", u"c:ryv_ladr_update_sheet",
             u"c:ryv_check_linkterm", u"c:ryv_term_linkterm_update_main",
             u"kq_1_luk4_replaceable_substitution", u"c:kq_xref_setup_graphical", u"c:kq_xref_setup_table",
             u"c:kq_xref_setup_text", u"c:ryv_cfg_component_suffix_dlg", u"c:ryv_cfg_wirenum_suffix_dlg",
             u"ryv_rename_wire_properties", u"kq_fio_does_block_exist_disk", u"kq_fio_block_path_failed_msg",
             u"c:kq_get_locs_on_dwg", u"c:kq_get_locs_for_proj", u"kqupda_check_and_lock", u"kqupda_unlock"})
        EXPECT_TRUE(package.isInvocable(name)) << toUtf8(name) << ": " << package.printed;
}

TEST(DraftaPackageTest, functions_thatTheProjectManagerExposes_areThereForIt) {
    Package package;
    for (const char16_t* const name :
        {u"kq_cpyprj_chk4_related_files", u"kq_proj_figure_kqtitle_fnam", u"ryv_makeproj_active",
            u"kq_cfg_add_lay", u"kq_cfg_Lref_setup", u"kqupda_chkdwglockstatus", u"kq_ped_get_mg_on_dwg",
            u"kq_loc_get_locs_or_inst_for_proj", u"kq_proja_cat_legit", u"kq_proja_do_wfmt_bylay_setup",
            u"kq_strblk_inline_gap_su", u"kq_cfg_Lxy_setup", u"kq_xref_tbl_indexlst", u"kq_xref_tbl_fldnams",
            u"kq_xref_tbl_jstlst", u"kq_cfg_setup_wlay", u"kq_cfg_setup_wlay_doit",
            u"kq_kqp_get_dwg_WNUM_GAP_settings", u"kqupda_chkdwglockstatus_internal"}) {
        EXPECT_FALSE(package.isInvocable(name)) << toUtf8(name);
        EXPECT_TRUE(package.expose(name)) << toUtf8(name) << ": " << package.printed;
        EXPECT_TRUE(package.isInvocable(name)) << toUtf8(name) << ": " << package.printed;
    }
    EXPECT_FALSE(package.expose(u"kq_no_such_function"));
}

TEST(DraftaPackageTest, recentProjects_asTheProjectManagerReadsThem_keepPathsAndStates) {
    Package package;
    HostResultBuffer answer;
    const auto call = HostResultBuffer().addString(u"c:kq_get_recent_prj_lst");
    ASSERT_EQ(package.host.platform().host.lisp->invoke(call, answer), LispStatus::success);
    EXPECT_TRUE(recentProjectsIn(answer).paths.empty());
    for (const char* const name : {"a.kqp", "b.kqp", "c.kqp", "a.kqp"}) {
        package.profile.write(name, "x.dwg\n");
        package.host.openProject(package.profile.module(fromAscii(name)));
    }
    EXPECT_EQ(package.printed, "");
    ASSERT_EQ(package.host.platform().host.lisp->invoke(call, answer), LispStatus::success);
    const RecentProjects projects = recentProjectsIn(answer);
    EXPECT_EQ(projects.paths, (CStringArray{package.profile.module(u"a.kqp"),
                                  package.profile.module(u"c.kqp"), package.profile.module(u"b.kqp")}));
    EXPECT_EQ(projects.flags, (CStringArray{u"2", u"1", u"1"}));
}

TEST(DraftaPackageTest, functions_thatCommandStringsName_takeTheirArguments) {
    Package package;
    for (const char16_t* const text : {u"(c:kq_dwglst_proj)", u"(c:kq_tb)", u"(c:kq_bump)",
             u"(c:kq_upd_pending nil)", u"(c:ryv_prnt_proj nil nil)", u"(c:kq_zip_do_kqzip 0)",
             u"(c:ryv_kqp_reread)", u"(c:kq_iec_tag_freshen)", u"RYPUBLISH", u"kq_menu_clear_kqmenu2use",
             u"(c:kq_reread_dwg_params)", u"(RYMtUpdateComponent)", u"(c:kq_9_do_qsave)"}) {
        package.printed.clear();
        package.host.runLine(text);
        for (const char* const complaint : {"arguments", "no function", "Unknown", "bad "})
            EXPECT_EQ(package.printed.find(complaint), std::string::npos) << package.printed;
    }
}

/// Stands in for the project manager: what it says of files is a list of their states.
constexpr CStringView lockFunctions = uR"lisp((progn
  (setq states '(("\\p\\free.kqp" . 1) ("\\p\\own.KQP" . 2) ("\\p\\held.kqp" . 3) ("\\p\\odd.kqp" . 4) ("\\p\\other.kqp" . 1)
                 ("\\p\\free.dwg" . 1) ("\\p\\held.dwg" . 3) ("\\p\\read-only.dwg" . 5) ("\\p\\none.dwg" . 6) ("\\p\\vague.dwg" . 0)))
  (defun ryv_getprojectlockstatus (path) (cdr (assoc path states)))
  (defun ryv_getprojectwholocked (path) (if (assoc path states) "ann(PC 7)"))
  (defun ryv_getdwglockstatus (path) (cdr (assoc path states)))
  (defun ryv_getdwgwholocked (path) (if (assoc path states) "ann(PC 7)"))
  (defun ryv_virtuallockproject (path mode)
    (setq calls (strcat (if calls calls "") (itoa mode) path " "))
    (if (and (= mode 1) (wcmatch path "*other*")) 0 1))
  (princ)))lisp";

TEST(DraftaPackageTest, lockCheck_locksWhatIsFreeOrNothing) {
    Package package;
    LockCheck& check = *package.host.platform().services.lockCheck;
    CStringList locked;
    EXPECT_FALSE(check.LispCheckFileLockStatusAndLock({u"\\p\\free.kqp"}, 1, 0, locked));
    EXPECT_NE(package.printed.find("project manager"), std::string::npos) << package.printed;
    package.host.runLine(lockFunctions);
    struct Case {
        CStringList files;
        int looks;
        const char* locked; // "-" for a refusal
        const char* printed;
        const char* calls;
    };
    const CString free = u"\\p\\free.kqp";
    const CString drawing = u"\\p\\free.dwg";
    const Case cases[] = {{{free, u"\\p\\own.KQP", drawing, u"\\p\\none.dwg"}, 0,
                              "\\p\\free.kqp \\p\\free.dwg ", "", "1\\p\\free.kqp 1\\p\\free.dwg "},
        {{free, drawing}, 1, "\\p\\free.kqp ", "", "1\\p\\free.kqp "},
        {{drawing, u"\\p\\read-only.dwg"}, 0, "-", "/p/read-only.dwg: ann(PC 7)\n",
            "1\\p\\free.dwg 0\\p\\free.dwg "},
        {{u"\\p\\own.KQP"}, 0, "", "", ""}, {{}, 0, "", "", ""},
        {{free, u"\\p\\held.kqp", free}, 0, "-", "/p/held.kqp: ann(PC 7) is working on it\n",
            "1\\p\\free.kqp 0\\p\\free.kqp "},
        {{free, u"\\p\\odd.kqp"}, 0, "-", "/p/odd.kqp: ann(PC 7)\n", "1\\p\\free.kqp 0\\p\\free.kqp "},
        {{u"\\p\\other.kqp"}, 0, "-", "/p/other.kqp: it cannot be locked\n", "1\\p\\other.kqp "},
        {{u"\\p\\held.dwg"}, 1, "-", "/p/held.dwg: ann(PC 7) is working on it\n", ""},
        {{u"\\p\\read-only.dwg"}, 0, "-", "/p/read-only.dwg: ann(PC 7)\n", ""},
        {{u"\\p\\read-only.dwg"}, 1, "", "", ""}, {{u"\\p\\vague.dwg"}, 1, "", "", ""},
        {{u"\\p\\vague.dwg"}, 0, "-", "/p/vague.dwg: ann(PC 7)\n", ""},
        {{u"\\p\\unknown.dwg"}, 1, "-", "/p/unknown.dwg: who is working on it cannot be told\n", ""}};
    for (const Case& each : cases) {
        package.host.runLine(u"(progn (setq calls nil) (princ))");
        package.printed.clear();
        locked.clear();
        const bool good = check.LispCheckFileLockStatusAndLock(each.files, 1, each.looks, locked);
        EXPECT_EQ(package.printed, each.printed);
        std::string names;
        for (const CString& file : locked)
            names += toAscii(file) + " ";
        EXPECT_EQ(good ? names : "-", each.locked);
        package.printed.clear();
        package.host.runLine(u"(progn (princ (if calls calls \"\")) (princ))");
        EXPECT_EQ(package.printed, each.calls) << each.printed;
    }
    package.host.runLine(u"(progn (setq calls nil) (princ))");
    check.LispUpdUnlockFiles({drawing, free});
    package.printed.clear();
    package.host.runLine(u"(progn (princ calls) (princ))");
    EXPECT_EQ(package.printed, "0\\p\\free.dwg 0\\p\\free.kqp ");
}

} // namespace
} // namespace ryv::test
