// Marks files as being worked on by one user on one computer, so that other copies of the program, here or on
// other computers that share the folder, refuse to write them and can tell who has them.
#pragma once

#include "base/export.h"
#include "siblings/stdio_file_ex.h"

#include <memory>
#include <optional>
#include <utility>

namespace ryv {

/// The answer to who has a file locked. The numbers are relied upon outside.
enum _lockStatus : int {
    lockInvalid = 0,       ///< no path, or one shorter than 4 characters
    lockNone = 1,          ///< no live lock file, and its folder can be written
    lockMine = 2,          ///< a live lock file of the current user on this computer
    lockOther = 3,         ///< a live lock file of another user or computer
    lockUnreadable = 4,    ///< a lock file whose record cannot be read or taken apart
    lockReadOnly = 5,      ///< the file itself is read-only, locked or not
    lockMissing = 6,       ///< the file does not exist, locked or not
    lockFolderReadOnly = 7 ///< no live lock file, and its folder cannot be written
};

/// A lock that this process holds.
struct _fileLockData {
    explicit _fileLockData(Files& files) : file(files) {}

    CString lockedFile; ///< as it was named when it was locked
    CString lockFile;
    bool readMode = false;
    bool isOpen = false;
    RyvStdioFileEx file; ///< the lock file, open as long as the lock is held
};

/// A lock file that could not be made.
struct LockFailure {
    CString file; ///< that was to be locked
    FileStatus status;
};

/// The locks of this process. A locked file itself is never opened; beside it a hidden lock file says who and
/// when (siblings/lock_file.h), and dies with the process, which the next question of any process finds out.
///
/// A path is an absolute one with "\" between components; an empty one, or a view of nothing, is no path. A
/// file is the same under every spelling and through every symbolic link, except for unlockFile(). Everything
/// goes through the ports of platform(). No operation throws on an error of the file system, and none waits
/// longer than a few seconds.
class RYV_EXPORT RyvPrmVirtualFileLocker {
public:
    RyvPrmVirtualFileLocker();
    RyvPrmVirtualFileLocker(const RyvPrmVirtualFileLocker&) = delete;
    RyvPrmVirtualFileLocker& operator=(const RyvPrmVirtualFileLocker&) = delete;
    /// Releases what is still locked.
    virtual ~RyvPrmVirtualFileLocker();

    /// Takes the lock, or confirms that the current user on this computer holds it already, in this process
    /// or another; nothing is written then, and this process has nothing to unlock. False when somebody else
    /// has it, when the file is read-only, when the current user is not known, or when the lock file cannot
    /// be made. A file that does not exist yet can be locked, but that lock is not confirmed.
    bool lockFile(CStringView path);

    /// The latest lock file that lockFile() could not make, and why; each is given once.
    std::optional<LockFailure> takeFailure() { return std::exchange(failure_, std::nullopt); }

    /// Releases a lock that this process took under that name, case ignored; false, and nothing deleted, when
    /// there is none.
    bool unlockFile(CStringView path);

    /// Releases every lock of this process, in the order in which they were taken. True.
    bool unlockAllFiles();

    /// True when a live lock file stands beside the file, whoever made it, or when the file is read-only.
    bool isLocked(CStringView path);

    /// Who has the file locked: the raw lock record.
    _lockStatus whoLocked(CStringView path, CString& who);
    /// The same in parts: `who` the user with the machine in parentheses, the machine, and when. Outputs of
    /// both forms are set when a record was read, and, here, could be taken apart; otherwise they stay as
    /// they are.
    _lockStatus whoLocked(CStringView path, CString& who, CString& machine, CString& time);

private:
    void release(_fileLockData& lock);

    CArray<std::unique_ptr<_fileLockData>> locks_; // in the order in which they were taken
    std::optional<LockFailure> failure_;
};

} // namespace ryv
