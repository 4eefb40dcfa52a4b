// The properties of a project: descriptions, miscellaneous settings and default drawing settings.
#pragma once

#include "base/strings.h"

namespace ryv {

/// Locks the files of an open project, shows its properties sheet, and with OK stores what was changed and
/// has LISP read the project again. What others change meanwhile is kept, and the user is told of values that
/// both changed; when storing fails the user may go back to what was typed. Nothing happens when the project
/// is not open.
void showProjectProperties(CStringView projectId);

} // namespace ryv
