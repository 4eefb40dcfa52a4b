#include "embedded/monitor/watch_system.h"
#include "embedded/os/file_error.h"
#include "embedded/os/remote_file_systems.h"

#include <sys/inotify.h>
#include <sys/vfs.h>

namespace drafta {

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
    return isRemoteFileSystem(static_cast<std::uint32_t>(system.f_type));
}

} // namespace drafta
