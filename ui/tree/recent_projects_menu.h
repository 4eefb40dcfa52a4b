// The menu of recent projects: those that are pinned, then the last ones, each with its place. A file that is
// not there is greyed. Below them, what changes the list.
#pragma once

#include "platform/ui/user_interface.h"

namespace ryv {

/// Shows the menu and does what the user chooses in it, again and again while that only changes the list. The
/// ID of the project to be opened; empty when there is none.
CString chooseRecentProject(ScreenPoint place);

} // namespace ryv
