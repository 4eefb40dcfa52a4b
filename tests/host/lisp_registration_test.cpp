// How the module's functions are defined in a document's LISP, and the package's made callable.
#include "host/lisp/lisp_function.h"
#include "tests/host/lisp_fixture.h"

namespace ryv::test {
namespace {

/// "1 name\n" for each function that was defined.
std::string definedIn(const ScriptedLisp& lisp) {
    std::string lines;
    for (const auto& [name, code] : lisp.defined)
        lines += std::to_string(code) + " " + toUtf8(name) + "\n";
    return lines;
}

TEST(LispRegistration, definesEveryFunctionInOrder) {
    ScriptedPlatform surroundings;
    registerLispFunctions();
    EXPECT_EQ(definedIn(surroundings.lisp),
        "1 ryv_loadlastprojects\n5 ryv_openproject\n6 ryv_virtuallockproject\n7 ryv_getprojectlockstatus\n"
        "8 ryv_getprojectwholocked\n9 ryv_getdwgwholocked\n10 ryv_getdwglockstatus\n11 ryv_getactiveproject\n"
        "12 ryv_closeproject\n13 ryv_isProjectSameNameAsExisting\n14 ryv_croverridedlg\n15 "
        "ryv_rereadproject\n"
        "16 ryv_getelecregsetting\n17 ryv_setelecregsetting\n18 ryv_ensureKQMandattribsexist\n"
        "19 ryv_beginwaitcursor\n20 ryv_endwaitcursor\n21 ryv_circ_tempfile\n22 ryv_updateLastProjectFile\n"
        "28 ryv_taskdialog\n29 ryv_copy_file\n30 ryv_delete_file\n31 ryv_isOZMProject\n32 "
        "ryv_getprojectcount\n");
}

/// Notes which codes get a handler, in order, though nothing can be defined.
class RefusingLisp final : public NullHostLisp {
public:
    std::string bound;
    LispStatus registerHandler(int code, LispHandler) override {
        bound += std::to_string(code) + " ";
        return LispStatus::success;
    }
};

TEST(LispRegistration, functionsThatCannotBeDefined_areBoundButForThree) {
    ScriptedPlatform surroundings;
    RefusingLisp lisp;
    surroundings.ports.host.lisp = &lisp;
    registerLispFunctions();
    EXPECT_EQ(lisp.bound, "1 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 21 22 29 30 ");
}

TEST(LispRegistration, packageFunctions_areMadeCallableAndFailuresTold) {
    const CStringArray names{u"kq_cpyprj_chk4_related_files", u"kq_proj_figure_kqtitle_fnam",
        u"ryv_makeproj_active", u"kq_cfg_add_lay", u"kq_cfg_Lref_setup", u"kqupda_chkdwglockstatus",
        u"kq_ped_get_mg_on_dwg", u"kq_loc_get_locs_or_inst_for_proj", u"kq_proja_cat_legit",
        u"kq_proja_do_wfmt_bylay_setup", u"kq_strblk_inline_gap_su", u"kq_cfg_Lxy_setup",
        u"kq_xref_tbl_indexlst", u"kq_xref_tbl_fldnams", u"kq_xref_tbl_jstlst", u"kq_cfg_setup_wlay",
        u"kq_cfg_setup_wlay_doit", u"kq_kqp_get_dwg_WNUM_GAP_settings", u"kqupda_chkdwglockstatus_internal"};
    for (const bool succeeds : {true, false}) {
        ScriptedPlatform surroundings;
        surroundings.documents.open = true;
        succeeds ? surroundings.lisp.answer(u"veval-str+", HostResultBuffer().addNil())
                 : surroundings.lisp.fail(u"veval-str+");
        registerLispFunctions();
        CString told;
        ASSERT_EQ(surroundings.lisp.calls().size(), names.size());
        for (std::size_t i = 0; i < names.size(); ++i) {
            EXPECT_EQ(surroundings.lisp.calls()[i].at(1), u"(expose-function '" + names[i] + u")");
            const bool isHalf = names[i] == u"kq_cfg_setup_wlay_doit";
            told += u"\n*** Unable to register \"" + (isHalf ? names[i - 1] : names[i]) + u"\" ***";
        }
        EXPECT_EQ(shown(surroundings.console.printed), shown(succeeds ? CString() : told));
    }
}

TEST(LispRegistration, functionThatThrows_givesNilAndThree) {
    ScriptedPlatform surroundings;
    surroundings.lisp.defineFunction(u"f", 99);
    surroundings.lisp.registerHandler(99, [&surroundings] {
        surroundings.lisp.returnT();
        return runLispFunction([](const LispValues&) -> LispAnswer { throw std::bad_alloc(); });
    });
    const LispReply reply = surroundings.lisp.call(u"f");
    EXPECT_EQ(reply.status, 3);
    EXPECT_EQ(reply.value.at(0).type, ResultType::nil);
}

} // namespace
} // namespace ryv::test
