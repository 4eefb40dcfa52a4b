#include "embedded/os/folder_names.h"

#include "base/fold.h"
#include "embedded/os/path_mapper.h"
#include "embedded/os/remote_file_systems.h"

#include <ctime>
#include <dirent.h>
#include <memory>
#include <sys/stat.h>
#include <sys/vfs.h>

namespace drafta {

namespace {

/// The coarsest step of a local file system's times: within it a second change may leave the time as it is.
constexpr std::time_t timeStep = 2; // seconds

struct CloseFolder {
    void operator()(DIR* folder) const noexcept { ::closedir(folder); }
};

std::int64_t nanoseconds(const timespec& time) {
    return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

bool isLocal(const std::string& folder) {
    struct statfs found {};
    return ::statfs(folder.c_str(), &found) == 0 &&
           !isRemoteFileSystem(static_cast<std::uint32_t>(found.f_type));
}

} // namespace

bool FolderNames::isKept(const std::string& folder, const State& now) const {
    return settled_ && folder_ == folder && state_ == now;
}

std::string FolderNames::find(const std::string& folder, ryv::CStringView name) {
    const std::lock_guard guard(mutex_);
    struct stat found {};
    if (::stat(folder.c_str(), &found) != 0)
        return {};
    const State now{found.st_dev, found.st_ino, nanoseconds(found.st_mtim), nanoseconds(found.st_ctim)};
    if (!isKept(folder, now)) {
        state_ = now;
        settled_ = list(folder) && ::time(nullptr) - found.st_mtim.tv_sec > timeStep && isLocal(folder);
    }
    const auto hit = names_.find(ryv::toUpper(name));
    return hit == names_.end() ? std::string() : hit->second;
}

bool FolderNames::list(const std::string& folder) {
    ++listings_;
    folder_ = folder;
    names_.clear();
    const std::unique_ptr<DIR, CloseFolder> entries(::opendir(folder.c_str()));
    if (!entries)
        return false;
    while (const dirent* entry = ::readdir(entries.get())) {
        const std::string_view candidate(entry->d_name);
        std::string& kept = names_[ryv::toUpper(componentFromNative(candidate))];
        if (kept.empty() || candidate < kept)
            kept = candidate;
    }
    return true;
}

} // namespace drafta
