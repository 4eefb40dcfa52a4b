#include "embedded/monitor/watch_trail.h"
#include "embedded/os/native_path.h"
#include "embedded/os/path_mapper.h"

#include <array>
#include <cerrno>
#include <climits>
#include <deque>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

namespace drafta {

namespace {

constexpr int mostLinks = 40;   // as many as the kernel follows
constexpr int mostSteps = 4096; // of a path under which somebody keeps moving things

constexpr std::uint32_t itself = IN_MOVE_SELF | IN_DELETE_SELF;
constexpr std::uint32_t folderMask = itself | IN_ONLYDIR;
constexpr std::uint32_t nameMask = folderMask | IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO |
                                   IN_ATTRIB | IN_CLOSE_WRITE | IN_EXCL_UNLINK;
constexpr std::uint32_t fileMask = itself | IN_MODIFY | IN_CLOSE_WRITE | IN_ATTRIB;

enum class Kind { missing, folder, link, file, other };

Kind kindOf(const std::string& path) {
    struct stat status {};
    if (::lstat(path.c_str(), &status) == -1)
        return Kind::missing;
    if (S_ISDIR(status.st_mode))
        return Kind::folder;
    if (S_ISLNK(status.st_mode))
        return Kind::link;
    return S_ISREG(status.st_mode) ? Kind::file : Kind::other;
}

class TrailWalk {
public:
    TrailWalk(WatchTable& table, WatchSystem& system, std::uint64_t trail)
        : table_(table), system_(system), trail_(trail) {}

    TrailResult follow(const std::string& path) {
        goOnWith(path);
        for (int steps = 0; !rest_.empty() && steps < mostSteps; ++steps)
            if (!step())
                break;
        return result_;
    }

private:
    using Role = WatchInterest::Role;

    void goOnWith(const std::string& path) {
        if (path.starts_with('/'))
            folder_ = "/";
        const auto components = nativeComponents(path);
        rest_.insert(rest_.begin(), components.begin(), components.end());
    }

    /// Handles the next component; false at the end of the trail. One that turns out to have changed
    /// meanwhile stays, to be handled once more.
    bool step() {
        const std::string name = rest_.front();
        if (name == "..") { // folder_ has no links in it
            enter(std::string(nativeFolder(folder_)));
            return true;
        }
        const std::string path = joinNative(folder_, name);
        if (rest_.size() > 1 && kindOf(path) == Kind::folder) {
            if (watchFolder(path))
                enter(path);
            return true;
        }
        watchName(name);
        switch (kindOf(path)) { // as it is now that the watch stands
        case Kind::folder:
            return rest_.size() > 1;
        case Kind::link:
            return followLink(path);
        case Kind::file:
            watchFile(path);
            return false;
        default:
            return false;
        }
    }

    void enter(const std::string& folder) {
        rest_.pop_front();
        folder_ = folder;
    }

    bool followLink(const std::string& path) {
        std::array<char, PATH_MAX> target{};
        const ssize_t size = ::readlink(path.c_str(), target.data(), target.size());
        if (size == -1)
            return errno == EINVAL; // no link any more
        rest_.pop_front();
        goOnWith(std::string(target.data(), static_cast<std::size_t>(size)));
        return ++links_ <= mostLinks;
    }

    /// False when it is no folder any more. Folders on the way that may be entered but not read stay without
    /// a watch: nothing else can be done about them, and it is rare that they are moved.
    bool watchFolder(const std::string& path) {
        const int failure = table_.add(path, folderMask, {trail_, Role::folder, {}, false});
        noteFailure(failure == EACCES ? 0 : failure);
        return failure != ENOENT && failure != ENOTDIR;
    }

    void watchName(const std::string& name) {
        const bool isEnd = rest_.size() == 1;
        noteFailure(table_.add(folder_, nameMask, {trail_, Role::name, componentFromNative(name), isEnd}));
        if (isEnd)
            result_.isRemote = result_.isRemote || system_.isRemote(folder_);
    }

    /// A file that may not be read tells through its folder.
    void watchFile(const std::string& path) {
        const int failure = table_.add(path, fileMask, {trail_, Role::file, {}, true});
        noteFailure(failure == EACCES ? 0 : failure);
    }

    /// What is not there any more is no failure: the watch above it tells of that.
    void noteFailure(int failure) {
        if (failure != ENOENT && failure != ENOTDIR && result_.failure == 0)
            result_.failure = failure;
    }

    WatchTable& table_;
    WatchSystem& system_;
    std::uint64_t trail_;
    std::string folder_ = "/"; // how far the trail has come
    std::deque<std::string> rest_;
    int links_ = 0;
    TrailResult result_;
};

} // namespace

TrailResult followTrail(
    WatchTable& table, WatchSystem& system, const std::string& path, std::uint64_t trail) {
    return TrailWalk(table, system, trail).follow(path);
}

} // namespace drafta
