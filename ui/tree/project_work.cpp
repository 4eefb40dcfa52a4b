#include "ui/tree/project_work.h"

#include "base/encoding.h"
#include "base/fold.h"
#include "bridge/platform.h"
#include "bridge/waiting.h"
#include "manager/project_manager.h"
#include "manager/shown_messages.h"
#include "resources/message_numbers.h"
#include "resources/messages.h"
#include "ui/tree/document_needed.h"
#include "ui/tree/project_tree.h"

#include <algorithm>
#include <unordered_set>

namespace ryv {

namespace {

constexpr int firstFlag = 1; // of every caller of the lock check

/// All files of the project but those that are to be locked.
CStringList otherFiles(const CString& projectId, const CStringList& locked) {
    const RyvPrmProjectManager* const manager = GetProjectManager();
    CStringList files;
    if (!manager || !manager->getProjectFiles(files, projectId))
        return {};
    std::unordered_set<CString> known;
    for (const CString& file : locked)
        known.insert(toUpper(file));
    std::erase_if(files, [&known](const CString& file) { return known.contains(toUpper(file)); });
    return files;
}

/// What keeps a file from being worked on: the number of the notice; 0 when nothing does. A drawing that is
/// missing is in nobody's way, and one that is only looked at may be protected.
int obstacleOf(_lockStatus status, bool isProject, bool looksOnly) {
    switch (status) {
    case lockOther:
        return message::workRefusedHeld;
    case lockUnreadable:
        return message::workRefusedUnreadable;
    case lockMissing:
        return isProject ? message::workRefusedMissing : 0;
    case lockReadOnly:
    case lockFolderReadOnly:
        return looksOnly ? 0 : message::workRefusedReadOnly;
    case lockInvalid:
    case lockNone:
    case lockMine:
        break;
    }
    return 0;
}

CString reasonOf(const RyvPrmProject& project) {
    return decodeUtf8(describe(project.lastStatus().error));
}

CString fileOf(const RyvPrmProject& project) {
    return shownPath(project.lastFile().empty() ? project.getProjectID() : project.lastFile());
}

/// The locks are the project manager's: it takes back those that LISP could not, since no document was left
/// or it was broken off.
void unlockFiles(const CStringList& files) {
    const auto takeBack = [&files] {
        RyvPrmProjectManager* const manager = GetProjectManager();
        for (const CString& file : files)
            if (manager)
                manager->unlockProjectFile(file);
    };
    try {
        platform().services.lockCheck->LispUpdUnlockFiles(files);
    } catch (...) {
        takeBack();
        throw;
    }
    takeBack();
}

} // namespace

ProjectWork::ProjectWork(CProjectTree& tree, CStringView projectId)
    : tree_(tree), atWork_(tree.atWork()), projectId_(projectId) {}

ProjectWork::~ProjectWork() {
    try {
        unlock();
    } catch (...) { // LISP was broken off, and has nobody to be told here
    }
}

bool ProjectWork::lock(const CStringArray& drawings) {
    if (!project()) {
        tellGone();
        return false;
    }
    CStringList files{projectId_};
    files.insert(files.end(), drawings.begin(), drawings.end());
    const CStringList others = otherFiles(projectId_, files);
    const bool locked = lockFiles(files, false) && (others.empty() || lockFiles(others, true));
    const auto held = project();
    if (locked && held) {
        held->forgetLastError();
        return true;
    }
    unlock();
    if (locked)
        tellGone();
    return false;
}

bool ProjectWork::lockDrawing(const CString& drawing) {
    return lockFiles({drawing}, false);
}

void ProjectWork::unlockDrawing(const CString& drawing) {
    const auto isDrawing = [&drawing](const CString& file) { return equalNoCase(file, drawing); };
    if (std::erase_if(locked_, isDrawing) > 0)
        unlockFiles({drawing});
}

void ProjectWork::unlock() {
    const CStringList files = std::exchange(locked_, {});
    if (!files.empty())
        unlockFiles(files);
}

std::shared_ptr<RyvPrmProject> ProjectWork::project() const {
    const RyvPrmProjectManager* const manager = GetProjectManager();
    return manager ? manager->holdProject(projectId_) : nullptr;
}

bool ProjectWork::lockFiles(const CStringList& files, bool looksOnly) {
    const Waiting waiting;
    LockCheck& check = *platform().services.lockCheck;
    if (RyvPrmProjectManager* const manager = GetProjectManager())
        manager->takeLockFailure(); // an older one is not to be told as the cause of this one
    if (check.LispCheckFileLockStatusAndLock(files, firstFlag, looksOnly ? 1 : 0, locked_))
        return true;
    tellRefusal(files, looksOnly);
    return false;
}

void ProjectWork::tellRefusal(const CStringList& files, bool looksOnly) {
    RyvPrmProjectManager* const manager = GetProjectManager();
    if (!manager)
        return;
    if (!hasDocumentOrTells(tree_)) // and no LISP that could lock anything
        return;
    for (const CString& file : files) {
        CString holder;
        const _lockStatus status = manager->whoHasProjectFileLocked(file, &holder, nullptr, nullptr);
        if (const int notice = obstacleOf(status, equalNoCase(file, projectId_), looksOnly)) {
            tree_.notice().tell(format(messageText(notice), {shownPath(file), holder}));
            return;
        }
    }
    if (const auto failure = manager->takeLockFailure())
        tree_.notice().tell(format(messageText(message::workRefusedByDisk),
            {shownPath(failure->file), decodeUtf8(describe(failure->status.error))}));
    else
        tree_.notice().tell(format(messageText(message::workRefused), {projectName()}));
}

CString ProjectWork::projectName() const {
    CString name;
    if (const RyvPrmProjectManager* const manager = GetProjectManager())
        manager->makeProjectPrettyNameFromID(projectId_, name);
    return name;
}

void ProjectWork::tellGone() {
    if (!projectId_.empty())
        tree_.notice().tell(format(
            messageText(project() ? message::workItemsGone : message::workProjectGone), {projectName()}));
}

bool ProjectWork::write() {
    const Waiting waiting;
    const auto held = project();
    return settle(held && held->writeProject());
}

bool ProjectWork::settle(bool done) {
    written_ = done;
    const auto held = project();
    if (!held) {
        if (!done)
            tellGone();
        return false;
    }
    if (!done && held->getLastError() != RyvPmUtilsKQPFiler::noError) {
        tellWriteFailure(*held);
        return false;
    }
    tree_.onProjectReRead(projectId_);
    return done;
}

/// The project is put right first: while the box stands, others may work with it.
void ProjectWork::tellWriteFailure(const RyvPrmProject& project) {
    const CString file = fileOf(project);
    const CString reason = reasonOf(project);
    RyvPrmProjectManager* const manager = GetProjectManager();
    if (manager && manager->reReadProject(projectId_)) {
        showMessage({message::projectNotWritten, message::projectNotWrittenTitle}, {file, reason});
    } else if (this->project()) {
        tree_.onProjectReRead(projectId_);
        showMessage({message::projectNotWrittenStale, message::projectNotWrittenTitle},
            {file, reason, reasonOf(project)});
    }
}

bool ProjectWork::reRead() {
    RyvPrmProjectManager* const manager = GetProjectManager();
    const auto held = project();
    if (!held)
        return false;
    if (manager->reReadProject(projectId_))
        return project() != nullptr;
    if (project())
        tree_.notice().tell(
            format(messageText(message::projectNotReadAgain), {fileOf(*held), reasonOf(*held)}));
    return false;
}

std::unique_ptr<RyvPrmProject> readAside(CStringView projectId) {
    auto project = std::make_unique<RyvPrmProject>();
    return project->readProject(projectId) ? std::move(project) : nullptr;
}

} // namespace ryv
