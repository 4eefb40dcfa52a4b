// Whether there is a screen to open a window on.
#pragma once

namespace drafta {

/// Asks the display that the environment names, since the windowing library ends the program when it does
/// not answer.
bool hasDisplay();

} // namespace drafta
