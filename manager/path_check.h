// Drawings that are not where their project says.
#pragma once

#include "model/project.h"

namespace ryv {

/// How a search for missing drawings ended.
enum class PathCheck {
    nothingMissing, ///< all drawings are where the project says, or are left as they are
    repaired,       ///< in memory: every missing drawing was found
    cancelled       ///< the user stopped it; what was repaired so far is in memory only
};

/// Looks for drawings of a project that are missing, and asks the user, one after the other, whether to take
/// those of the project's folder or of one that the user names. Sets the project's marks.
PathCheck findMissingDrawings(RyvPrmProject& project);

/// True when every drawing whose path is absolute has a file of its name in `folder`.
bool allFoundAtPath(const RyvPrmProject& project, CStringView folder);

/// Leads every drawing whose file is missing, but which has a file of its name in `folder`, to that one.
/// False when a missing drawing was not found there.
bool repairPaths(RyvPrmProject& project, CStringView folder);

} // namespace ryv
