// Why something could not be done with a file, as a phrase for messages to the user.
#pragma once

#include "platform/os/files.h"

namespace ryv {

/// Fit to stand behind "file: ", in the user's language; describe() (platform/os/files.h) is always English.
CString fileReason(FileError error);

} // namespace ryv
