// Dialogs that this version does not have.
#pragma once

#include "base/strings.h"

namespace ryv {

/// Says on the command line that `dialog` ("The dialog for new projects") is not there yet.
void tellDialogMissing(CStringView dialog);

} // namespace ryv
