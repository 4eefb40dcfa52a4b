// A database file, looked at before anything is believed of it.
#pragma once

#include "base/strings.h"
#include "embedded/loop/descriptor.h"

#include <cstdint>
#include <string>

namespace drafta {

enum class DatabaseKind { jet, sqlite };

/// What an open database file is like.
struct DatabaseFile {
    Descriptor descriptor; ///< for reading; open for Jet databases only
    DatabaseKind kind = DatabaseKind::jet;
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::uint64_t size = 0;               ///< bytes
    std::int64_t modifiedNanoseconds = 0; ///< since 1970-01-01 UTC
    bool isOwn = false;                   ///< the host has made it and may write it

    /// As far as that can be told without reading it, the same content.
    bool isSameState(const DatabaseFile& other) const noexcept {
        return device == other.device && inode == other.inode && size == other.size &&
               modifiedNanoseconds == other.modifiedNanoseconds;
    }
};

/// What the host's own databases carry in their header.
inline constexpr std::uint32_t ownApplicationId = 0x52595631;

/// Opens a regular file of at most 256 MiB whose first 16 bytes are those of a kind of database that can be
/// read. False, with the reason in `problem`, for anything else; it never waits.
bool openDatabaseFile(const std::string& native, DatabaseFile& file, ryv::CString& problem);

/// "FILE: REASON" on one line.
ryv::CString databaseProblem(const std::string& native, ryv::CStringView reason);

} // namespace drafta
