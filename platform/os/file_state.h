// What can be told of a file from the answer to a look at it.
#pragma once

#include "platform/os/files.h"

namespace ryv {

/// Whether an error says that there is nothing at the path, and not just that it cannot be looked at.
inline bool meansGone(FileError error) noexcept {
    return error == FileError::missing || error == FileError::notFolder || error == FileError::badName;
}

/// The same file, of the same size and time: as far as that tells, with the same content.
inline bool isSameState(const FileInformation& a, const FileInformation& b) noexcept {
    return a.device == b.device && a.inode == b.inode && a.size == b.size &&
           a.modifiedNanoseconds == b.modifiedNanoseconds;
}

} // namespace ryv
