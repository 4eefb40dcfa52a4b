#include "siblings/lock_file.h"

#include "siblings/lock_record.h"
#include "siblings/temporary_file.h"

#include <thread>

namespace ryv {

namespace {

using std::chrono::milliseconds;
using SteadyClock = std::chrono::steady_clock;

constexpr milliseconds takePatience{2000}; // with others who look whether the file just made is stale
constexpr milliseconds lookPatience{250};  // with others who are removing a stale file
constexpr milliseconds readPatience{50};   // with a maker who has not written the record yet
constexpr milliseconds pause{2};

enum class Look { absent, standing, again };

bool isPast(SteadyClock::time_point deadline) {
    return SteadyClock::now() >= deadline;
}

/// Whoever holds the lock without the mark is removing a stale file or has just made the file, and is done in
/// a moment; the mark is asked for first because asking disturbs nobody.
Look lookOnce(Files& files, CStringView lockPath) {
    OpenFile file(files);
    const FileStatus opened = file.open(lockPath, OpenMode::read);
    if (!opened.ok()) {
        FileInformation information;
        return opened.error == FileError::missing || !files.information(lockPath, information).ok()
                   ? Look::absent
                   : Look::standing;
    }
    bool marked = false;
    if (files.isLockMarked(file.handle(), marked).ok() && marked)
        return Look::standing;
    Leftover leftover = Leftover::untold;
    const FileStatus status = removeUnlocked(files, lockPath, milliseconds(0), leftover);
    return status.ok() && leftover != Leftover::untold ? Look::again : Look::standing;
}

/// Without locks the exclusive creation itself is the lock.
FileStatus ownMadeFile(Files& files, CStringView lockPath, OpenFile& file, milliseconds wait, bool& owned) {
    const FileStatus locked = file.lock(wait);
    owned = locked.error == FileError::unsupported;
    if (owned)
        return {};
    if (!locked.ok())
        return locked;
    static_cast<void>(files.markLock(file.handle())); // without it others have to look twice, no more
    return isStillAt(files, file.handle(), lockPath, owned);
}

/// Makes the file; `again` when it was there, or was swept before it was locked.
FileStatus tryToMake(
    Files& files, CStringView lockPath, RyvStdioFileEx& file, milliseconds wait, bool& again) {
    constexpr unsigned flags = RyvStdioFileEx::modeWrite | RyvStdioFileEx::modeCreate |
                               RyvStdioFileEx::modeExclusive | RyvStdioFileEx::typeBinary;
    FileStatus status = file.Open(lockPath, flags);
    again = status.error == FileError::exists && !clearStaleLockFile(files, lockPath);
    if (!status.ok())
        return status.error == FileError::exists ? FileStatus{FileError::busy, 0} : status;
    bool owned = false;
    status = ownMadeFile(files, lockPath, file.file(), wait, owned);
    again = status.ok() && !owned;
    if (!owned)
        static_cast<void>(file.Close());
    return again ? FileStatus{FileError::busy, 0} : status;
}

FileStatus makeLockFile(Files& files, CStringView lockPath, RyvStdioFileEx& file) {
    const auto deadline = SteadyClock::now() + takePatience;
    for (;;) {
        bool again = false;
        const auto left = std::chrono::ceil<milliseconds>(deadline - SteadyClock::now());
        const FileStatus status = tryToMake(files, lockPath, file, left, again);
        if (!again || isPast(deadline))
            return status;
    }
}

FileStatus readOnce(Files& files, CStringView lockPath, CString& record) {
    RyvStdioFileEx file(files);
    const FileStatus opened = file.Open(lockPath, RyvStdioFileEx::modeRead | RyvStdioFileEx::typeBinary);
    return opened.ok() ? file.ReadRecord(record) : opened;
}

} // namespace

CString lockFileNameFor(Files& files, CStringView path) {
    CString resolved;
    if (!files.resolve(path, resolved).ok())
        resolved = path;
    return resolved + u".FLL";
}

bool clearStaleLockFile(Files& files, CStringView lockPath) {
    const auto deadline = SteadyClock::now() + lookPatience;
    for (;;) {
        const Look look = lookOnce(files, lockPath);
        if (look != Look::again)
            return look == Look::standing;
        if (isPast(deadline))
            return true; // somebody keeps its lock
        std::this_thread::sleep_for(pause);
    }
}

FileStatus takeLockFile(Files& files, CStringView lockPath, CStringView record, RyvStdioFileEx& file) {
    FileStatus status = makeLockFile(files, lockPath, file);
    if (!status.ok())
        return status;
    status = file.WriteString(record);
    if (status.ok())
        status = file.Flush();
    if (status.ok())
        static_cast<void>(files.setHidden(lockPath, true));
    else
        releaseLockFile(files, lockPath, file);
    return status;
}

void releaseLockFile(Files& files, CStringView lockPath, RyvStdioFileEx& file) {
    bool same = false;
    if (file.IsOpen() && isStillAt(files, file.file().handle(), lockPath, same).ok() && same)
        static_cast<void>(files.remove(lockPath));
    static_cast<void>(file.Close());
}

FileStatus readLockFile(Files& files, CStringView lockPath, CString& record) {
    const auto deadline = SteadyClock::now() + readPatience;
    for (;;) {
        const FileStatus status = readOnce(files, lockPath, record);
        if (!status.ok() || parseLockRecord(record) || isPast(deadline))
            return status;
        std::this_thread::sleep_for(pause);
    }
}

} // namespace ryv
