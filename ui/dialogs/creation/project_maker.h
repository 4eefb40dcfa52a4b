// Making a project file out of another one.
#pragma once

#include "platform/os/files.h"
#include "ui/dialogs/creation/new_project_values.h"

namespace ryv {

/// Makes a folder with all that is missing above it. Blanks around the path and one separator at its end do
/// not count; an empty path, one that ends in a drive's colon and one that is there already need nothing.
/// After a failure `failed` is the folder that could not be made; those above it stay.
FileStatus createFolders(CStringView path, CString& failed);

/// Writes the new project: that of the source without its drawings and its link to an outside tool's
/// project, with the description lines and setting 9 that are given. Makes the folder first, which stays
/// whatever comes of the file. A file that has come to be at the path is not replaced. False when it cannot
/// be made; the user was told why. Calls LISP, so anything may have changed when this returns.
bool makeProject(const NewProjectValues& values);

} // namespace ryv
