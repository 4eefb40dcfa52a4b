#include "siblings/lock_file.h"

#include "base/fold.h"
#include "siblings/dangling_link.h"
#include "siblings/lock_record.h"
#include "siblings/temporary_file.h"

#include <algorithm>
#include <thread>

namespace ryv {

namespace {

using std::chrono::milliseconds;
using SteadyClock = std::chrono::steady_clock;

constexpr milliseconds takePatience{2000}; // with others who look whether the file just made is stale
constexpr milliseconds lookPatience{250};  // with others who are removing a stale file
constexpr milliseconds readPatience{50};   // with a maker who has not written the record yet
constexpr milliseconds pause{2};
constexpr CStringView suffix = u".FLL";

enum class Look { absent, standing, again };

bool isPast(SteadyClock::time_point deadline) {
    return SteadyClock::now() >= deadline;
}

/// Asked with the lock in hand. Where computers do not hear of each other's locks, that says nothing but that
/// no process of this one lives on the file.
bool isDead(Files& files, OpenFile& file, CStringView computer) {
    bool local = true;
    if (files.mayLockBeLocal(file.handle(), local).ok() && !local)
        return true;
    CString record;
    return !computer.empty() && readBinaryRecord(file, record).ok() &&
           equalNoCase(computerOf(record), computer);
}

/// Whoever holds the lock without the mark is removing a stale file or has just made the file, and is done in
/// a moment; the mark is asked for first because asking disturbs nobody.
Look lookOnce(Files& files, CStringView lockPath, CStringView computer) {
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
    const FileStatus status = removeUnlocked(files, lockPath, milliseconds(0), leftover,
        [&](OpenFile& locked) { return isDead(files, locked, computer); });
    return status.ok() && leftover != Leftover::untold ? Look::again : Look::standing;
}

/// Without locks the exclusive creation itself is the lock. A kernel that has no memory left for a lock says
/// the same as a file system without them, so such a lock file may be taken for a stale one later on.
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

/// What a call of takeLockFile() hands down.
struct Taking {
    Files& files;
    CStringView lockPath;
    CStringView computer;
    RyvStdioFileEx& file;
    DanglingLink danglingLink;
};

/// The name is taken. A link that leads nowhere is nobody's lock.
FileStatus clearTheWay(Taking& taking, bool& again) {
    again = false;
    if (clearStaleLockFile(taking.files, taking.lockPath, taking.computer))
        return {FileError::busy, 0};
    const FileStatus cleared = taking.danglingLink.look();
    again = cleared.ok();
    return again ? FileStatus{FileError::busy, 0} : cleared;
}

/// Makes the file; `again` when it was there, or was swept before it was locked.
FileStatus tryToMake(Taking& taking, milliseconds wait, bool& again) {
    constexpr unsigned flags = RyvStdioFileEx::modeWrite | RyvStdioFileEx::modeCreate |
                               RyvStdioFileEx::modeExclusive | RyvStdioFileEx::typeBinary;
    FileStatus status = taking.file.Open(taking.lockPath, flags);
    if (status.error == FileError::exists)
        return clearTheWay(taking, again);
    if (!status.ok())
        return status;
    bool owned = false;
    status = ownMadeFile(taking.files, taking.lockPath, taking.file.file(), wait, owned);
    again = status.ok() && !owned;
    if (!owned)
        static_cast<void>(taking.file.Close());
    return again ? FileStatus{FileError::busy, 0} : status;
}

FileStatus makeLockFile(Taking taking) {
    const auto deadline = SteadyClock::now() + takePatience;
    for (;;) {
        bool again = false;
        const auto left = std::chrono::ceil<milliseconds>(deadline - SteadyClock::now());
        const FileStatus status = tryToMake(taking, left, again);
        if (!again || isPast(deadline))
            return status;
        std::this_thread::sleep_for(pause);
    }
}

/// Others have to open the lock file to see whether it is alive, whatever the user's usual mode.
void letOthersRead(Files& files, CStringView lockPath, RyvStdioFileEx& file) {
    const CStringView locked = lockPath.substr(0, lockPath.size() - std::min(lockPath.size(), suffix.size()));
    static_cast<void>(files.copyReadRights(locked, file.file().handle())); // there may be no such file yet
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
    return resolved.append(suffix);
}

bool clearStaleLockFile(Files& files, CStringView lockPath, CStringView computer) {
    const auto deadline = SteadyClock::now() + lookPatience;
    for (;;) {
        const Look look = lookOnce(files, lockPath, computer);
        if (look != Look::again)
            return look == Look::standing;
        if (isPast(deadline))
            return true; // somebody keeps its lock
        std::this_thread::sleep_for(pause);
    }
}

FileStatus takeLockFile(Files& files, CStringView lockPath, CStringView record, RyvStdioFileEx& file) {
    FileStatus status =
        makeLockFile({files, lockPath, computerOf(record), file, DanglingLink(files, lockPath)});
    if (!status.ok())
        return status;
    letOthersRead(files, lockPath, file);
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
