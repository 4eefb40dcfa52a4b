// The command that makes a project.
#pragma once

#include "base/strings.h"

namespace ryv {

/// Asks for a new project, makes it and opens it as the active one, in the place of an open project of the
/// same name if the user agrees; then shows its properties if that was asked for. Nothing happens without a
/// project manager, and when one of its handlers objects. The ID of the new project once it is open, which it
/// need not be any more when this returns; else empty.
CString makeNewProject();

} // namespace ryv
