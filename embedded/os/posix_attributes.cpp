#include "embedded/os/posix_attributes.h"
#include "embedded/os/file_error.h"

#include <string_view>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <vector>

namespace drafta {

using ryv::FileError;
using ryv::FileStatus;

namespace {

constexpr int attempts = 4; // with an attribute that grows between asking for its size and reading it
constexpr const char* accessList = "system.posix_acl_access";
constexpr const char* hiddenMark = "user.hidden";
constexpr std::string_view capabilities = "security.capability"; // rights of a program; never handed on

/// Only trouble with the device counts: that an attribute cannot be kept here is a matter of course.
FileStatus seriousOnly(FileStatus status) {
    return status.error == FileError::noSpace || status.error == FileError::io ? status : FileStatus{};
}

/// Calls `get(buffer, size)`, which answers the size needed when given none, until the buffer is large
/// enough.
template <class Get>
std::vector<char> getSized(Get get) {
    std::vector<char> buffer;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        const ssize_t size = get(nullptr, 0);
        if (size <= 0)
            break;
        buffer.resize(static_cast<std::size_t>(size));
        const ssize_t got = get(buffer.data(), buffer.size());
        if (got >= 0) {
            buffer.resize(static_cast<std::size_t>(got));
            return buffer;
        }
        if (errno != ERANGE)
            break;
    }
    return {};
}

FileStatus copyAttribute(const std::string& from, int to, const char* name) {
    const ssize_t present = ::getxattr(from.c_str(), name, nullptr, 0);
    if (present == -1)
        return {};
    const std::vector<char> value = getSized(
        [&](char* buffer, std::size_t size) { return ::getxattr(from.c_str(), name, buffer, size); });
    if (present > 0 && value.empty())
        return {};
    return ::fsetxattr(to, name, value.data(), value.size(), 0) == -1 ? seriousOnly(lastFailure())
                                                                      : FileStatus{};
}

/// An access list that the new file has from its folder, and the old one does not have, goes.
FileStatus copyExtendedAttributes(const std::string& from, int to) {
    const std::vector<char> names =
        getSized([&](char* buffer, std::size_t size) { return ::listxattr(from.c_str(), buffer, size); });
    bool listed = false;
    for (std::size_t at = 0; at < names.size();) {
        const std::string name(names.data() + at);
        at += name.size() + 1;
        listed = listed || name == accessList;
        if (name == capabilities)
            continue;
        if (const FileStatus status = copyAttribute(from, to, name.c_str()); !status.ok())
            return status;
    }
    if (!listed && ::fremovexattr(to, accessList) == -1)
        return seriousOnly(lastFailure());
    return {};
}

/// Owner and group as far as they can be kept; the mode that may be given to the file then.
mode_t copyOwner(const struct stat& from, const struct stat& to, int descriptor) {
    mode_t mode = from.st_mode & 07777;
    bool ownerKept = from.st_uid == to.st_uid;
    bool groupKept = from.st_gid == to.st_gid;
    if (!ownerKept)
        ownerKept = groupKept = ::fchown(descriptor, from.st_uid, from.st_gid) == 0;
    if (!groupKept)
        groupKept =
            from.st_gid == to.st_gid || ::fchown(descriptor, static_cast<uid_t>(-1), from.st_gid) == 0;
    if (!ownerKept)
        mode &= ~static_cast<mode_t>(S_ISUID);
    if (!groupKept)
        mode &= ~static_cast<mode_t>(S_ISGID) & (~static_cast<mode_t>(S_IRWXG) | (mode & S_IRWXO) << 3);
    return mode;
}

} // namespace

FileStatus copyFileAttributes(const std::string& from, int to) {
    struct stat old {};
    struct stat made {};
    if (::stat(from.c_str(), &old) == -1 || ::fstat(to, &made) == -1)
        return lastFailure();
    const mode_t mode = copyOwner(old, made, to);
    if (const FileStatus status = copyExtendedAttributes(from, to); !status.ok())
        return status;
    // Last, because setting an access list changes the mode, and changing the owner clears the special bits.
    return ::fchmod(to, mode) == -1 ? seriousOnly(lastFailure()) : FileStatus{};
}

FileStatus copyRightsToRead(const std::string& from, int to) {
    struct stat old {};
    struct stat made {};
    if (::stat(from.c_str(), &old) == -1 || ::fstat(to, &made) == -1)
        return lastFailure();
    mode_t rights = old.st_mode & (S_IRUSR | S_IRGRP | S_IROTH);
    mode_t mode = made.st_mode & 07777;
    if (old.st_gid != made.st_gid) {
        if (::fchown(to, static_cast<uid_t>(-1), old.st_gid) == 0)
            mode &= ~static_cast<mode_t>(S_IRWXG); // these were meant for the group that it had
        else if ((rights & S_IROTH) == 0)
            rights &= ~static_cast<mode_t>(S_IRGRP);
    }
    return ::fchmod(to, mode | rights) == -1 ? lastFailure() : FileStatus{};
}

FileStatus setWriteProtection(const std::string& path, bool isProtected) {
    constexpr mode_t writeRights = S_IWUSR | S_IWGRP | S_IWOTH;
    struct stat status {};
    if (::stat(path.c_str(), &status) == -1)
        return lastFailure();
    const mode_t mode = status.st_mode & 07777;
    const mode_t wanted = isProtected ? mode & ~writeRights : mode | S_IWUSR;
    return ::chmod(path.c_str(), wanted) == -1 ? lastFailure() : FileStatus{};
}

FileStatus setHiddenMark(const std::string& path, bool hidden) {
    const int result =
        hidden ? ::setxattr(path.c_str(), hiddenMark, "1", 1, 0) : ::removexattr(path.c_str(), hiddenMark);
    if (result == 0 || (!hidden && errno == ENODATA))
        return {};
    return errno == EOPNOTSUPP ? FileStatus{FileError::unsupported, errno} : lastFailure();
}

bool hasHiddenMark(const char* path) noexcept {
    return ::getxattr(path, hiddenMark, nullptr, 0) > 0;
}

bool hasHiddenMark(int descriptor) noexcept {
    return ::fgetxattr(descriptor, hiddenMark, nullptr, 0) > 0;
}

} // namespace drafta
