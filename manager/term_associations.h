// The terminal links of drawings that are about to be added to a project.
#pragma once

#include "model/project.h"

namespace ryv {

/// Has LISP bring the terminal links of those drawings that the project does not have yet into the project's
/// database; unless `quiet` the user is shown the drawings first and may decline. False without a project;
/// otherwise true, also when there was nothing to do or the user declined.
bool updateTermAssociations(const CArray<RyvPrmFileDetails>& drawings, RyvPrmProject* project, bool quiet);

} // namespace ryv
