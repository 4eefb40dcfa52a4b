#include "host/lisp_functions.h"

#include "bridge/platform.h"
#include "host/lisp/exposed_functions.h"
#include "host/lisp/lisp_dialog_functions.h"
#include "host/lisp/lisp_drawing_functions.h"
#include "host/lisp/lisp_file_functions.h"
#include "host/lisp/lisp_lock_functions.h"
#include "host/lisp/lisp_project_functions.h"
#include "host/lisp/lisp_setting_functions.h"

#include <array>

namespace ryv {

namespace {

namespace f = lisp_functions;

constexpr bool onlyIfDefined = true;

/// In the order of defining. Codes 2 to 4 and 23 to 27 are not used. Deliberate: three functions are bound
/// only when they could be defined, all others in any case, so that a host which refuses a name that it has
/// defined already still gets the new handlers of the older functions.
constexpr std::array<LispFunction, 24> functions{{
    {1, u"ryv_loadlastprojects", f::loadLastProjects},
    {5, u"ryv_openproject", f::openProject},
    {6, u"ryv_virtuallockproject", f::virtualLockProject},
    {7, u"ryv_getprojectlockstatus", f::getProjectLockStatus},
    {8, u"ryv_getprojectwholocked", f::getProjectWhoLocked},
    {9, u"ryv_getdwgwholocked", f::getDrawingWhoLocked},
    {10, u"ryv_getdwglockstatus", f::getDrawingLockStatus},
    {11, u"ryv_getactiveproject", f::getActiveProject},
    {12, u"ryv_closeproject", f::closeProject},
    {13, u"ryv_isProjectSameNameAsExisting", f::isProjectSameNameAsExisting},
    {14, u"ryv_croverridedlg", f::overrideCrossReferences},
    {15, u"ryv_rereadproject", f::rereadProject},
    {16, u"ryv_getelecregsetting", f::getElecRegSetting},
    {17, u"ryv_setelecregsetting", f::setElecRegSetting},
    {18, u"ryv_ensureKQMandattribsexist", f::ensureSettingsBlockAndAttributes},
    {19, u"ryv_beginwaitcursor", f::beginWaitCursor},
    {20, u"ryv_endwaitcursor", f::endWaitCursor},
    {21, u"ryv_circ_tempfile", f::temporaryDrawing},
    {22, u"ryv_updateLastProjectFile", f::updateLastProjectFile},
    {28, u"ryv_taskdialog", f::showTaskDialog, onlyIfDefined},
    {29, u"ryv_copy_file", f::copyFile},
    {30, u"ryv_delete_file", f::deleteFile},
    {31, u"ryv_isOZMProject", f::isOZMProject, onlyIfDefined},
    {32, u"ryv_getprojectcount", f::getProjectCount, onlyIfDefined},
}};

void registerFunction(const LispFunction& function) {
    HostLisp& lisp = *platform().host.lisp;
    const bool defined = lisp.defineFunction(function.name, function.code) == LispStatus::success;
    if (defined || !function.bindsOnlyIfDefined)
        lisp.registerHandler(function.code, [work = function.work] { return runLispFunction(work); });
}

} // namespace

void registerLispFunctions() {
    for (const LispFunction& function : functions)
        registerFunction(function);
    exposeLispFunctions();
}

} // namespace ryv
