// The files of a project as lists, their locks, and what is to be packed.

#include "base/text.h"
#include "bridge/platform.h"
#include "manager/existing_files.h"
#include "manager/project_manager.h"
#include "siblings/rypx_filer.h"

namespace ryv {

namespace {

constexpr CStringView projectEnd = u"kqp";

template <class Paths>
void appendDrawings(const RyvPrmProject& project, Paths& paths) {
    CArray<RyvPrmFileDetails*> drawings;
    project.getProjectData().generateFlatFileDetailsArray(drawings);
    for (const RyvPrmFileDetails* drawing : drawings)
        paths.emplace_back(drawing->getFileName());
}

} // namespace

bool RyvPrmProjectManager::getProjectFiles(CStringList& files, OptionalPath projectId) const {
    const Project project = find(projectId);
    if (!project)
        return false;
    files.push_back(project->getProjectID());
    appendDrawings(*project, files);
    return true;
}

bool RyvPrmProjectManager::getProjectDependents(CStringArray& files, OptionalPath projectId) const {
    const Project project = find(projectId);
    if (project)
        appendDrawings(*project, files);
    return project != nullptr;
}

bool RyvPrmProjectManager::getProjectFilesToBePacked(CStringArray& files) const {
    const Project project = toBePacked_.empty() ? nullptr : find(toBePacked_);
    if (!project)
        return false;
    CStringArray candidates{
        project->getProjectID(), RyvPmUtilsRypxFiler::storePathFor(project->getProjectID())};
    appendDrawings(*project, candidates);
    for (const CString& file : candidates)
        if (exists(file))
            files.push_back(file);
    return true;
}

void RyvPrmProjectManager::setProjectToBePacked(CStringView path) {
    CString id;
    if (path.empty()) {
        if (getActiveProjectID(id))
            toBePacked_ = id;
        return;
    }
    if (path.ends_with(projectEnd)) { // case counts
        if (const Project project = find(path))
            toBePacked_ = project->getProjectID();
    } else if (findMatchingProject(path, id)) {
        toBePacked_ = id;
    }
}

bool RyvPrmProjectManager::lockProjectFile(OptionalPath path) {
    return locker_ && path && locker_->lockFile(replaceAll(*path, u'/', u'\\'));
}

bool RyvPrmProjectManager::unlockProjectFile(OptionalPath path) {
    return locker_ && path && locker_->unlockFile(replaceAll(*path, u'/', u'\\'));
}

bool RyvPrmProjectManager::isProjectFileLocked(OptionalPath path) {
    return locker_ && path && locker_->isLocked(replaceAll(*path, u'/', u'\\'));
}

_lockStatus RyvPrmProjectManager::whoHasProjectFileLocked(OptionalPath path, CString* who) {
    if (!locker_ || !path || !who)
        return lockInvalid;
    return locker_->whoLocked(replaceAll(*path, u'/', u'\\'), *who);
}

_lockStatus RyvPrmProjectManager::whoHasProjectFileLocked(
    OptionalPath path, CString* who, CString* machine, CString* time) {
    if (!locker_ || !path)
        return lockInvalid;
    CString holder;
    CString holdersMachine;
    CString since;
    const _lockStatus status =
        locker_->whoLocked(replaceAll(*path, u'/', u'\\'), holder, holdersMachine, since);
    if (status == lockInvalid)
        return status;
    if (who)
        *who = holder;
    if (machine)
        *machine = holdersMachine;
    if (time)
        *time = since;
    return status;
}

std::optional<LockFailure> RyvPrmProjectManager::takeLockFailure() {
    return locker_ ? locker_->takeFailure() : std::nullopt;
}

bool RyvPrmProjectManager::lockProjectFiles(CStringList& locked) {
    CStringList files;
    return getProjectFiles(files) &&
           platform().services.lockCheck->LispCheckFileLockStatusAndLock(files, 1, 0, locked);
}

bool RyvPrmProjectManager::unlockProjectFiles(const CStringList& files) {
    platform().services.lockCheck->LispUpdUnlockFiles(files);
    return true;
}

} // namespace ryv
