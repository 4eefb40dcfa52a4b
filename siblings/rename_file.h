// Giving a file another name without losing another file.
#pragma once

#include "platform/os/files.h"

namespace ryv {

/// Renames a file within its folder. `exists`, with both files left alone, when something else has the new
/// name already, also when it comes into being meanwhile. Names that differ in case only are names of one
/// file, unless the folder has both.
FileStatus renameWithoutReplacing(Files& files, CStringView from, CStringView to);

} // namespace ryv
