#include "embedded/os/file_error.h"

namespace drafta {

using ryv::FileError;

namespace {

/// EAGAIN and EWOULDBLOCK, ENOTSUP and EOPNOTSUPP are one number each here.
FileError errorOf(int systemCode) noexcept {
    switch (systemCode) {
    case 0:
        return FileError::none;
    case ENOENT:
        return FileError::missing;
    case EACCES:
    case EPERM:
        return FileError::denied;
    case EROFS:
        return FileError::readOnly;
    case EEXIST:
    case ENOTEMPTY:
        return FileError::exists;
    case EISDIR:
        return FileError::isFolder;
    case ENOTDIR:
        return FileError::notFolder;
    case ENXIO: // a socket, a device without its driver
    case ENODEV:
        return FileError::notRegular;
    case ENOSPC:
    case EDQUOT:
        return FileError::noSpace;
    case EIO:
    case ESTALE: // a network share lost the file under us
        return FileError::io;
    case EAGAIN:
    case EBUSY:
    case ETXTBSY:
        return FileError::busy;
    case ENOLCK:
    case EOPNOTSUPP:
    case ENOSYS:
        return FileError::unsupported;
    case ENAMETOOLONG:
    case EILSEQ:
    case EINVAL: // what a file system says to characters that it does not take
    case ELOOP:  // symbolic links that lead in a circle
        return FileError::badName;
    case EFBIG:
    case EOVERFLOW:
        return FileError::tooLarge;
    default:
        return FileError::other;
    }
}

} // namespace

ryv::FileStatus statusOf(int systemCode) noexcept {
    return {errorOf(systemCode), systemCode};
}

ryv::FileStatus lastFailure() noexcept {
    return statusOf(errno);
}

} // namespace drafta
