// A files port without a disk: fast, and every file at hand for the test.
#pragma once

#include "base/fold.h"
#include "platform/os/files.h"

#include <algorithm>
#include <map>
#include <memory>
#include <optional>
#include <string>

namespace ryv::test {

/// Names are found without regard to case. Every folder exists; one that a file lies in is told from a
/// missing file. Time moves on by one step with each change. A lock is the handle's that took it, or busy at
/// once; a handle that is not open throws.
class MemoryFiles : public Files {
public:
    /// The test's own hands, beside the port.
    void put(CStringView path, std::string bytes) {
        File& file = find(path) ? *find(path) : make(path);
        file.bytes = std::move(bytes);
        file.information.modifiedNanoseconds = now_ += clockStep;
    }
    std::optional<std::string> get(CStringView path) const {
        const auto file = find(path);
        return file ? std::optional(file->bytes) : std::nullopt;
    }
    void erase(CStringView path) { entries_.erase(toUpper(path)); }
    void protect(CStringView path) { find(path)->information.readOnly = true; }
    /// Moves all files of one folder into another, under the names that they have.
    void moveFolder(CStringView from, CStringView to) {
        std::map<CString, Entry> moved;
        for (auto& [key, entry] : entries_) {
            CString path = entry.path;
            if (equalNoCase(CStringView(path).substr(0, from.size()), from))
                path.replace(0, from.size(), to);
            moved[toUpper(path)] = {path, std::move(entry.file)};
        }
        entries_.swap(moved);
    }
    /// The paths of all files as they are spelled, in the order of their names.
    CStringArray paths() const {
        CStringArray paths;
        for (const auto& [key, entry] : entries_)
            paths.push_back(entry.path);
        return paths;
    }
    std::size_t openHandles() const noexcept { return handles_.size(); }

