#include "siblings/temporary_file.h"

#include <thread>

namespace ryv {

namespace {

using std::chrono::milliseconds;
using SteadyClock = std::chrono::steady_clock;

constexpr milliseconds patience{5000};     // with another process that is saving the same file
constexpr milliseconds exclusivePause{20}; // between tries where a file system has no locks
constexpr milliseconds renamePause{40};    // between tries where a share refuses to replace a file
constexpr int renameAttempts = 6;

/// Another user's left-over can often still be locked when it is open for reading only.
FileStatus openForLock(OpenFile& file, CStringView path) {
    const FileStatus status = file.open(path, OpenMode::readWrite);
    if (status.error != FileError::denied && status.error != FileError::readOnly)
        return status;
    return file.open(path, OpenMode::read);
}

} // namespace

FileStatus removeUnlocked(
    Files& files, CStringView path, milliseconds wait, Leftover& result, const MayRemove& mayRemove) {
    result = Leftover::gone;
    OpenFile file(files);
    FileStatus status = openForLock(file, path);
    if (status.error == FileError::missing)
        return {};
    if (!status.ok())
        return status;
    status = file.lock(wait);
    if (status.error == FileError::busy || status.error == FileError::unsupported) {
        result = status.error == FileError::busy ? Leftover::inUse : Leftover::untold;
        return {};
    }
    bool same = false;
    if (status.ok())
        status = isStillAt(files, file.handle(), path, same);
    if (status.ok() && same && mayRemove && !mayRemove(file)) {
        result = Leftover::untold;
        return {};
    }
    if (status.ok() && same)
        status = files.remove(path);
    return status.error == FileError::missing ? FileStatus{} : status;
}

/// Takes the lock of the file just made and looks whether it still stands at its path. Without locks the
/// exclusive creation itself is the lock.
FileStatus TemporaryFile::own(milliseconds wait) {
    const FileStatus locked = file_.lock(wait);
    if (locked.error == FileError::unsupported) {
        owned_ = true;
        return {};
    }
    return locked.ok() ? isStillAt(files_, file_.handle(), path_, owned_) : locked;
}

/// One attempt to make the file; sets `again` when another process was there first and the way may be free
/// now.
FileStatus TemporaryFile::tryToMake(milliseconds wait, bool& again) {
    again = true;
    concerned_ = false;
    FileStatus status = file_.open(path_, OpenMode::createExclusive);
    if (status.ok()) {
        concerned_ = true;
        status = own(wait);
        again = status.ok() && !owned_; // swept by another process before the lock was taken
        return status;
    }
    again = status.error == FileError::exists;
    if (!again)
        return status;
    concerned_ = true;
    Leftover leftover = Leftover::gone;
    status = removeUnlocked(files_, path_, wait, leftover);
    if (leftover == Leftover::untold)
        std::this_thread::sleep_for(exclusivePause);
    if (leftover == Leftover::gone)
        static_cast<void>(danglingLink_.look());
    again = status.ok() && leftover != Leftover::inUse;
    return leftover == Leftover::inUse ? FileStatus{FileError::busy, 0} : status;
}

FileStatus TemporaryFile::make() {
    const auto deadline = SteadyClock::now() + patience;
    for (bool again = true; again;) {
        const auto left = std::chrono::duration_cast<milliseconds>(deadline - SteadyClock::now());
        if (left < milliseconds(0))
            return {FileError::busy, 0};
        if (const FileStatus status = tryToMake(left, again); !again)
            return status;
    }
    return {};
}

FileStatus TemporaryFile::renameTo(CStringView target) {
    FileStatus status;
    for (int attempt = 0; attempt < renameAttempts; ++attempt) {
        if (attempt != 0)
            std::this_thread::sleep_for(renamePause);
        status = files_.rename(path_, target);
        const FileError error = status.error;
        if (error != FileError::exists && error != FileError::denied && error != FileError::busy)
            break;
    }
    owned_ = owned_ && !status.ok();
    return status;
}

/// Removes the file while its lock is still held. When a failure came before it was known to be ours, it is
/// asked once more: a file is never removed on suspicion.
void TemporaryFile::discard() {
    if (!file_.isOpen())
        return;
    if (concerned_ && !owned_ && !own(milliseconds(0)).ok())
        owned_ = false;
    if (owned_)
        static_cast<void>(files_.remove(path_));
    owned_ = false;
    static_cast<void>(file_.close());
}

} // namespace ryv
