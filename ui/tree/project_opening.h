// Opening a project that the user has chosen.
#pragma once

#include "base/strings.h"

namespace ryv {

/// Lets the user choose a project file, beginning in the folder that the package's environment names; empty
/// when the user cancels.
CString chooseProjectFile();

/// Opens a project and makes it the active one. An open one of the same name gives way, if the user agrees;
/// the same one only becomes active. What fails is shown. False when nothing was opened.
bool openOrReplaceProject(const CString& projectId);

} // namespace ryv
