#include "base/paths.h"
#include "bridge/platform.h"
#include "manager/file_locks.h"
#include "manager/shown_messages.h"
#include "resources/setting_message_numbers.h"
#include "ui/dialogs/work/compare_dialog.h"
#include "ui/dialogs/work/drawing_access.h"
#include "ui/dialogs/work/settings_work.h"
#include "ui/dialogs/work/told_refusal.h"

namespace ryv {

namespace {

/// The drawing is only looked at; the project's defaults stay what they are while they are shown.
bool lockBoth(FileLocks& locks, const CString& drawing) {
    return locks.check({drawing}) && locks.lockProject();
}

void tellNoProject(const CString& drawing) {
    showMessage({message::compareNoProject, message::compareNoProjectTitle, MessageIcon::warning},
        {shownPath(drawing)});
}

} // namespace

void compareDrawing(CStringView drawing) {
    const CString path(drawing);
    const CString projectId = projectOf(path);
    if (projectId.empty()) {
        tellNoProject(path);
        return;
    }
    FileLocks locks(projectId);
    if (!lockBoth(locks, path)) {
        tellRefusal(locks);
        return;
    }
    const auto project = holdProject(projectId);
    if (!project) { // LISP closed it
        locks.unlock();
        tellNoProject(path);
        return;
    }
    const CString name = nameOfProject(projectId);
    const RyvCfgDrawingSettings ofProject = defaultsOf(project.get());
    RyvCfgDrawingSettings ofDrawing(ofProject);
    CString problem;
    if (!readDrawing(path, ofDrawing, problem)) {
        locks.unlock();
        tellNotRead(problem);
        return;
    }
    CRyvCfgDwgSettingsCompareDlg dialog(CString(paths::findFileName(path)), name, ofDrawing, ofProject);
    platform().ui->runModal(dialog);
}

} // namespace ryv
