// The lock file of a file: a file beside it that says who works on it, and that means something only as long
// as the process that made it lives.
//
// Life is told by a lock of the system on the open lock file, never by what the file says: the system drops
// it however the process ends, and no process number can be mistaken for another's. A lock file counts only
// while it stands at its path, so whoever gets the system's lock compares the two before he acts on it.
// Where a file system has no locks, the existence of the file is the lock, and nobody clears it.
//
// Limits of shared folders:
//
// Where locks may be known to one computer only (Files::mayLockBeLocal), getting the lock proves nothing but
// that no process of this computer lives on the file. Only a lock file whose record names this computer is
// stale then; one of another computer, or without a readable record, stays until that computer looks at it or
// somebody removes it. Computers of one name are taken for one.
//
// NFS, whose locks are shared, wants a file open for writing before it gives the lock. A stale lock file that
// its finder may only read stays: a lock that others can share would not keep two from removing it.
//
// SMB, as Linux mounts it, makes the lock binding: nobody else can read the record of a live lock file, and
// who holds it cannot be told.
#pragma once

#include "siblings/stdio_file_ex.h"

namespace ryv {

/// The path of a file's lock file: the file with symbolic links followed, in the spelling on disk, with
/// ".FLL" behind it. So every way to name a file leads to one lock, also before the file is made.
CString lockFileNameFor(Files& files, CStringView path);

/// Removes the lock file if the process that made it has ended. True when one stands there afterwards: its
/// maker lives, or that cannot be told, or it may not be removed. A symbolic link that leads nowhere is none.
/// Takes a quarter of a second at most. `computer` is the name of this computer; empty when it is not known.
bool clearStaleLockFile(Files& files, CStringView lockPath, CStringView computer);

/// Makes the lock file, takes its lock, writes the record and forces it to the device; `file` stays open. A
/// stale lock file is removed before, and so is a symbolic link that leads nowhere. Whoever may read the
/// locked file may read the lock file. It is marked as hidden where that can be done.
///
/// `busy` when somebody else holds it, or when others were in the way for two seconds. After a failure `file`
/// is closed, and what this call made is gone, or stale where even removing it failed.
FileStatus takeLockFile(Files& files, CStringView lockPath, CStringView record, RyvStdioFileEx& file);

/// Removes the lock file that takeLockFile() made, while it is still locked, and closes it. What stands at
/// the path by somebody else's doing stays.
void releaseLockFile(Files& files, CStringView lockPath, RyvStdioFileEx& file);

/// Reads the record. One that cannot be taken apart may be just being written, so it is read again for some
/// ten milliseconds before it is handed out as it is. `missing` when there is no lock file (any more),
/// `tooLarge` when it holds more than a record can.
FileStatus readLockFile(Files& files, CStringView lockPath, CString& record);

} // namespace ryv
