#include "tests/support/memory_files.h"

#include "base/fold.h"

#include <algorithm>

namespace ryv::test {

namespace {

constexpr std::int64_t clockStep = 1'000'000; // nanoseconds

FileStatus failure(FileError error) {
    return {error, 0};
}

} // namespace

void MemoryFiles::put(CStringView path, std::string bytes) {
    std::shared_ptr<File> file = find(path);
    if (!file)
        file = make(path);
    file->bytes = std::move(bytes);
    file->modified = now_ += clockStep;
}

std::optional<std::string> MemoryFiles::get(CStringView path) const {
    const std::shared_ptr<File> file = find(path);
    return file ? std::optional(file->bytes) : std::nullopt;
}

void MemoryFiles::erase(CStringView path) {
    entries_.erase(toUpper(path));
}

void MemoryFiles::setReadOnly(CStringView path, bool readOnly) {
    find(path)->readOnly = readOnly;
}

void MemoryFiles::moveFolder(CStringView from, CStringView to) {
    std::map<CString, Entry> moved;
    for (auto& [key, entry] : entries_) {
        CString path = entry.path;
        if (equalNoCase(CStringView(path).substr(0, from.size()), from))
            path.replace(0, from.size(), to);
        moved[toUpper(path)] = {path, std::move(entry.file)};
    }
    entries_.swap(moved);
}

CStringArray MemoryFiles::paths() const {
    CStringArray paths;
    for (const auto& [key, entry] : entries_)
        paths.push_back(entry.path);
    std::sort(paths.begin(), paths.end());
    return paths;
}

std::shared_ptr<MemoryFiles::File> MemoryFiles::find(CStringView path) const {
    const auto hit = entries_.find(toUpper(path));
    return hit == entries_.end() ? nullptr : hit->second.file;
}

std::shared_ptr<MemoryFiles::File> MemoryFiles::make(CStringView path) {
    auto file = std::make_shared<File>();
    file->inode = nextInode_++;
    file->modified = now_ += clockStep;
    entries_[toUpper(path)] = {CString(path), file};
    return file;
}

bool MemoryFiles::isFolder(CStringView path) const {
    const CString prefix = toUpper(path) + u"\\";
    const auto hit = entries_.lower_bound(prefix);
    return hit != entries_.end() && hit->first.starts_with(prefix);
}

MemoryFiles::Open* MemoryFiles::opened(FileHandle handle) {
    const auto hit = handles_.find(handle);
    return hit == handles_.end() ? nullptr : &hit->second;
}

void MemoryFiles::describe(const File& file, FileInformation& information) const {
    information = {};
    information.device = 1;
    information.inode = file.inode;
    information.size = file.bytes.size();
    information.modifiedNanoseconds = file.modified;
    information.isRegular = true;
    information.readOnly = file.readOnly;
}

FileStatus MemoryFiles::open(CStringView path, OpenMode mode, FileHandle& handle) {
    handle = FileHandle::none;
    if (path.empty() || path.find(u'\0') != CStringView::npos)
        return failure(FileError::badName);
    if (isFolder(path))
        return failure(FileError::isFolder);
    std::shared_ptr<File> file = find(path);
    const bool makes = mode == OpenMode::openOrCreate || mode == OpenMode::createExclusive;
    if (file && mode == OpenMode::createExclusive)
        return failure(FileError::exists);
    if (file && file->readOnly && mode != OpenMode::read)
        return failure(FileError::readOnly);
    if (!file && !makes)
        return failure(FileError::missing);
    if (!file)
        file = make(path);
    handle = static_cast<FileHandle>(nextHandle_++);
    handles_[handle] = {file, 0, mode != OpenMode::read};
    return {};
}

FileStatus MemoryFiles::read(FileHandle handle, std::span<char> buffer, std::size_t& count) {
    count = 0;
    Open* const open = opened(handle);
    if (!open)
        return failure(FileError::other);
    const std::string& bytes = open->file->bytes;
    count = std::min(buffer.size(), bytes.size() - std::min(open->position, bytes.size()));
    std::copy_n(bytes.data() + open->position, count, buffer.data());
    open->position += count;
    return {};
}

FileStatus MemoryFiles::write(FileHandle handle, std::string_view bytes, std::size_t& count) {
    count = 0;
    Open* const open = opened(handle);
    if (!open || !open->writable)
        return failure(FileError::denied);
    std::string& content = open->file->bytes;
    if (content.size() < open->position + bytes.size())
        content.resize(open->position + bytes.size());
    std::copy(bytes.begin(), bytes.end(), content.begin() + static_cast<std::ptrdiff_t>(open->position));
    open->position += bytes.size();
    open->file->modified = now_ += clockStep;
    count = bytes.size();
    return {};
}

FileStatus MemoryFiles::truncate(FileHandle handle, std::uint64_t size) {
    Open* const open = opened(handle);
    if (!open || !open->writable)
        return failure(FileError::denied);
    open->file->bytes.resize(static_cast<std::size_t>(size));
    open->file->modified = now_ += clockStep;
    open->position = 0;
    return {};
}

FileStatus MemoryFiles::sync(FileHandle handle) {
    return failure(opened(handle) ? FileError::none : FileError::other);
}

FileStatus MemoryFiles::close(FileHandle handle) {
    Open* const open = opened(handle);
    if (!open)
        return failure(FileError::other);
    if (open->file->lockedBy == handle)
        open->file->lockedBy = FileHandle::none;
    handles_.erase(handle);
    return {};
}

FileStatus MemoryFiles::rename(CStringView from, CStringView to) {
    const auto hit = entries_.find(toUpper(from));
    if (hit == entries_.end())
        return failure(FileError::missing);
    if (isFolder(to))
        return failure(FileError::isFolder);
    std::shared_ptr<File> file = std::move(hit->second.file);
    entries_.erase(hit);
    entries_[toUpper(to)] = {CString(to), std::move(file)};
    return {};
}

FileStatus MemoryFiles::remove(CStringView path) {
    if (isFolder(path))
        return failure(FileError::isFolder);
    return failure(entries_.erase(toUpper(path)) == 1 ? FileError::none : FileError::missing);
}

FileStatus MemoryFiles::syncFolder(CStringView) {
    return {};
}

FileStatus MemoryFiles::information(CStringView path, FileInformation& information) {
    if (const std::shared_ptr<File> file = find(path)) {
        describe(*file, information);
        return {};
    }
    information = {};
    information.isFolder = isFolder(path);
    return failure(information.isFolder ? FileError::none : FileError::missing);
}

FileStatus MemoryFiles::information(FileHandle handle, FileInformation& information) {
    const Open* const open = opened(handle);
    if (!open)
        return failure(FileError::other);
    describe(*open->file, information);
    return {};
}

FileStatus MemoryFiles::lock(FileHandle handle, std::chrono::milliseconds) {
    Open* const open = opened(handle);
    if (!open)
        return failure(FileError::other);
    FileHandle& holder = open->file->lockedBy;
    if (holder != FileHandle::none && holder != handle)
        return failure(FileError::busy);
    holder = handle;
    return {};
}

FileStatus MemoryFiles::copyAttributes(CStringView from, FileHandle to) {
    const std::shared_ptr<File> file = find(from);
    Open* const open = opened(to);
    if (!file || !open)
        return failure(FileError::missing);
    open->file->readOnly = file->readOnly;
    return {};
}

FileStatus MemoryFiles::resolve(CStringView path, CString& resolved) {
    if (path.empty())
        return failure(FileError::badName);
    const auto hit = entries_.find(toUpper(path));
    resolved = hit == entries_.end() ? CString(path) : hit->second.path;
    return {};
}

} // namespace ryv::test
