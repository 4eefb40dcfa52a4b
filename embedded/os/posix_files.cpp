#include "embedded/os/posix_files.h"
#include "embedded/os/file_error.h"
#include "embedded/os/native_path.h"
#include "embedded/os/posix_attributes.h"
#include "embedded/os/posix_locks.h"

#include <fcntl.h>
#include <limits>
#include <sys/stat.h>
#include <unistd.h>

namespace drafta {

using ryv::CString;
using ryv::CStringView;
using ryv::FileError;
using ryv::FileHandle;
using ryv::FileInformation;
using ryv::FileStatus;
using ryv::OpenMode;

namespace {

constexpr mode_t usualMode = 0666; // the user's mask takes away from it

int descriptorOf(FileHandle handle) {
    return static_cast<int>(handle);
}

FileStatus outcome(int result) {
    return result == -1 ? lastFailure() : FileStatus{};
}

int flagsOf(OpenMode mode) {
    switch (mode) {
    case OpenMode::read:
        return O_RDONLY;
    case OpenMode::readWrite:
        return O_RDWR;
    case OpenMode::openOrCreate:
        return O_RDWR | O_CREAT;
    case OpenMode::createExclusive:
        break;
    }
    return O_RDWR | O_CREAT | O_EXCL;
}

FileInformation informationOf(const struct stat& status) {
    FileInformation information;
    information.device = status.st_dev;
    information.inode = status.st_ino;
    information.size = static_cast<std::uint64_t>(status.st_size);
    information.modifiedNanoseconds =
        static_cast<std::int64_t>(status.st_mtim.tv_sec) * 1'000'000'000 + status.st_mtim.tv_nsec;
    information.isFolder = S_ISDIR(status.st_mode);
    information.isRegular = S_ISREG(status.st_mode);
    information.readOnly = (status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0;
    return information;
}

/// Whether the effective user is kept from writing. Doubt is no protection: a system that cannot tell answers
/// no.
bool isWriteRefused(int folder, const char* path, int flags) {
    return ::faccessat(folder, path, W_OK, AT_EACCESS | flags) == -1 &&
           (errno == EACCES || errno == EROFS || errno == EPERM);
}

FileStatus refuseIrregular(int descriptor) {
    struct stat status {};
    if (::fstat(descriptor, &status) == -1)
        return lastFailure();
    if (S_ISDIR(status.st_mode))
        return statusOf(EISDIR);
    return {S_ISREG(status.st_mode) ? FileError::none : FileError::notRegular, 0};
}

} // namespace

FileStatus PosixFiles::open(CStringView path, OpenMode mode, FileHandle& handle) {
    handle = FileHandle::none;
    std::string native;
    if (const FileStatus status = mapper_->toNative(path, native); !status.ok())
        return status;
    const int flags = flagsOf(mode) | O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
    const int descriptor = uninterrupted([&] { return ::open(native.c_str(), flags, usualMode); });
    if (descriptor == -1)
        return lastFailure();
    if (const FileStatus status = refuseIrregular(descriptor); !status.ok()) {
        ::close(descriptor);
        return status;
    }
    handle = static_cast<FileHandle>(descriptor);
    return {};
}

FileStatus PosixFiles::read(FileHandle handle, std::span<char> buffer, std::size_t& count) {
    const ssize_t result =
        uninterrupted([&] { return ::read(descriptorOf(handle), buffer.data(), buffer.size()); });
    count = result == -1 ? 0 : static_cast<std::size_t>(result);
    return result == -1 ? lastFailure() : FileStatus{};
}

FileStatus PosixFiles::write(FileHandle handle, std::string_view bytes, std::size_t& count) {
    const ssize_t result =
        uninterrupted([&] { return ::write(descriptorOf(handle), bytes.data(), bytes.size()); });
    count = result == -1 ? 0 : static_cast<std::size_t>(result);
    return result == -1 ? lastFailure() : FileStatus{};
}

FileStatus PosixFiles::truncate(FileHandle handle, std::uint64_t size) {
    if (size > static_cast<std::uint64_t>(std::numeric_limits<off_t>::max()))
        return statusOf(EFBIG);
    const int descriptor = descriptorOf(handle);
    if (uninterrupted([&] { return ::ftruncate(descriptor, static_cast<off_t>(size)); }) == -1)
        return lastFailure();
    return ::lseek(descriptor, 0, SEEK_SET) == -1 ? lastFailure() : FileStatus{};
}

FileStatus PosixFiles::sync(FileHandle handle) {
    return outcome(uninterrupted([&] { return ::fsync(descriptorOf(handle)); }));
}

/// Not repeated when interrupted: the descriptor is gone then already, and its number may be another file's.
FileStatus PosixFiles::close(FileHandle handle) {
    return ::close(descriptorOf(handle)) == -1 && errno != EINTR ? lastFailure() : FileStatus{};
}

FileStatus PosixFiles::rename(CStringView from, CStringView to) {
    std::string nativeFrom;
    std::string nativeTo;
    if (const FileStatus status = mapper_->toNative(from, nativeFrom); !status.ok())
        return status;
    if (const FileStatus status = mapper_->toNative(to, nativeTo); !status.ok())
        return status;
    if (nativeFrom == nativeTo) { // the old name is all that the look-up found for the new one
        std::string spelled;
        if (const FileStatus status = mapper_->toNativeAsSpelled(to, spelled); !status.ok())
            return status;
        nativeTo = joinNative(nativeFolder(nativeTo), nativeName(spelled));
    }
    return outcome(uninterrupted([&] { return ::rename(nativeFrom.c_str(), nativeTo.c_str()); }));
}

FileStatus PosixFiles::remove(CStringView path) {
    std::string native;
    if (const FileStatus status = mapper_->toNative(path, native); !status.ok())
        return status;
    return outcome(uninterrupted([&] { return ::unlink(native.c_str()); }));
}

/// File systems that cannot force a folder to the device say that the argument is wrong.
FileStatus PosixFiles::syncFolder(CStringView folder) {
    std::string native;
    if (const FileStatus status = mapper_->toNative(folder, native); !status.ok())
        return status;
    const int descriptor =
        uninterrupted([&] { return ::open(native.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); });
    if (descriptor == -1)
        return lastFailure();
    FileStatus status = outcome(uninterrupted([&] { return ::fsync(descriptor); }));
    if (status.systemCode == EINVAL)
        status.error = FileError::unsupported;
    const FileStatus closed = close(static_cast<FileHandle>(descriptor));
    return status.ok() ? closed : status;
}

FileStatus PosixFiles::information(CStringView path, FileInformation& information) {
    information = {};
    std::string native;
    if (const FileStatus status = mapper_->toNative(path, native); !status.ok())
        return status;
    struct stat status {};
    if (::stat(native.c_str(), &status) == -1)
        return lastFailure();
    information = informationOf(status);
    information.readOnly = information.readOnly || isWriteRefused(AT_FDCWD, native.c_str(), 0);
    information.isHidden = hasHiddenMark(native.c_str());
    return {};
}

FileStatus PosixFiles::information(FileHandle handle, FileInformation& information) {
    information = {};
    struct stat status {};
    if (::fstat(descriptorOf(handle), &status) == -1)
        return lastFailure();
    information = informationOf(status);
    information.readOnly = information.readOnly || isWriteRefused(descriptorOf(handle), "", AT_EMPTY_PATH);
    information.isHidden = hasHiddenMark(descriptorOf(handle));
    return {};
}

FileStatus PosixFiles::lock(FileHandle handle, std::chrono::milliseconds patience) {
    return lockDescriptor(descriptorOf(handle), patience);
}

FileStatus PosixFiles::markLock(FileHandle handle) {
    return markDescriptor(descriptorOf(handle));
}

FileStatus PosixFiles::isLockMarked(FileHandle handle, bool& marked) {
    return isDescriptorMarked(descriptorOf(handle), marked);
}

FileStatus PosixFiles::mayLockBeLocal(FileHandle handle, bool& local) {
    return mayDescriptorLockBeLocal(descriptorOf(handle), local);
}

FileStatus PosixFiles::copyAttributes(CStringView from, FileHandle to) {
    std::string native;
    if (const FileStatus status = mapper_->toNative(from, native); !status.ok())
        return status;
    return copyFileAttributes(native, descriptorOf(to));
}

FileStatus PosixFiles::copyReadRights(CStringView from, FileHandle to) {
    std::string native;
    const FileStatus status = mapper_->toNative(from, native);
    return status.ok() ? copyRightsToRead(native, descriptorOf(to)) : status;
}

FileStatus PosixFiles::setReadOnly(CStringView path, bool readOnly) {
    std::string native;
    const FileStatus status = mapper_->toNative(path, native);
    return status.ok() ? setWriteProtection(native, readOnly) : status;
}

FileStatus PosixFiles::setHidden(CStringView path, bool hidden) {
    std::string native;
    const FileStatus status = mapper_->toNative(path, native);
    return status.ok() ? setHiddenMark(native, hidden) : status;
}

FileStatus PosixFiles::createFolder(CStringView path) {
    constexpr mode_t folderMode = 0777; // less what the user's mask takes away
    std::string native;
    if (const FileStatus status = mapper_->toNative(path, native); !status.ok())
        return status;
    return outcome(::mkdir(native.c_str(), folderMode));
}

/// A file system that is mounted read-only refuses whatever the folder's mode says.
FileStatus PosixFiles::checkFolderWritable(CStringView folder) {
    std::string native;
    if (const FileStatus status = mapper_->toNative(folder, native); !status.ok())
        return status;
    struct stat status {};
    if (::stat(native.c_str(), &status) == -1)
        return lastFailure();
    if (!S_ISDIR(status.st_mode))
        return statusOf(ENOTDIR);
    return outcome(::faccessat(AT_FDCWD, native.c_str(), W_OK | X_OK, AT_EACCESS));
}

FileStatus PosixFiles::resolve(CStringView path, CString& resolved) {
    resolved.clear();
    std::string native;
    if (const FileStatus status = mapper_->toNative(path, native); !status.ok())
        return status;
    std::string target;
    const FileStatus status = resolveNative(native, target);
    if (status.ok())
        resolved = mapper_->fromNative(target);
    return status;
}

} // namespace drafta
