// A files port without a disk: fast, and every file at hand for the test.
#pragma once

#include "platform/os/files.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace ryv::test {

/// Names are found without regard to case. Every folder exists; one that a file lies in is told from a
/// missing file. Time moves on by one step with each change. Locks never wait.
class MemoryFiles final : public Files {
public:
    /// The test's own hands, beside the port: no handles, no locks.
    void put(CStringView path, std::string bytes);
    std::optional<std::string> get(CStringView path) const;
    void erase(CStringView path);
    void setReadOnly(CStringView path, bool readOnly);
    /// Moves all files of one folder into another, under the names that they have.
    void moveFolder(CStringView from, CStringView to);

    /// The paths of all files as they are spelled, sorted.
    CStringArray paths() const;
    std::size_t openHandles() const noexcept { return handles_.size(); }

    FileStatus open(CStringView path, OpenMode mode, FileHandle& handle) override;
    FileStatus read(FileHandle handle, std::span<char> buffer, std::size_t& count) override;
    FileStatus write(FileHandle handle, std::string_view bytes, std::size_t& count) override;
    FileStatus truncate(FileHandle handle, std::uint64_t size) override;
    FileStatus sync(FileHandle handle) override;
    FileStatus close(FileHandle handle) override;
    FileStatus rename(CStringView from, CStringView to) override;
    FileStatus remove(CStringView path) override;
    FileStatus syncFolder(CStringView folder) override;
    FileStatus information(CStringView path, FileInformation& information) override;
    FileStatus information(FileHandle handle, FileInformation& information) override;
    FileStatus lock(FileHandle handle, std::chrono::milliseconds patience) override;
    FileStatus copyAttributes(CStringView from, FileHandle to) override;
    FileStatus resolve(CStringView path, CString& resolved) override;

private:
    struct File {
        std::string bytes;
        std::uint64_t inode = 0;
        std::int64_t modified = 0;
        bool readOnly = false;
        FileHandle lockedBy = FileHandle::none;
    };
    struct Entry {
        CString path; // as spelled
        std::shared_ptr<File> file;
    };
    struct Open {
        std::shared_ptr<File> file;
        std::size_t position = 0;
        bool writable = false;
    };

    std::shared_ptr<File> find(CStringView path) const;
    std::shared_ptr<File> make(CStringView path);
    bool isFolder(CStringView path) const;
    Open* opened(FileHandle handle);
    void describe(const File& file, FileInformation& information) const;

    std::map<CString, Entry> entries_; // by path in upper case
    std::map<FileHandle, Open> handles_;
    std::intptr_t nextHandle_ = 1;
    std::uint64_t nextInode_ = 1;
    std::int64_t now_ = 1;
};

} // namespace ryv::test
