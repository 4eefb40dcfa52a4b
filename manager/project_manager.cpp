#include "manager/project_manager.h"

#include "base/fold.h"
#include "base/text.h"
#include "manager/catalog_browser_link.h"
#include "manager/display_setting.h"
#include "manager/nav_state.h"

#include <algorithm>

namespace ryv {

RyvPrmProjectManager::RyvPrmProjectManager() {
    constructorInit();
}

bool RyvPrmProjectManager::getDwgDisplaySetting(
    CArray<int>& order, CString& separator, bool& showSelection) const {
    return readDisplaySetting(order, separator, showSelection);
}

bool RyvPrmProjectManager::setDwgDisplaySetting(
    const CArray<int>& order, const CString& separator, bool showSelection) const {
    return writeDisplaySetting(order, separator, showSelection);
}

void RyvPrmProjectManager::constructorInit() {
    notifier_ = std::make_unique<RyvPrmFileNotifier>();
    notifier_->onContentChanged.subscribe(*this, &RyvPrmProjectManager::onFileChangedContent);
    notifier_->onReadOnlyChanged.subscribe(*this, &RyvPrmProjectManager::onFileChangedReadOnly);
    notifier_->onCreated.subscribe(*this, &RyvPrmProjectManager::onFileCreated);
    notifier_->onDeleted.subscribe(*this, &RyvPrmProjectManager::onFileDeleted);
    notifier_->onRenamed.subscribe(*this, &RyvPrmProjectManager::onFileRenamed);
    notifier_->startMonitoring();
    locker_ = std::make_unique<RyvPrmVirtualFileLocker>();
    addinHandler_ = RyvOZMAddinHandler::GetInstance();
    catalogBrowser_ = std::make_unique<CatalogBrowserLink>();
    setOpenProjects(this);
}

RyvPrmProjectManager::~RyvPrmProjectManager() {
    setOpenProjects(nullptr);
    addinHandler_->__RemoveAllEventHandlers(this); // the handler lives longer
    notifier_.reset();
    locker_->unlockAllFiles();
    locker_.reset();
}

RyvPrmProjectManager::Project RyvPrmProjectManager::find(OptionalPath projectId) const {
    const std::size_t index = indexOf(projectId ? replaceAll(*projectId, u'/', u'\\') : activeId_);
    return index < projects_.size() ? projects_[index] : nullptr;
}

std::size_t RyvPrmProjectManager::indexOf(CStringView normalisedId) const {
    const auto hit = std::find_if(projects_.begin(), projects_.end(),
        [normalisedId](const Project& each) { return equalNoCase(each->getProjectID(), normalisedId); });
    return static_cast<std::size_t>(hit - projects_.begin());
}

bool RyvPrmProjectManager::isOpen(const Project& project) const {
    return std::find(projects_.begin(), projects_.end(), project) != projects_.end();
}

int RyvPrmProjectManager::getProjectIndex(OptionalPath projectId) const {
    const std::size_t index = projectId ? indexOf(replaceAll(*projectId, u'/', u'\\')) : projects_.size();
    return index < projects_.size() ? static_cast<int>(index) : -1;
}

RyvPrmProject* RyvPrmProjectManager::getProject(int index) const {
    return index >= 0 && index < getProjectCount() ? projects_[static_cast<std::size_t>(index)].get()
                                                   : nullptr;
}

RyvPrmProject* RyvPrmProjectManager::getProject(OptionalPath projectId) const {
    return find(projectId).get();
}

bool RyvPrmProjectManager::getActiveProjectID(CString& projectId) const {
    const bool open = getActiveProject() != nullptr;
    if (open)
        projectId = activeId_;
    return open;
}

bool RyvPrmProjectManager::isActiveProject(CStringView projectId) const {
    return !activeId_.empty() && equalNoCase(replaceAll(projectId, u'/', u'\\'), activeId_);
}

bool RyvPrmProjectManager::findMatchingProject(CStringView drawing, CString& projectId) const {
    const CString path = replaceAll(drawing, u'/', u'\\');
    const Project active = find(std::nullopt);
    if (!active)
        return false;
    const auto lists = [&path](const Project& project) { return project->isFileInProject(path); };
    const auto hit = lists(active) ? std::find(projects_.begin(), projects_.end(), active)
                                   : std::find_if(projects_.begin(), projects_.end(), lists);
    const bool found = hit != projects_.end();
    if (found)
        projectId = (*hit)->getProjectID();
    return found;
}

bool RyvPrmProjectManager::isFileInProject(CStringView drawing, OptionalPath projectId) const {
    const Project project = find(projectId);
    return project && project->isFileInProject(replaceAll(drawing, u'/', u'\\'));
}

bool RyvPrmProjectManager::isInProject(CStringView drawing, OptionalPath projectId) const {
    const Project project = find(projectId);
    if (!project)
        return false;
    const CString path = replaceAll(drawing, u'/', u'\\');
    CArray<RyvPrmFileDetails*> drawings;
    project->getProjectData().generateFlatFileDetailsArray(drawings);
    return std::any_of(drawings.begin(), drawings.end(),
        [&path](const RyvPrmFileDetails* each) { return equalNoCase(each->getFileName(), path); });
}

void RyvPrmProjectManager::hookOZMZarnEventHandler() {
    IRyvAddinHandler& source = *addinHandler_;
    source.onSynchronize.subscribe(*this, &RyvPrmProjectManager::forwardSynchronize);
    source.onQueryOZMFiles.subscribe(*this, &RyvPrmProjectManager::forwardQueryOZMFiles);
    source.onRelinkProject.subscribe(*this, &RyvPrmProjectManager::forwardRelinkProject);
    source.onQueryNonActiveProjOZMFiles.subscribe(
        *this, &RyvPrmProjectManager::forwardQueryNonActiveProjOZMFiles);
}

void RyvPrmProjectManager::unHookOZMZarnEventHandler() {
    IRyvAddinHandler& source = *addinHandler_;
    source.onSynchronize.unsubscribe(*this, &RyvPrmProjectManager::forwardSynchronize);
    source.onQueryOZMFiles.unsubscribe(*this, &RyvPrmProjectManager::forwardQueryOZMFiles);
    source.onRelinkProject.unsubscribe(*this, &RyvPrmProjectManager::forwardRelinkProject);
    source.onQueryNonActiveProjOZMFiles.unsubscribe(
        *this, &RyvPrmProjectManager::forwardQueryNonActiveProjOZMFiles);
}

RyvPrmProject* GetActiveProject() {
    const RyvPrmProjectManager* const manager = GetProjectManager();
    return manager ? manager->getActiveProject() : nullptr;
}

RyvPrmProject* FindDwgInOpenProject(CStringView drawing) {
    const RyvPrmProjectManager* const manager = GetProjectManager();
    CString projectId;
    return manager && manager->findMatchingProject(drawing, projectId) ? manager->getProject(projectId)
                                                                       : nullptr;
}

} // namespace ryv
