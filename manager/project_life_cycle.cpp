// Opening, activating, closing and re-reading projects.

#include "base/fold.h"
#include "base/text.h"
#include "bridge/command_strings.h"
#include "bridge/platform.h"
#include "bridge/project_calls.h"
#include "manager/catalog_browser_link.h"
#include "manager/last_project_list.h"
#include "manager/nav_state.h"
#include "manager/project_manager.h"

#include <stdexcept>

namespace ryv {

bool RyvPrmProjectManager::openProject(OptionalPath projectId, bool activate, bool skipSameNameCheck) {
    if (!projectId)
        return false;
    const CString id = replaceAll(*projectId, u'/', u'\\');
    Project project;
    if (indexOf(id) == projects_.size()) {
        if (!skipSameNameCheck && isProjectSameNameAsExisting(id))
            return false;
        project = read(id);
        if (!project)
            return false;
    }
    if (indexOf(id) < projects_.size()) { // from before, or opened by what ran during the read
        if (activate)
            setActiveProject(id);
        return true;
    }
    if (!skipSameNameCheck && isProjectSameNameAsExisting(id))
        return false;
    projects_.push_back(project);
    watch(id);
    if (!project->isFileUntouched()) // somebody was faster than the watch
        setReReadTimer(id);
    onProjectOpen(id);
    const bool wasActive = isActiveProject(id); // closed by force before
    if (activate)
        setActiveProject(id);
    if (!activate || wasActive)
        recordOpened(id);
    if (activate)
        lisp::updateDrawingList();
    return true;
}

/// Reads a project and checks its paths; null when it cannot be read.
RyvPrmProjectManager::Project RyvPrmProjectManager::read(const CString& projectId) {
    Project project = std::make_shared<RyvPrmProject>();
    if (!project->readProject(projectId))
        return nullptr;
    if (!platform().services.projectDatabase->PmIsHelperProcess())
        verifyAndRepairAbsolutePaths(*project);
    return project;
}

/// The list is left alone while a command is at work in the current document; the entry is made when the host
/// is idle again.
void RyvPrmProjectManager::recordOpened(const CString& projectId) {
    NavState* const state = navState();
    if (isQuiescent() || !state) {
        recordOpenState(projectId);
        return;
    }
    DeferredRequest request{DeferredRequest::Kind::recordLastProject, {}};
    request.data.addString(projectId).addInteger(static_cast<std::int16_t>(last_project::open));
    state->deferredRequests().add(std::move(request));
}

/// A handler may have closed or activated the project meanwhile; closing has recorded it then.
void RyvPrmProjectManager::recordOpenState(CStringView projectId) {
    if (find(projectId))
        recordProject(projectId, isActiveProject(projectId) ? last_project::active : last_project::open);
}

bool RyvPrmProjectManager::setActiveProject(OptionalPath projectId) {
    if (!projectId)
        return false;
    if (isActiveProject(*projectId))
        return true;
    const Project project = find(replaceAll(*projectId, u'/', u'\\'));
    if (!project || sendEventVetoCheck() || !isOpen(project)) // a handler may close it
        return false;
    const CString id = project->getProjectID();
    const CString previous = activeId_;
    activeId_ = id;
    if (NavState* const state = navState())
        state->makeActivePending = true; // a command may be at work in LISP now
    recordProject(id, last_project::active);
    onProjectSetActive(id);
    if (!previous.empty())
        onProjectDeactivate(previous);
    closeBeyondLimit();
    if (isActiveProject(id)) { // a handler may have activated another one
        onProjectActived(id);
        catalogBrowser_->notify();
    }
    return true;
}

/// One project an activation and nowhere else, so opening many without activating may exceed the limit.
void RyvPrmProjectManager::closeBeyondLimit() {
    if (projects_.size() <= maxOpenProjects)
        return;
    const bool firstIsActive = equalNoCase(projects_[0]->getProjectID(), activeId_);
    closeProject(CString(projects_[firstIsActive ? 1 : 0]->getProjectID()), false);
}

bool RyvPrmProjectManager::closeProject(OptionalPath projectId, bool force) {
    if (!projectId)
        return false;
    const CString id = replaceAll(*projectId, u'/', u'\\');
    if (!force && equalNoCase(id, activeId_))
        return false;
    const std::size_t index = indexOf(id);
    if (index == projects_.size())
        return false;
    unwatch(id);
    recordProject(id, last_project::closed);
    projects_.erase(projects_.begin() + static_cast<std::ptrdiff_t>(index));
    onProjectClose(id);
    return true;
}

/// Deliberate: the walk begins one past the last project, so with any project open its first step is outside
/// of the list and raises the invalid-argument error. Nothing in the package calls this operation, but it is
/// exported, and what it does is what its callers outside were built against.
bool RyvPrmProjectManager::closeAllNonActiveProjects() {
    if (!projects_.empty())
        throw std::invalid_argument("index outside the array");
    onProjectCloseAllNA();
    return true;
}

bool RyvPrmProjectManager::reReadProject(OptionalPath projectId) {
    return reRead(find(projectId), false);
}

bool RyvPrmProjectManager::reRead(const Project& project, bool afterNotice) {
    if (!project)
        return false;
    const CString id = project->getProjectID();
    onPreProjectReRead(id);
    const RyvPrmProject::ReadResult result = afterNotice ? project->readAfterNotice() : project->read(id);
    if (result == RyvPrmProject::ReadResult::failed || !isOpen(project))
        return false;
    onProjectReRead(id);
    catalogBrowser_->notify();
    queueRereadInLisp();
    return true;
}

/// LISP reads the active project again when the host is idle.
void RyvPrmProjectManager::queueRereadInLisp() {
    NavState* const state = navState();
    if (!state)
        return;
    if (isQuiescent())
        state->projectReread().queue();
    else
        state->deferredRequests().add({DeferredRequest::Kind::rereadInLisp, {}});
}

} // namespace ryv
