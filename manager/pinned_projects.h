// The projects that the user has pinned, so that they stand first among the recent ones and never drop off
// the list. Kept in the registry, in the key "\Settings\PinnedProjects" below the profile's: "NR_ENTRIES" and
// the project IDs under "1", "2" and so on, all of them strings.
#pragma once

#include "base/strings.h"

namespace ryv {

/// No more can be pinned.
inline constexpr std::size_t mostPinnedProjects = 30;

/// In the order of pinning; empty when none is or the registry cannot be read.
CStringArray readPinnedProjects();

/// Pins a project as the last one, or takes its pin away. Case does not count, "/" is the same as "\". True
/// when it is as it is wanted afterwards; false when too many are pinned or the registry cannot be written.
bool pinProject(CStringView projectId, bool pinned);

} // namespace ryv