    FileStatus open(CStringView path, OpenMode mode, FileHandle& handle) override {
        handle = FileHandle::none;
        const bool makes = mode == OpenMode::openOrCreate || mode == OpenMode::createExclusive;
        const auto file = find(path);
        if (isFolder(path))
            return {FileError::isFolder, 0};
        if (file && mode == OpenMode::createExclusive)
            return {FileError::exists, 0};
        if (file && file->information.readOnly && mode != OpenMode::read)
            return {FileError::readOnly, 0};
        if (!file && !makes)
            return {FileError::missing, 0};
        if (!file)
            make(path);
        handle = static_cast<FileHandle>(nextHandle_++);
        handles_[handle] = {find(path), 0, mode != OpenMode::read};
        return {};
    }
    FileStatus read(FileHandle handle, std::span<char> buffer, std::size_t& count) override {
        Open& open = handles_.at(handle);
        const std::string& bytes = open.file->bytes;
        count = std::min(buffer.size(), bytes.size() - std::min(open.position, bytes.size()));
        std::copy_n(bytes.data() + open.position, count, buffer.data());
        open.position += count;
        return {};
    }
    FileStatus write(FileHandle handle, std::string_view bytes, std::size_t& count) override {
        Open& open = handles_.at(handle);
        count = open.writable ? bytes.size() : 0;
        if (!open.writable)
            return {FileError::denied, 0};
        std::string& content = open.file->bytes;
        content.resize(std::max(content.size(), open.position + count));
        std::copy(bytes.begin(), bytes.end(), content.data() + open.position);
        open.position += count;
        open.file->information.modifiedNanoseconds = now_ += clockStep;
        return {};
    }
    FileStatus truncate(FileHandle handle, std::uint64_t size) override {
        Open& open = handles_.at(handle);
        open.file->bytes.resize(static_cast<std::size_t>(size));
        open.file->information.modifiedNanoseconds = now_ += clockStep;
        open.position = 0;
        return {};
    }
    FileStatus sync(FileHandle) override { return {}; }
    FileStatus syncFolder(CStringView) override { return {}; }
    FileStatus lock(FileHandle handle, std::chrono::milliseconds) override {
        File& file = *handles_.at(handle).file;
        if (file.lockedBy != FileHandle::none && file.lockedBy != handle)
            return {FileError::busy, 0};
        file.lockedBy = handle;
        return {};
    }
    FileStatus markLock(FileHandle) override { return {}; }
    FileStatus isLockMarked(FileHandle handle, bool& marked) override {
        const FileHandle holder = handles_.at(handle).file->lockedBy;
        marked = holder != FileHandle::none && holder != handle;
        return {};
    }
    FileStatus mayLockBeLocal(FileHandle, bool& local) override {
        local = false;
        return {};
    }
    FileStatus close(FileHandle handle) override {
        const auto open = handles_.find(handle);
        if (open == handles_.end())
            return {FileError::other, 0};
        if (open->second.file->lockedBy == handle)
            open->second.file->lockedBy = FileHandle::none;
        handles_.erase(open);
        return {};
    }
    FileStatus rename(CStringView from, CStringView to) override {
        const auto file = find(from);
        if (!file)
            return {FileError::missing, 0};
        erase(from);
        entries_[toUpper(to)] = {CString(to), file};
        return {};
    }
    FileStatus remove(CStringView path) override {
        return {entries_.erase(toUpper(path)) == 1 ? FileError::none : FileError::missing, 0};
    }
    FileStatus information(CStringView path, FileInformation& found) override {
        found = {};
        found.isFolder = isFolder(path);
        if (const auto file = find(path))
            describe(*file, found);
        return {found.isFolder || found.isRegular ? FileError::none : FileError::missing, 0};
    }
    FileStatus information(FileHandle handle, FileInformation& found) override {
        describe(*handles_.at(handle).file, found);
        return {};
    }
    FileStatus copyAttributes(CStringView from, FileHandle to) override {
        handles_.at(to).file->information.readOnly = find(from)->information.readOnly;
        return {};
    }
    FileStatus copyReadRights(CStringView from, FileHandle) override {
        return {find(from) ? FileError::none : FileError::missing, 0};
    }
    FileStatus setReadOnly(CStringView path, bool readOnly) override {
        return change(path, [&](FileInformation& information) { information.readOnly = readOnly; });
    }
    FileStatus setHidden(CStringView path, bool hidden) override {
        return change(path, [&](FileInformation& information) { information.isHidden = hidden; });
    }
    FileStatus createFolder(CStringView) override { return {FileError::exists, 0}; }
    FileStatus checkFolderWritable(CStringView) override { return {}; }
    FileStatus resolve(CStringView path, CString& resolved) override {
        const auto hit = entries_.find(toUpper(path));
        resolved = hit == entries_.end() ? CString(path) : hit->second.path;
        return {};
    }

private:
    static constexpr std::int64_t clockStep = 1'000'000; // nanoseconds

    struct File {
        std::string bytes;
        FileInformation information;
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

    std::shared_ptr<File> find(CStringView path) const {
        const auto hit = entries_.find(toUpper(path));
        return hit == entries_.end() ? nullptr : hit->second.file;
    }
    File& make(CStringView path) {
        const auto file = std::make_shared<File>();
        file->information.device = 1;
        file->information.inode = nextInode_++;
        file->information.modifiedNanoseconds = now_ += clockStep;
        file->information.isRegular = true;
        entries_[toUpper(path)] = {CString(path), file};
        return *file;
    }
    template <class Change>
    FileStatus change(CStringView path, const Change& make) {
        const auto file = find(path);
        if (file)
            make(file->information);
        return {file ? FileError::none : FileError::missing, 0};
    }
    bool isFolder(CStringView path) const {
        const CString prefix = toUpper(path) + u"\\";
        const auto hit = entries_.lower_bound(prefix);
        return hit != entries_.end() && hit->first.starts_with(prefix);
    }
    static void describe(const File& file, FileInformation& found) {
        found = file.information;
        found.size = file.bytes.size();
    }

    std::map<CString, Entry> entries_; // by path in upper case
    std::map<FileHandle, Open> handles_;
    std::intptr_t nextHandle_ = 1;
    std::uint64_t nextInode_ = 1;
    std::int64_t now_ = 1;
};

} // namespace ryv::test
