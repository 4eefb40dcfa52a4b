#include "manager/virtual_file_locker.h"

#include "base/fold.h"
#include "base/paths.h"
#include "bridge/platform.h"
#include "manager/own_lock_record.h"
#include "siblings/lock_file.h"
#include "siblings/lock_record.h"

#include <algorithm>

namespace ryv {

namespace {

constexpr std::size_t shortestPath = 4;

bool isLockFileLive(Files& files, CStringView lockPath) {
    return clearStaleLockFile(files, lockPath, platform().os.identity->computerName());
}

/// Nobody's lock file is in the way; what remains is whether one could be made.
_lockStatus statusOfFolder(Files& files, CStringView lockPath) {
    return files.checkFolderWritable(paths::folderOf(lockPath)).ok() ? lockNone : lockFolderReadOnly;
}

/// Reads the record beside the file. `lockMine` and `lockOther` say that one was read and can be taken apart;
/// with `lockUnreadable` it may have been read all the same.
_lockStatus readRecord(CStringView path, CString& record) {
    record.clear();
    if (path.size() < shortestPath)
        return lockInvalid;
    Files& files = *platform().os.files;
    FileInformation information;
    if (!files.information(path, information).ok())
        return lockMissing;
    if (information.readOnly)
        return lockReadOnly;
    const CString lockPath = lockFileNameFor(files, path);
    if (!isLockFileLive(files, lockPath))
        return statusOfFolder(files, lockPath);
    const FileStatus read = readLockFile(files, lockPath, record);
    if (read.error == FileError::missing) // given up since the last look
        return statusOfFolder(files, lockPath);
    if (!read.ok() || !parseLockRecord(record))
        return lockUnreadable;
    return haveSameHolder(record, makeOwnLockRecord().value_or(CString())) ? lockMine : lockOther;
}

} // namespace

RyvPrmVirtualFileLocker::RyvPrmVirtualFileLocker() = default;

RyvPrmVirtualFileLocker::~RyvPrmVirtualFileLocker() {
    unlockAllFiles();
}

bool RyvPrmVirtualFileLocker::lockFile(CStringView path) {
    const auto record = makeOwnLockRecord();
    if (path.empty() || !record)
        return false;
    CString who;
    if (isLocked(path))
        return whoLocked(path, who) == lockMine;
    Files& files = *platform().os.files;
    auto lock = std::make_unique<_fileLockData>(files);
    lock->lockedFile = path;
    lock->lockFile = lockFileNameFor(files, path);
    const FileStatus taken = takeLockFile(files, lock->lockFile, *record, lock->file);
    if (!taken.ok()) { // another process may have been faster, of this user too
        if (taken.error == FileError::busy && whoLocked(path, who) == lockMine)
            return true;
        failure_ = LockFailure{CString(path), taken};
        return false;
    }
    lock->isOpen = true;
    // One taken before under this name went when somebody removed its lock file.
    std::erase_if(locks_, [&](const auto& each) { return each->lockFile == lock->lockFile; });
    locks_.push_back(std::move(lock));
    return true;
}

void RyvPrmVirtualFileLocker::release(_fileLockData& lock) {
    releaseLockFile(*platform().os.files, lock.lockFile, lock.file);
    lock.isOpen = false;
}

bool RyvPrmVirtualFileLocker::unlockFile(CStringView path) {
    const auto lock = std::find_if(locks_.begin(), locks_.end(),
        [path](const auto& each) { return equalNoCase(each->lockedFile, path); });
    if (lock == locks_.end())
        return false;
    release(**lock);
    locks_.erase(lock);
    return true;
}

bool RyvPrmVirtualFileLocker::unlockAllFiles() {
    for (const auto& lock : locks_)
        release(*lock);
    locks_.clear();
    return true;
}

bool RyvPrmVirtualFileLocker::isLocked(CStringView path) {
    if (path.empty())
        return false;
    Files& files = *platform().os.files;
    if (isLockFileLive(files, lockFileNameFor(files, path)))
        return true;
    FileInformation information;
    return files.information(path, information).ok() && information.readOnly;
}

_lockStatus RyvPrmVirtualFileLocker::whoLocked(CStringView path, CString& who) {
    CString record;
    const _lockStatus status = readRecord(path, record);
    if (!record.empty())
        who = record;
    return status;
}

_lockStatus RyvPrmVirtualFileLocker::whoLocked(
    CStringView path, CString& who, CString& machine, CString& time) {
    CString record;
    const _lockStatus status = readRecord(path, record);
    const auto parts = parseLockRecord(record);
    if (parts && (status == lockMine || status == lockOther)) {
        who = parts->holder();
        machine = parts->machine;
        time = parts->time;
    }
    return status;
}

} // namespace ryv
