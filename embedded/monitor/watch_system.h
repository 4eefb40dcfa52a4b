// The system calls of watching, so that a test can run out of watches and put any folder on a network.
#pragma once

#include <cstdint>
#include <string>

namespace drafta {

/// The calls as the system has them. Those with a result leave the reason of a failure in errno.
class WatchSystem {
public:
    virtual ~WatchSystem() = default;

    /// A new watch queue: its descriptor, which the caller closes, or -1.
    virtual int open();

    /// Watches a native path for the events of a mask: the number of the watch, or -1. One file or folder has
    /// one number in a queue, whatever path it was reached by.
    virtual int add(int queue, const std::string& path, std::uint32_t mask);
    virtual void remove(int queue, int watch);

    /// True when other computers can change what is in the folder, of which no event tells.
    virtual bool isRemote(const std::string& folder);
};

} // namespace drafta
