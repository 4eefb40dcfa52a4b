// Locks on open files, as the system's calls give them.
#pragma once

#include "platform/os/files.h"

namespace drafta {

/// Files::lock, Files::markLock and Files::isLockMarked on a descriptor. The lock itself is a whole-file
/// lock, which also a descriptor that is open for reading may take; the mark is a lock of the other kind, on
/// one byte far behind every content, because only that can be asked for without being taken. Both belong to
/// the open file: the system drops them when its last descriptor is closed, however the process ends. A child
/// process that was forked and runs no other program shares them.
ryv::FileStatus lockDescriptor(int descriptor, std::chrono::milliseconds patience);
ryv::FileStatus markDescriptor(int descriptor);
ryv::FileStatus isDescriptorMarked(int descriptor, bool& marked);

/// Files::mayLockBeLocal, from the type of the file system alone.
ryv::FileStatus mayDescriptorLockBeLocal(int descriptor, bool& local);

} // namespace drafta
