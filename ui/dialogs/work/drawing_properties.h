// The properties of a drawing: its settings block, and its entry in a project.
#pragma once

#include "base/strings.h"

namespace ryv {

/// Locks a drawing, shows its properties sheet, and with OK writes what was changed into its settings block
/// and into its entry in the open project that lists it. Of a drawing that is open in the host, the document
/// is changed and not saved. What others change meanwhile is kept, and the user is told of values that both
/// changed; when storing fails the user may go back to what was typed. A drawing that cannot be locked or
/// read is told and nothing is changed. `titled` false: the current document's drawing, which has no file
/// yet.
void showDrawingProperties(CStringView drawing, bool titled);

} // namespace ryv
