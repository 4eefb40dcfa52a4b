// The watches that a monitor holds, shared among all files that need them.
#pragma once

#include "base/strings.h"
#include "embedded/loop/descriptor.h"
#include "embedded/monitor/watch_system.h"

#include <map>
#include <vector>

namespace drafta {

/// Why a watch is there. One watch can have many interests, and lives as long as it has any.
struct WatchInterest {
    enum class Role {
        name,   ///< a name in the folder watched
        folder, ///< the folder watched itself: being moved or removed
        file    ///< the file watched
    };

    std::uint64_t trail = 0; ///< whose it is
    Role role = Role::name;
    ryv::CString name;  ///< for Role::name
    bool isEnd = false; ///< the name is that of the file looked for, not of a folder or link on the way
};

class WatchTable {
public:
    using Interests = std::multimap<std::uint64_t, WatchInterest>; // by trail

    /// The system has to outlive the table.
    explicit WatchTable(WatchSystem& system) noexcept : system_(&system) {}

    /// Makes a new queue without watches. When there is none to be had, the table works, and no watch does.
    void open();
    void close();
    /// -1 without a queue.
    int descriptor() const noexcept { return queue_.get(); }

    /// Watches a native path for an interest: 0, or the number of the system's error.
    int add(const std::string& path, std::uint32_t mask, WatchInterest interest);

    /// Ends all interests of a trail.
    void drop(std::uint64_t trail);

    /// The system has ended a watch on its own.
    void forget(int watch);

    /// Who is interested in a watch; nobody when it is unknown. Valid until the table is changed.
    const Interests& interests(int watch) const;

private:
    WatchSystem* system_;
    Descriptor queue_;
    int openFailure_ = 0;
    std::map<int, Interests> watches_;
    std::map<std::uint64_t, std::vector<int>> trails_;
    const Interests nobody_;
};

} // namespace drafta
