// The command "watch".
#pragma once

#include "programs/kqp/terminal/console.h"
#include "programs/kqp/watch/event_lines.h"

#include <string>

namespace kqp {

/// Opens the project and prints its events, each at once, until SIGINT or SIGTERM comes, which is exit code
/// 0, or the output fails.
int watch(const std::string& file, EventForm form, Console& console);

} // namespace kqp
