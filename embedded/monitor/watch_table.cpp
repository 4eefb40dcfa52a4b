#include "embedded/monitor/watch_table.h"

#include <cerrno>
#include <sys/inotify.h>

namespace drafta {

void WatchTable::open() {
    close();
    queue_ = Descriptor(system_->open());
    openFailure_ = queue_.isOpen() ? 0 : errno;
}

void WatchTable::close() {
    queue_.reset(); // all watches with it
    watches_.clear();
    trails_.clear();
}

/// The mask is added to what the watch has: others may need that.
int WatchTable::add(const std::string& path, std::uint32_t mask, WatchInterest interest) {
    if (!queue_.isOpen())
        return openFailure_;
    const int watch = system_->add(queue_.get(), path, mask | IN_MASK_ADD | IN_DONT_FOLLOW);
    if (watch == -1)
        return errno;
    const std::uint64_t trail = interest.trail;
    watches_[watch].emplace(trail, std::move(interest));
    trails_[trail].push_back(watch);
    return 0;
}

void WatchTable::drop(std::uint64_t trail) {
    const auto dropped = trails_.extract(trail);
    if (dropped.empty())
        return;
    for (const int watch : dropped.mapped()) {
        const auto held = watches_.find(watch);
        if (held == watches_.end())
            continue;
        held->second.erase(trail);
        if (!held->second.empty())
            continue;
        watches_.erase(held);
        system_->remove(queue_.get(), watch);
    }
}

void WatchTable::forget(int watch) {
    watches_.erase(watch);
}

const WatchTable::Interests& WatchTable::interests(int watch) const {
    const auto held = watches_.find(watch);
    return held == watches_.end() ? nobody_ : held->second;
}

} // namespace drafta
