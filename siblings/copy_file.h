// Copying one file.
#pragma once

#include "platform/os/files.h"

namespace ryv {

/// Copies a regular file, with its mode as far as the user may, to a name that is free; `exists` when it is
/// not. What the copy holds is on the device when this returns. A copy that fails leaves nothing behind. The
/// copy may be written, also when the original may not.
FileStatus copyFile(Files& files, CStringView source, CStringView target);

} // namespace ryv
