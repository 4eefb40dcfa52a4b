// From the root to a file, with a watch on all that could make the path lead elsewhere.
#pragma once

#include "embedded/monitor/watch_table.h"

namespace drafta {

struct TrailResult {
    int failure = 0; ///< number of the system's error when a watch is missing that is needed, 0 for none
    bool isRemote =
        false; ///< the file, or a link on the way to it, lies in a folder that other computers change
};

/// Follows an absolute native path, component by component, as the kernel would, symbolic links included, and
/// adds the watches of a trail. Watched are: every folder on the way, for being moved or removed; the name of
/// every link, in its folder; the file's name, in its folder; the file. When the path breaks off, the name
/// that is missing is watched for in the last folder that is there.
///
/// Every watch stands before what it watches is looked at, from the root down, so that no change falls into a
/// gap: it is either seen by who looks at the path afterwards, or told by an event.
TrailResult followTrail(WatchTable& table, WatchSystem& system, const std::string& path, std::uint64_t trail);

} // namespace drafta
