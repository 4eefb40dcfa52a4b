// The network file systems that are mounted, as the kernel lists them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace drafta {

/// A share that is mounted; native bytes.
struct MountedShare {
    std::string computer;
    std::string share;  ///< with "/" between components, none at the ends
    std::string folder; ///< where it is mounted, a full path
    bool operator==(const MountedShare&) const = default;
};

/// Those in the text of /proc/self/mountinfo, of Windows shares and of NFS. Where several are mounted at one
/// place, the last one counts. Lines that say something else are passed over.
std::vector<MountedShare> mountedShares(std::string_view text);

/// A name with its escapes "\040" resolved, as mount tables and /etc/exports write them.
std::string withoutOctalEscapes(std::string_view text);

} // namespace drafta
