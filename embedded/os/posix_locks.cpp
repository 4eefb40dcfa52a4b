#include "embedded/os/posix_locks.h"
#include "embedded/os/file_error.h"
#include "embedded/os/remote_file_systems.h"

#include <algorithm>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/vfs.h>
#include <thread>

namespace drafta {

using ryv::FileError;
using ryv::FileStatus;
using std::chrono::milliseconds;

namespace {

constexpr milliseconds longestPause{16};

constexpr off_t markedByte = off_t{1} << 62;

/// Where locks on bytes are binding, one on the content would keep everybody from reading it. The process
/// number stays 0: the lock is the open file's.
struct flock markOf(short type) {
    struct flock range {};
    range.l_type = type;
    range.l_whence = SEEK_SET;
    range.l_start = markedByte;
    range.l_len = 1;
    return range;
}

/// A system without locks of open files takes the command for a wrong argument.
FileStatus markFailure() {
    return errno == EINVAL || errno == EBADF ? FileStatus{FileError::unsupported, errno} : lastFailure();
}

} // namespace

/// Tries without waiting, with growing pauses: a call that waits could not be given up when patience is over.
FileStatus lockDescriptor(int descriptor, milliseconds patience) {
    const auto deadline = std::chrono::steady_clock::now() + patience;
    for (milliseconds pause{1};; pause = std::min(2 * pause, longestPause)) {
        if (uninterrupted([&] { return ::flock(descriptor, LOCK_EX | LOCK_NB); }) == 0)
            return {};
        if (errno == EBADF || errno == EINVAL) // some network file systems want the file open for writing
            return {FileError::unsupported, errno};
        const auto left = std::chrono::ceil<milliseconds>(deadline - std::chrono::steady_clock::now());
        if (errno != EWOULDBLOCK || left <= milliseconds(0))
            return lastFailure();
        std::this_thread::sleep_for(std::min(pause, left));
    }
}

FileStatus markDescriptor(int descriptor) {
    struct flock range = markOf(F_WRLCK);
    return uninterrupted([&] { return ::fcntl(descriptor, F_OFD_SETLK, &range); }) == -1 ? markFailure()
                                                                                         : FileStatus{};
}

FileStatus isDescriptorMarked(int descriptor, bool& marked) {
    marked = false;
    struct flock range = markOf(F_RDLCK);
    if (uninterrupted([&] { return ::fcntl(descriptor, F_OFD_GETLK, &range); }) == -1)
        return markFailure();
    marked = range.l_type != F_UNLCK;
    return {};
}

FileStatus mayDescriptorLockBeLocal(int descriptor, bool& local) {
    local = true;
    struct statfs system {};
    if (uninterrupted([&] { return ::fstatfs(descriptor, &system); }) == -1)
        return lastFailure();
    local = mayKeepLocksLocal(static_cast<std::uint32_t>(system.f_type));
    return {};
}

} // namespace drafta
