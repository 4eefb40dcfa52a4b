#include "embedded/os/remote_file_systems.h"

#include <algorithm>
#include <array>

namespace drafta {

namespace {

enum class Locks { shared, perhapsLocal };

struct RemoteType {
    std::uint32_t number; // the system's headers have but some of them
    Locks locks;
};

constexpr std::array<RemoteType, 19> remoteTypes{{
    {0x00006969, Locks::shared},       // NFS
    {0x0000517B, Locks::perhapsLocal}, // SMB
    {0xFF534D42, Locks::perhapsLocal}, // CIFS: an option keeps locks from the server
    {0xFE534D42, Locks::perhapsLocal}, // SMB 2 and later
    {0x65735546,
        Locks::perhapsLocal}, // FUSE: what lies behind, a remote shell or a local disk, it does not say
    {0x01021997, Locks::perhapsLocal}, // 9P
    {0x5346414F, Locks::perhapsLocal}, // AFS
    {0x6B414653, Locks::perhapsLocal}, // AFS of the kernel
    {0x00C36400, Locks::shared},       // Ceph
    {0x73757245, Locks::perhapsLocal}, // Coda
    {0x0000564C, Locks::perhapsLocal}, // NCP
    {0x01161970, Locks::shared},       // GFS2
    {0x7461636F, Locks::shared},       // OCFS2
    {0x47504653, Locks::shared},       // GPFS
    {0x0BD00BD0, Locks::perhapsLocal}, // Lustre
    {0x19830326, Locks::perhapsLocal}, // BeeGFS
    {0xAAD7AAEA, Locks::perhapsLocal}, // PanFS
    {0x786F4256, Locks::perhapsLocal}, // shared folders of virtual machines
    {0xBACBACBC, Locks::perhapsLocal},
}};

const RemoteType* find(std::uint32_t type) noexcept {
    const auto* const hit = std::find_if(remoteTypes.begin(), remoteTypes.end(),
        [type](const RemoteType& each) { return each.number == type; });
    return hit == remoteTypes.end() ? nullptr : hit;
}

} // namespace

bool isRemoteFileSystem(std::uint32_t type) noexcept {
    return find(type) != nullptr;
}

bool mayKeepLocksLocal(std::uint32_t type) noexcept {
    const RemoteType* const remote = find(type);
    return remote && remote->locks == Locks::perhapsLocal;
}

} // namespace drafta
