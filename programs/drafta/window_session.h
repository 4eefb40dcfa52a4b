// The host with its window, or where there is no display without one.
#pragma once

#include "programs/drafta/options.h"

namespace drafta {

/// From loading the modules until the person leaves; the program's exit code, as of the two below.
int runWindow(const Options& options);

/// Opens the window where nobody sees it, draws it into the file, and leaves.
int runScreenshot(const Options& options);

/// Says that there is no display, and prints what the palettes show.
int runWithoutDisplay(const Options& options);

} // namespace drafta
