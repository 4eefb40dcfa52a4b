// What outside changes of a project's files mean, and the re-reads that they cause.

#include "base/fold.h"
#include "base/text.h"
#include "bridge/platform.h"
#include "manager/nav_state.h"
#include "manager/project_manager.h"
#include "siblings/lock_file.h"

namespace ryv {

namespace {

constexpr CStringView taskFileMark = u"_UPDATE.MDB";
constexpr CStringView lockFileExtension = u".FLL";
constexpr std::size_t extensionLength = lockFileExtension.size();

bool isTaskFile(CStringView path) {
    return toUpper(path).find(taskFileMark) != CString::npos;
}

CStringArray watchedFilesOf(const RyvPrmProjectManager& manager, const CString& projectId) {
    CString taskFile;
    manager.generateTaskFileNameForProject(projectId, taskFile);
    return {projectId, projectId + CString(lockFileExtension), taskFile};
}

} // namespace

void RyvPrmProjectManager::watch(const CString& projectId) {
    for (const CString& file : watchedFilesOf(*this, projectId))
        notifier_->addFile(file);
    const CString lockFile = lockFileNameFor(*platform().os.files, projectId);
    if (equalNoCase(lockFile, projectId + CString(lockFileExtension)))
        return;
    notifier_->addFile(lockFile);
    locksBehindLinks_.push_back({lockFile, projectId});
}

/// A file that another open project needs stays watched.
void RyvPrmProjectManager::unwatch(const CString& projectId) {
    CStringArray files = watchedFilesOf(*this, projectId);
    std::erase_if(locksBehindLinks_, [&](const LockBehindLink& each) {
        const bool ofProject = equalNoCase(each.projectId, projectId);
        if (ofProject)
            files.push_back(each.lockFile);
        return ofProject;
    });
    for (const CString& file : files)
        notifier_->removeFile(file);
    for (const LockBehindLink& each : locksBehindLinks_)
        notifier_->addFile(each.lockFile);
    for (const Project& project : projects_)
        if (!equalNoCase(project->getProjectID(), projectId) && !files.empty())
            rewatch(project->getProjectID(), files);
}

void RyvPrmProjectManager::rewatch(const CString& projectId, const CStringArray& removed) {
    for (const CString& file : watchedFilesOf(*this, projectId))
        for (const CString& each : removed)
            if (equalNoCase(file, each))
                notifier_->addFile(file);
}

bool RyvPrmProjectManager::openProjectOfTaskFile(const CString& path, CString& projectId) const {
    CString candidate;
    const Project project = generateProjectFileNameFromTaskName(path, candidate) ? find(candidate) : nullptr;
    if (project)
        projectId = project->getProjectID();
    return project != nullptr;
}

/// Several, when one is open by its name and through links.
CStringArray RyvPrmProjectManager::openProjectsOfLockFile(const CString& path) const {
    CStringArray ids;
    if (path.size() < extensionLength)
        return ids;
    if (const Project project = find(CStringView(path).substr(0, path.size() - extensionLength)))
        ids.push_back(project->getProjectID());
    for (const LockBehindLink& each : locksBehindLinks_)
        if (equalNoCase(each.lockFile, path))
            ids.push_back(each.projectId);
    return ids;
}

void RyvPrmProjectManager::onFileChangedContent(const CString& path) {
    if (const Project project = find(path))
        setReReadTimer(project->getProjectID());
}

void RyvPrmProjectManager::onFileChangedReadOnly(const CString& path, bool readOnly) {
    const Project project = path.size() < extensionLength ? nullptr : find(path);
    if (project)
        onProjectReadOnlyChanged(CString(project->getProjectID()), readOnly);
}

void RyvPrmProjectManager::onFileCreated(const CString& path) {
    CString id;
    if (isTaskFile(path)) {
        if (openProjectOfTaskFile(path, id))
            onProjectTasksAdded(id, path);
        return;
    }
    for (const CString& each : openProjectsOfLockFile(path))
        onProjectLocked(each);
}

void RyvPrmProjectManager::onFileDeleted(const CString& path) {
    CString id;
    if (isTaskFile(path)) {
        if (openProjectOfTaskFile(path, id))
            onProjectTasksDeleted(id, path);
        return;
    }
    for (const CString& each : openProjectsOfLockFile(path))
        onProjectUnlocked(each);
}

/// A lock file that was renamed counts as released.
void RyvPrmProjectManager::onFileRenamed(const CString&, const CString& newPath) {
    for (const CString& each : openProjectsOfLockFile(newPath))
        onProjectUnlocked(each);
}

void RyvPrmProjectManager::drawingActivated(CStringView drawing) {
    onDrawingActivate(replaceAll(drawing, u'/', u'\\'));
}

bool RyvPrmProjectManager::setReReadTimer(CStringView projectId) {
    const NavState* const state = navState();
    return timers_.start(
        replaceAll(projectId, u'/', u'\\'), state ? state->paletteWindow() : WindowHandle::none);
}

void RyvPrmProjectManager::onReReadTimer(WindowHandle window, std::uint32_t timerId) {
    const CString projectId = timers_.fired(window, timerId);
    if (!projectId.empty()) // a project that is not open any more has index -1, which the message passes over
        postReread(window, getProjectIndex(projectId));
}

void RyvPrmProjectManager::postReread(WindowHandle window, int index) {
    platform().os.messages->post(
        window, rereadMessage, static_cast<std::uintptr_t>(static_cast<std::intptr_t>(index)), 0);
}

void RyvPrmProjectManager::onReReadMessage(std::uintptr_t index) {
    if (index < projects_.size())
        reRead(Project(projects_[index]), true);
}

} // namespace ryv
