// A file that is open for as long as its object lives.
#pragma once

#include "platform/os/files.h"

#include <utility>

namespace ryv {

/// Owns one handle of a files port, which has to outlive it. Moves, never copies. Every operation on an
/// object that is not open fails with FileError::other.
class OpenFile {
public:
    explicit OpenFile(Files& files) noexcept : files_(&files) {}
    OpenFile(OpenFile&& other) noexcept
        : files_(other.files_), handle_(std::exchange(other.handle_, FileHandle::none)) {}
    OpenFile& operator=(OpenFile&& other) noexcept;
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    /// Closes; a failure is lost, so whoever wrote calls close() before.
    ~OpenFile();

    /// Opens; a file that was open before is closed first.
    FileStatus open(CStringView path, OpenMode mode);
    bool isOpen() const noexcept { return handle_ != FileHandle::none; }
    FileHandle handle() const noexcept { return handle_; }

    /// Closes and reports what the system says about it. A file that is not open closes with success.
    FileStatus close();

    /// Reads until the buffer is full or the file ends; `count` is what was read.
    FileStatus read(std::span<char> buffer, std::size_t& count);

    /// Writes all bytes, in as many steps as it takes. A step that succeeds without writing anything is an
    /// `io` failure. After a failure an unknown part has been written.
    FileStatus writeAll(std::string_view bytes);

    FileStatus truncate(std::uint64_t size);
    FileStatus sync();
    FileStatus lock(std::chrono::milliseconds patience);
    FileStatus information(FileInformation& information);

private:
    Files* files_;
    FileHandle handle_ = FileHandle::none;
};

/// True when the open file is the one that stands at `path` now: it may have been renamed away or removed
/// since it was opened, and a lock on it then protects nothing. A missing path is no failure but the answer
/// no.
FileStatus isStillAt(Files& files, FileHandle handle, CStringView path, bool& same);

} // namespace ryv
