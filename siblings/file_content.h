// Whole files in memory, and what a file was like when it was read.
#pragma once

#include "platform/os/files.h"
#include "siblings/byte_buffer.h"

namespace ryv {

/// A 64-bit hash of bytes, alike on every machine and in every version. Made for noticing changes, not for
/// defence against somebody who wants two contents to collide.
std::uint64_t contentHash(std::string_view bytes) noexcept;

/// What a file was like at one moment. Two are equal when both are of a missing file, or both of a present
/// one with the same content (size and hash). Device, inode and time do not count: a file that was touched,
/// or written again with the same content, has lost nothing.
struct Fingerprint {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::uint64_t size = 0;               ///< bytes
    std::int64_t modifiedNanoseconds = 0; ///< since 1970-01-01 UTC
    std::uint64_t hash = 0;               ///< contentHash of all bytes
    bool present = false;                 ///< false: there was no file, and all else is 0

    friend bool operator==(const Fingerprint& a, const Fingerprint& b) noexcept {
        return a.present == b.present && a.size == b.size && a.hash == b.hash;
    }
};

/// The fingerprint of a file with this information and content.
Fingerprint makeFingerprint(const FileInformation& information, std::string_view content) noexcept;

/// Reads a whole file, and takes the fingerprint of the bytes read. A folder fails with `isFolder`, another
/// thing that is no regular file with `notRegular`, one that memory cannot hold with `tooLarge`. A file that
/// changes while it is being read is read again a few times; `busy` when it never comes to rest. After a
/// failure `content` is empty and the fingerprint is that of a missing file.
FileStatus readWholeFile(Files& files, CStringView path, ByteBuffer& content, Fingerprint& fingerprint);

/// The fingerprint of a file as it is now; the whole file is read. A missing file, or one in a missing
/// folder, is a success with `present` false.
FileStatus fingerprintOf(Files& files, CStringView path, Fingerprint& fingerprint);

} // namespace ryv
