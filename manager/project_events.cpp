#include "manager/project_events.h"

namespace ryv {

// NOLINTNEXTLINE(bugprone-reserved-identifier)
void ProjectEvents::__RemoveAllEventHandlers(const void* receiver) {
    const auto removeFrom = [receiver](auto&... lists) { (lists.removeAll(receiver), ...); };
    removeFrom(onProjectOpen, onProjectClose, onProjectCloseAllNA, onPreProjectReRead, onProjectReRead,
        onProjectSetActive, onProjectActived, onProjectDeactivate, OnProjectEventVetoCheck, onProjectLocked,
        onProjectUnlocked, onProjectReadOnlyChanged, onProjectAddDrawing, onProjectAddDrawings,
        onProjectRemoveDrawing, onProjectRemoveDrawings, onProjectReplaceDrawing, onProjectTasksAdded,
        onProjectTasksDeleted, onPreProjectDrawingDetailsModify, onPreProjectSetMiscProjectSettings,
        onStartupProjectLoadingComplete, onDrawingActivate, onAddinSynchronize, onAddinQueryOZMFiles,
        onAddinRelinkProject, onAddinQueryNonActiveProjOZMFiles);
}

bool ProjectEvents::sendEventVetoCheck() {
    bool veto = false;
    OnProjectEventVetoCheck(veto);
    return veto;
}

} // namespace ryv
