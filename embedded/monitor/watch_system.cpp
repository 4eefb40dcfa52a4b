#include "embedded/monitor/watch_system.h"
#include "embedded/os/file_error.h"

#include <algorithm>
#include <array>
#include <sys/inotify.h>
#include <sys/vfs.h>

namespace drafta {

namespace {

/// The numbers by which network file systems name their type; the system's headers have but some of them.
constexpr std::array<std::uint32_t, 16> remoteTypes{
    0x00006969, // NFS
    0x0000517B, // SMB
    0xFF534D42, // CIFS
    0xFE534D42, // SMB 2 and later
    0x65735546, // FUSE: what lies behind, a remote shell or a local disk, it does not say
    0x01021997, // 9P
    0x5346414F, // AFS
    0x6B414653, // AFS of the kernel
    0x00C36400, // Ceph
    0x73757245, // Coda
    0x0000564C, // NCP
    0x01161970, // GFS2
    0x7461636F, // OCFS2
    0x0BD00BD0, // Lustre
    0x786F4256, // shared folders of virtual machines
    0xBACBACBC,
};

} // namespace

int WatchSystem::open() {
    return ::inotify_init1(IN_CLOEXEC | IN_NONBLOCK);
}

int WatchSystem::add(int queue, const std::string& path, std::uint32_t mask) {
    return ::inotify_add_watch(queue, path.c_str(), mask);
}

void WatchSystem::remove(int queue, int watch) {
    ::inotify_rm_watch(queue, watch);
}

bool WatchSystem::isRemote(const std::string& folder) {
    struct statfs system {};
    if (uninterrupted([&] { return ::statfs(folder.c_str(), &system); }) == -1)
        return false;
    const auto type = static_cast<std::uint32_t>(system.f_type);
    return std::find(remoteTypes.begin(), remoteTypes.end(), type) != remoteTypes.end();
}

} // namespace drafta
