// What a single system call tells of a file, to see whether it is worth a closer look.
#pragma once

#include <cstdint>
#include <string>

namespace drafta {

/// Unlike FileInformation it takes in every change of a file's attributes, but does not say what they mean.
struct FileMark {
    bool isThere = false;
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::uint64_t size = 0;               ///< bytes
    std::int64_t modifiedNanoseconds = 0; ///< since 1970-01-01 UTC
    std::int64_t changedNanoseconds = 0;  ///< the same for the attributes
    std::uint32_t mode = 0;

    bool operator==(const FileMark&) const = default;
    bool isSameFile(const FileMark& other) const noexcept {
        return isThere == other.isThere && device == other.device && inode == other.inode;
    }
};

/// Differs from every mark that is taken.
inline constexpr FileMark noMark{false, 0, 0, 0, 0, 0, ~0U};

/// The mark of the file or folder at a native path, symbolic links followed. Any thread.
FileMark markOf(const std::string& native) noexcept;

/// True when the file was written so lately that another write might leave its time as it is.
bool isFresh(const FileMark& mark) noexcept;

} // namespace drafta
