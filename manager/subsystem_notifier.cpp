#include "manager/subsystem_notifier.h"

#include "bridge/platform.h"
#include "manager/nav_state.h"
#include "manager/project_manager.h"

namespace ryv {

namespace {

CStringArray pathsOf(const CString& project, const CArray<RyvPrmFileDetails>& drawings) {
    CStringArray paths{project};
    for (const RyvPrmFileDetails& drawing : drawings)
        paths.emplace_back(drawing.getFileName());
    return paths;
}

void relay(CStringView event, const CStringArray& details) {
    platform().services.eventLog->log(event, details);
}

} // namespace

RyvPrmSubsystemNotifier::RyvPrmSubsystemNotifier(RyvPrmProjectManager& manager) : manager_(&manager) {
    using This = RyvPrmSubsystemNotifier;
    manager.onProjectOpen.subscribe(*this, &This::projectOpened);
    manager.onProjectClose.subscribe(*this, &This::projectClosed);
    manager.onProjectReRead.subscribe(*this, &This::projectReRead);
    manager.onProjectActived.subscribe(*this, &This::projectActivated);
    manager.onProjectLocked.subscribe(*this, &This::projectLocked);
    manager.onProjectUnlocked.subscribe(*this, &This::projectUnlocked);
    manager.onProjectReadOnlyChanged.subscribe(*this, &This::readOnlyChanged);
    manager.onProjectAddDrawing.subscribe(*this, &This::drawingAdded);
    manager.onProjectRemoveDrawing.subscribe(*this, &This::drawingRemoved);
    manager.onProjectAddDrawings.subscribe(*this, &This::drawingsAdded);
    manager.onProjectRemoveDrawings.subscribe(*this, &This::drawingsRemoved);
    manager.onProjectReplaceDrawing.subscribe(*this, &This::drawingReplaced);
    manager.onProjectTasksAdded.subscribe(*this, &This::tasksAdded);
    manager.onProjectTasksDeleted.subscribe(*this, &This::tasksDeleted);
    subscribed_ = true;
}

RyvPrmSubsystemNotifier::~RyvPrmSubsystemNotifier() {
    if (subscribed_ && GetProjectManager() == manager_)
        manager_->__RemoveAllEventHandlers(this);
    subscribed_ = false;
}

void RyvPrmSubsystemNotifier::projectOpened(const CString& project) {
    relay(u"onProjectOpen", {project});
}

void RyvPrmSubsystemNotifier::projectClosed(const CString& project) {
    relay(u"onProjectClose", {project});
}

void RyvPrmSubsystemNotifier::projectReRead(const CString& project) {
    relay(u"onProjectReRead", {project});
}

void RyvPrmSubsystemNotifier::projectActivated(const CString& project) {
    relay(u"onProjectActived", {project});
}

void RyvPrmSubsystemNotifier::projectLocked(const CString& project) {
    relay(u"onProjectLocked", {project});
}

void RyvPrmSubsystemNotifier::projectUnlocked(const CString& project) {
    relay(u"onProjectUnlocked", {project});
}

void RyvPrmSubsystemNotifier::readOnlyChanged(const CString& project, bool readOnly) {
    relay(u"onProjectReadOnlyChanged", {project, readOnly ? u"read-only" : u"writable"});
}

void RyvPrmSubsystemNotifier::drawingAdded(const CString& project, const RyvPrmFileDetails& drawing) {
    relay(u"onProjectAddDrawing", {project, CString(drawing.getFileName())});
}

void RyvPrmSubsystemNotifier::drawingRemoved(const CString& project, const CString& drawing, bool) {
    relay(u"onProjectRemoveDrawing", {project, drawing});
}

void RyvPrmSubsystemNotifier::drawingsAdded(
    const CString& project, const CArray<RyvPrmFileDetails>& drawings) {
    relay(u"onProjectAddDrawings", pathsOf(project, drawings));
}

void RyvPrmSubsystemNotifier::drawingsRemoved(
    const CString& project, const CArray<RyvPrmFileDetails>& drawings) {
    relay(u"onProjectRemoveDrawings", pathsOf(project, drawings));
}

void RyvPrmSubsystemNotifier::drawingReplaced(const CString& project, const CString& oldPath, std::int32_t,
    const CString& newPath, std::int32_t, bool) {
    relay(u"onProjectReplaceDrawing", {project, oldPath, newPath});
}

void RyvPrmSubsystemNotifier::tasksAdded(const CString& project, const CString& taskFile) {
    relay(u"onProjectTasksAdded", {project, taskFile});
}

void RyvPrmSubsystemNotifier::tasksDeleted(const CString& project, const CString& taskFile) {
    relay(u"onProjectTasksDeleted", {project, taskFile});
}

} // namespace ryv
