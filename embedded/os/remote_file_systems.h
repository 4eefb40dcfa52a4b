// File systems that other computers reach too, by the number that names a file system's type.
#pragma once

#include <cstdint>

namespace drafta {

/// True when other computers can change what lies on a file system of this type (f_type of statfs, the low 32
/// bits), of which no event tells.
bool isRemoteFileSystem(std::uint32_t type) noexcept;

/// True when a lock on a file there may be known to this computer alone, while others reach the file too.
/// Where that is a matter of how it was mounted, the usual way of the file system decides; doubt says yes.
bool mayKeepLocksLocal(std::uint32_t type) noexcept;

} // namespace drafta
