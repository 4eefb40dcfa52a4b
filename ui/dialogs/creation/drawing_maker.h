// Making a drawing file out of a template.
#pragma once

#include "ui/dialogs/creation/new_drawing_values.h"

namespace ryv {

class RyvPrmFileDetails;

/// Copies the template to the path of the values, gives the copy's settings block the project's defaults
/// (asking first when the template brought one) and then the codes, sheet and drawing number of the values,
/// and fills in `details`: path, description lines, section, sub-section and reference flag. A file that is
/// there is not replaced.
///
/// False when something fails: the user was told, and what was made of the file is gone again, unless it has
/// been opened meanwhile. Asks the user and calls LISP.
bool makeDrawing(const NewDrawingValues& values, const CString& projectId, RyvPrmFileDetails& details);

/// Takes the file of a drawing that was made just now back, unless it has been opened meanwhile.
void removeMadeDrawing(const CString& path);

} // namespace ryv
