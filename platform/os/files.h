// The files port: the primitives that careful file handling is made of, and nothing cleverer, so that one
// forwarding wrapper can make every single step fail in a test. What is built from them (atomic saving,
// locks) lies in siblings/.
//
// Paths are module text: "\" between components. An implementation looks names up exactly first and then
// without regard to case, component by component, so that a project made on a case-insensitive disk opens.
#pragma once

#include "base/strings.h"

#include <chrono>
#include <cstdint>
#include <span>
#include <string_view>

namespace ryv {

/// Why an operation on a file failed. `none` is success.
enum class FileError {
    none,
    missing,        ///< no such file or folder
    denied,         ///< the user may not do this
    readOnly,       ///< the file is protected, or its file system is mounted read-only
    exists,         ///< exclusive creation found a file
    isFolder,       ///< a file was asked for and a folder stands there
    notFolder,      ///< a component on the way is not a folder
    notRegular,     ///< a file was asked for and a pipe, a device or the like stands there
    noSpace,        ///< the disk is full or a quota is used up
    io,             ///< the device reported an error
    busy,           ///< a lock is held by somebody else
    changedOutside, ///< another process wrote the file since it was read
    unsupported,    ///< the file system cannot do this (locks on some network file systems)
    badName,        ///< the name cannot exist here: empty, too long, or holding a NUL
    tooLarge,       ///< the content does not fit into memory or past a limit
    other
};

/// Result of an operation: the kind of failure and the system's own number for it (errno; 0 when there is
/// none).
struct [[nodiscard]] FileStatus {
    FileError error = FileError::none;
    int systemCode = 0;

    bool ok() const noexcept { return error == FileError::none; }
};

/// A short English phrase for an error, fit to stand behind "file: " in a message to the user.
const char* describe(FileError error) noexcept;

/// An open file; only the implementation knows what the number means.
enum class FileHandle : std::intptr_t { none = -1 };

enum class OpenMode {
    read,           ///< existing file, for reading
    readWrite,      ///< existing file, for reading and writing
    openOrCreate,   ///< for reading and writing; made empty when missing, never truncated
    createExclusive ///< for reading and writing; fails with `exists` when the name is taken
};

/// What is known of a file without reading it.
struct FileInformation {
    std::uint64_t device = 0; ///< identity: two paths with equal device and inode are one file
    std::uint64_t inode = 0;
    std::uint64_t size = 0;               ///< bytes
    std::int64_t modifiedNanoseconds = 0; ///< since 1970-01-01 UTC
    bool isFolder = false;
    bool isRegular = false;
    bool readOnly = false; ///< no write bit at all, or not writable for the effective user
    bool isHidden = false; ///< see Files::setHidden
};

/// The operations. All may be called from the main thread only. A handle is closed exactly once, also after
/// errors.
class Files {
public:
    virtual ~Files() = default;

    /// Opens or makes a file. The handle is not inherited by child processes. A new file gets the user's
    /// usual mode.
    virtual FileStatus open(CStringView path, OpenMode mode, FileHandle& handle) = 0;

    /// Reads up to buffer.size() bytes at the file position; `count` is 0 at the end. May return fewer than
    /// asked for.
    virtual FileStatus read(FileHandle handle, std::span<char> buffer, std::size_t& count) = 0;

    /// Writes at the file position. May write fewer bytes than given and succeed; `count` says how many.
    virtual FileStatus write(FileHandle handle, std::string_view bytes, std::size_t& count) = 0;

    /// Cuts or extends an open file to `size` bytes and moves the file position to its start.
    virtual FileStatus truncate(FileHandle handle, std::uint64_t size) = 0;

    /// Forces an open file's content and metadata to the device.
    virtual FileStatus sync(FileHandle handle) = 0;

    /// Closes; a failure means that data may be lost, the handle is gone all the same.
    virtual FileStatus close(FileHandle handle) = 0;

    /// Puts `from` in the place of `to` in one step; both lie in the same folder. An existing `to` is
    /// replaced.
    virtual FileStatus rename(CStringView from, CStringView to) = 0;

    /// Removes a file (not a folder).
    virtual FileStatus remove(CStringView path) = 0;

