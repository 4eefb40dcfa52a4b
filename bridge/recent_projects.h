// The older list of recent projects, which the package's LISP code keeps.
#pragma once

#include "platform/host/result_buffer.h"

namespace ryv {

/// Projects and their flags, in the same order: "2" was active, "1" was open, anything else was closed. There
/// may be fewer flags than projects.
struct RecentProjects {
    CStringArray paths;
    CStringArray flags;
};

/// Asks LISP for the list. True when it answered and there was a string to read. `projects` holds what could
/// be read when it answered, and is left alone otherwise.
bool readRecentProjects(RecentProjects& projects);

/// Reads the answer: a list of paths, then three lists that do not matter here, then the list of flags. It is
/// read by its marks alone, so that an answer of another shape gives few or no strings but never fails:
/// nothing is read unless the first value is a list begin; paths end at the first list end, and reading ends
/// there at any value that is neither a string nor a list end. Behind that list end the fourth list begin
/// that is not inside another list is looked for; the strings that follow it at once are the flags. (An empty
/// list is nil in LISP, has no list begin and is not counted.)
RecentProjects recentProjectsIn(const HostResultBuffer& answer);

} // namespace ryv
