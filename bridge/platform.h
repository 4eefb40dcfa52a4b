// The one way from the module's code to its surroundings.
#pragma once

#include "platform/platform.h"

namespace ryv {

/// The ports that are installed now; null objects before start-up and after shut-down. Main thread only.
Platform& platform() noexcept;

/// Installs `ports` (not owned; null goes back to the null objects). Called once at start-up and once at
/// shut-down.
void setPlatform(Platform* ports) noexcept;

} // namespace ryv
