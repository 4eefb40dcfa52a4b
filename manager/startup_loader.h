// Opening the projects of the host's last run again.
#pragma once

#include "bridge/recent_projects.h"

namespace ryv {

/// Gives a list of projects; false when it cannot be read. readLastProjects() reads the file, and
/// readRecentProjects() asks LISP for the older list.
using ProjectListReader = bool (*)(RecentProjects& list);

/// Opens the projects that the list says were open, and activates the one that was active, else the first
/// open one that can be. Once a run: when the list was read, further calls do nothing; when it could not be,
/// the next call tries again. Nothing happens without a project manager.
void loadLastProjects(ProjectListReader reader);

} // namespace ryv
