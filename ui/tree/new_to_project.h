// Drawings that a project is about to get.
#pragma once

#include "base/strings.h"

namespace ryv {

class RyvPrmProject;

/// Whether a project does not list a drawing yet; the user is told when it does.
bool isNewToProject(const RyvPrmProject& project, const CString& drawing);

} // namespace ryv