    /// Forces the entries of a folder to the device, so that a rename survives a power cut.
    virtual FileStatus syncFolder(CStringView folder) = 0;

    /// Information on the file behind a path (symbolic links followed) or behind a handle.
    virtual FileStatus information(CStringView path, FileInformation& information) = 0;
    virtual FileStatus information(FileHandle handle, FileInformation& information) = 0;

    /// Takes an exclusive advisory lock on an open file, kept until it is closed or its process ends in
    /// whatever way. Tries for up to `patience`; `busy` when another holder kept it all that time,
    /// `unsupported` when the file system has no locks.
    virtual FileStatus lock(FileHandle handle, std::chrono::milliseconds patience) = 0;

    /// Lets others see that the holder of this file's lock means to keep it, until the file is closed. The
    /// handle holds the lock and is open for writing. `unsupported` where the file system has no such mark.
    virtual FileStatus markLock(FileHandle handle) = 0;

    /// Whether somebody holds this file's mark through another handle, of this process or another. Takes
    /// nothing and keeps nobody from taking the lock; the handle may be open for reading only.
    virtual FileStatus isLockMarked(FileHandle handle, bool& marked) = 0;

    /// Whether the locks of an open file may be known to this computer alone, while others reach the file
    /// too. Having got the lock then says nothing about the processes of other computers.
    virtual FileStatus mayLockBeLocal(FileHandle handle, bool& local) = 0;

    /// Gives an open file the mode, owning group and extended attributes of the file at `from`, as far as the
    /// user may.
    virtual FileStatus copyAttributes(CStringView from, FileHandle to) = 0;

    /// Lets everybody read an open file of the user's own who may read the file at `from`, as far as owning
    /// group and mode say that: the group, if it can be given, and the rights to read. No other right is
    /// given, and none to read is taken away. `missing` when nothing stands at `from`.
    virtual FileStatus copyReadRights(CStringView from, FileHandle to) = 0;

    /// Protects a file against writing, or takes the protection off: of the owner only, as far as the user's
    /// usual mode goes.
    virtual FileStatus setReadOnly(CStringView path, bool readOnly) = 0;

    /// Marks a file as one that lists of files leave out, or takes the mark off. `unsupported` where the file
    /// system has no place for the mark.
    virtual FileStatus setHidden(CStringView path, bool hidden) = 0;

    /// Makes a folder in one that exists; `exists` when something has the name.
    virtual FileStatus createFolder(CStringView path) = 0;

    /// Whether the effective user may make and remove files in a folder; a failure says why not.
    virtual FileStatus checkFolderWritable(CStringView folder) = 0;

    /// The path with symbolic links followed and the names as they are spelled on disk; of a missing file,
    /// its folder is resolved and its own name kept.
    virtual FileStatus resolve(CStringView path, CString& resolved) = 0;
};

/// No file anywhere: every operation that needs one reports `missing`.
class NullFiles final : public Files {
public:
    FileStatus open(CStringView, OpenMode, FileHandle& handle) override;
    FileStatus read(FileHandle, std::span<char>, std::size_t& count) override;
    FileStatus write(FileHandle, std::string_view, std::size_t& count) override;
    FileStatus truncate(FileHandle, std::uint64_t) override;
    FileStatus sync(FileHandle) override;
    FileStatus close(FileHandle) override;
    FileStatus rename(CStringView, CStringView) override;
    FileStatus remove(CStringView) override;
    FileStatus syncFolder(CStringView) override;
    FileStatus information(CStringView, FileInformation&) override;
    FileStatus information(FileHandle, FileInformation&) override;
    FileStatus lock(FileHandle, std::chrono::milliseconds) override;
    FileStatus markLock(FileHandle) override;
    FileStatus isLockMarked(FileHandle, bool& marked) override;
    FileStatus mayLockBeLocal(FileHandle, bool& local) override;
    FileStatus copyAttributes(CStringView, FileHandle) override;
    FileStatus copyReadRights(CStringView, FileHandle) override;
    FileStatus setReadOnly(CStringView, bool) override;
    FileStatus setHidden(CStringView, bool) override;
    FileStatus createFolder(CStringView) override;
    FileStatus checkFolderWritable(CStringView) override;
    FileStatus resolve(CStringView path, CString& resolved) override;
};

} // namespace ryv
