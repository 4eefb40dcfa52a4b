#include "platform/os/files.h"

namespace ryv {

const char* describe(FileError error) noexcept {
    switch (error) {
    case FileError::none:
        return "no error";
    case FileError::missing:
        return "no such file or folder";
    case FileError::denied:
        return "permission denied";
    case FileError::readOnly:
        return "read-only";
    case FileError::exists:
        return "the file exists already";
    case FileError::isFolder:
        return "is a folder";
    case FileError::notFolder:
        return "a part of the path is not a folder";
    case FileError::notRegular:
        return "is not a regular file";
    case FileError::noSpace:
        return "no space left on the disk";
    case FileError::io:
        return "input/output error";
    case FileError::busy:
        return "in use by another process";
    case FileError::changedOutside:
        return "changed outside: another process wrote the file since it was read";
    case FileError::unsupported:
        return "not supported by the file system";
    case FileError::badName:
        return "not a possible file name";
    case FileError::tooLarge:
        return "too large";
    case FileError::other:
        break;
    }
    return "unexpected error";
}

namespace {
constexpr FileStatus noFile{FileError::missing, 0};
}

FileStatus NullFiles::open(CStringView, OpenMode, FileHandle& handle) {
    handle = FileHandle::none;
    return noFile;
}
FileStatus NullFiles::read(FileHandle, std::span<char>, std::size_t& count) {
    count = 0;
    return noFile;
}
FileStatus NullFiles::write(FileHandle, std::string_view, std::size_t& count) {
    count = 0;
    return noFile;
}
FileStatus NullFiles::truncate(FileHandle, std::uint64_t) {
    return noFile;
}
FileStatus NullFiles::sync(FileHandle) {
    return noFile;
}
FileStatus NullFiles::close(FileHandle) {
    return noFile;
}
FileStatus NullFiles::rename(CStringView, CStringView) {
    return noFile;
}
FileStatus NullFiles::remove(CStringView) {
    return noFile;
}
FileStatus NullFiles::syncFolder(CStringView) {
    return noFile;
}
FileStatus NullFiles::information(CStringView, FileInformation&) {
    return noFile;
}
FileStatus NullFiles::information(FileHandle, FileInformation&) {
    return noFile;
}
FileStatus NullFiles::lock(FileHandle, std::chrono::milliseconds) {
    return noFile;
}
FileStatus NullFiles::markLock(FileHandle) {
    return noFile;
}
FileStatus NullFiles::isLockMarked(FileHandle, bool& marked) {
    marked = false;
    return noFile;
}
FileStatus NullFiles::mayLockBeLocal(FileHandle, bool& local) {
    local = false;
    return noFile;
}
FileStatus NullFiles::copyAttributes(CStringView, FileHandle) {
    return noFile;
}
FileStatus NullFiles::copyReadRights(CStringView, FileHandle) {
    return noFile;
}
FileStatus NullFiles::setReadOnly(CStringView, bool) {
    return noFile;
}
FileStatus NullFiles::setHidden(CStringView, bool) {
    return noFile;
}
FileStatus NullFiles::createFolder(CStringView) {
    return noFile;
}
FileStatus NullFiles::checkFolderWritable(CStringView) {
    return noFile;
}
FileStatus NullFiles::resolve(CStringView path, CString& resolved) {
    resolved = path;
    return {};
}

} // namespace ryv
