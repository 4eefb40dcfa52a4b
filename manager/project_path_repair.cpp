// The check of a project's drawing paths at its opening, and writing what was repaired.

#include "manager/path_check.h"
#include "manager/project_manager.h"
#include "manager/shown_messages.h"
#include "resources/message_numbers.h"

namespace ryv {

namespace {

void showError(int title, int text, std::initializer_list<FormatArgument> arguments) {
    showMessage({text, title}, arguments);
}

/// Why the repaired project cannot be written; of a lock that is free or the user's own there is nothing to
/// say.
void tellWhyNotLocked(_lockStatus status, const CString& projectId, const CString& holder) {
    switch (status) {
    case lockInvalid:
    case lockMissing:
        return showError(message::repairRefusedTitle, message::repairRefusedMissing, {shownPath(projectId)});
    case lockOther:
        return showError(
            message::repairRefusedTitle, message::repairRefusedLocked, {shownPath(projectId), holder});
    case lockUnreadable:
        return showError(message::repairRefusedTitle, message::repairRefusedUnreadable, {});
    case lockReadOnly:
    case lockFolderReadOnly:
        return showError(message::repairRefusedTitle, message::repairRefusedReadOnly, {});
    case lockNone:
    case lockMine:
        return;
    }
}

} // namespace

bool RyvPrmProjectManager::verifyAndRepairAbsolutePaths(RyvPrmProject& project) {
    findMissingDrawings(project);
    if (!project.pathsRepaired)
        return false;
    const CString id = project.getProjectID();
    if (project.pathCheckCancelled) { // an earlier check of this object was stopped: nothing of it is to stay
        project.readProject(id);
        return false;
    }
    if (lockProjectFile(id)) {
        if (!project.writeProject())
            showError(message::repairNotWrittenTitle, message::repairNotWritten, {shownPath(id)});
        unlockProjectFile(id);
        return true;
    }
    CString holder;
    CString machine;
    CString time;
    const _lockStatus status = whoHasProjectFileLocked(id, &holder, &machine, &time);
    tellWhyNotLocked(status, id, holder);
    return true;
}

} // namespace ryv
