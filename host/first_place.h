// Where the palette set floats when it is shown for the first time.
#pragma once

#include "platform/host/main_window.h"

namespace ryv {

/// At the top left of the active document, or just inside the main window when no document has a window; half
/// the screen high, and as wide as suits that.
ScreenRectangle firstPlace(HostMainWindow& mainWindow);

} // namespace ryv
