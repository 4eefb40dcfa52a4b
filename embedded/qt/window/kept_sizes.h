// The sizes of dialogs from run to run.
#pragma once

#include "embedded/qt/dialogs/window_sizes.h"
#include "platform/os/registry.h"

namespace drafta {

/// Kept in the user's hive, under the key where the window keeps its own place. The registry outlives them.
WindowSizes sizesKeptIn(ryv::Registry& registry);

} // namespace drafta
