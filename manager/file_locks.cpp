#include "manager/file_locks.h"

#include "base/fold.h"
#include "base/format.h"
#include "bridge/platform.h"
#include "bridge/waiting.h"
#include "manager/project_manager.h"
#include "manager/shown_messages.h"
#include "resources/file_reasons.h"
#include "resources/message_numbers.h"
#include "resources/messages.h"
#include "resources/setting_message_numbers.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace ryv {

namespace {

constexpr int firstFlag = 1; // of every caller of the lock check
constexpr CStringView projectEnd = u".kqp";

bool isProjectFile(CStringView file) {
    return file.size() >= projectEnd.size() &&
           equalNoCase(file.substr(file.size() - projectEnd.size()), projectEnd);
}

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

/// The texts that say what keeps a file from being worked on; 0 when nothing does.
struct Obstacle {
    int text = 0;
    int listedText = 0;
};

/// A drawing that is missing is in nobody's way, and one that is only looked at may be protected. Project
/// files are locked in any case.
Obstacle obstacleOf(_lockStatus status, bool isProject, bool looksOnly) {
    switch (status) {
    case lockOther:
        return {message::workRefusedHeld, message::workListedHeld};
    case lockUnreadable:
        return {message::workRefusedUnreadable, message::workListedUnreadable};
    case lockMissing:
        return isProject ? Obstacle{message::workRefusedMissing, message::workListedMissing} : Obstacle();
    case lockReadOnly:
    case lockFolderReadOnly:
        return looksOnly && !isProject ? Obstacle()
                                       : Obstacle{message::workRefusedReadOnly, message::workListedReadOnly};
    case lockInvalid:
    case lockNone:
    case lockMine:
        break;
    }
    return {};
}

/// The locks are the project manager's: it takes back those that LISP could not, since no document was left
/// or it was broken off.
void takeBack(const CStringList& files) {
    RyvPrmProjectManager* const manager = GetProjectManager();
    for (const CString& file : files)
        if (manager)
            manager->unlockProjectFile(file);
}

void unlockFiles(const CStringList& files) {
    try {
        platform().services.lockCheck->LispUpdUnlockFiles(files);
    } catch (...) {
        takeBack(files);
        throw;
    }
    takeBack(files);
}

/// The files that the lock check may lock now. Of those that are looked at, it locks project files only, and
/// a project has thousands of drawings.
CStringList lockableFiles(const CStringList& files, bool looksOnly) {
    RyvPrmProjectManager* const manager = GetProjectManager();
    CStringList lockable;
    CString holder;
    for (const CString& file : files)
        if (manager && (!looksOnly || isProjectFile(file)) &&
            manager->whoHasProjectFileLocked(file, &holder) != lockMine)
            lockable.push_back(file);
    return lockable;
}

} // namespace

FileLocks::~FileLocks() {
    try {
        unlock();
    } catch (...) { // LISP was broken off, and has nobody to be told here
    }
}

bool FileLocks::lock(const CStringList& files) {
    return lockFiles(files, false);
}

bool FileLocks::check(const CStringList& files) {
    return lockFiles(files, true);
}

bool FileLocks::lockProject(const CStringArray& drawings) {
    CStringList files{projectId_};
    files.insert(files.end(), drawings.begin(), drawings.end());
    const CStringList others = otherFiles(projectId_, files);
    if (lock(files) && (others.empty() || check(others)))
        return true;
    unlock();
    return false;
}

void FileLocks::unlock(CStringView file) {
    const CString wanted(file);
    const auto isWanted = [&wanted](const CString& each) { return equalNoCase(each, wanted); };
    if (std::erase_if(locked_, isWanted) > 0)
        unlockFiles({wanted});
}

void FileLocks::unlock() {
    const CStringList files = std::exchange(locked_, {});
    if (!files.empty())
        unlockFiles(files);
}

bool FileLocks::lockFiles(const CStringList& files, bool looksOnly) {
    const Waiting waiting;
    LockCheck& check = *platform().services.lockCheck;
    if (RyvPrmProjectManager* const manager = GetProjectManager())
        manager->takeLockFailure(); // an older one is not to be told as the cause of this one
    const CStringList lockable = lockableFiles(files, looksOnly);
    try {
        if (check.LispCheckFileLockStatusAndLock(files, firstFlag, looksOnly ? 1 : 0, locked_))
            return true;
    } catch (...) { // broken off, when some of them may have been locked
        takeBack(lockable);
        throw;
    }
    takeBack(lockable);
    noteRefusal(files, looksOnly);
    return false;
}

void FileLocks::refuse(int text, int listedText, const CString& file, const CString& why) {
    refusal_ = format(messageText(text), {shownPath(file), why});
    listedRefusal_ = format(messageText(listedText), {shownPath(file), why});
}

void FileLocks::noteRefusal(const CStringList& files, bool looksOnly) {
    refusal_.clear();
    listedRefusal_.clear();
    RyvPrmProjectManager* const manager = GetProjectManager();
    if (!manager)
        return;
    if (!platform().host.documents->hasCurrentDocument()) { // and no LISP that could lock anything
        refusal_ = listedRefusal_ = messageText(message::workNeedsDrawing);
        return;
    }
    for (const CString& file : files) {
        CString holder;
        const _lockStatus status = manager->whoHasProjectFileLocked(file, &holder, nullptr, nullptr);
        if (const Obstacle obstacle = obstacleOf(status, isProjectFile(file), looksOnly); obstacle.text != 0)
            return refuse(obstacle.text, obstacle.listedText, file, holder);
    }
    if (const auto failure = manager->takeLockFailure())
        return refuse(message::workRefusedByDisk, message::workListedByDisk, failure->file,
            fileReason(failure->status.error));
    refuse(message::settingsFileRefused, message::workListedNotLocked, files.front());
    if (projectId_.empty())
        return;
    CString name;
    manager->makeProjectPrettyNameFromID(projectId_, name);
    refusal_ = format(messageText(message::workRefused), {name});
}

} // namespace ryv
