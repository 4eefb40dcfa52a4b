// What keeps a drawing of a project from being opened.
#pragma once

#include "base/strings.h"

namespace ryv {

/// Why a drawing cannot be opened, as a sentence for the user: its file or folder is missing, or somebody
/// else works on it. Empty when nothing speaks against it.
CString problemOfOpening(CStringView drawing);

} // namespace ryv
