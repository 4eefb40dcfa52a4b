// What reading a project file drops or repairs.
#pragma once

#include "programs/kqp/terminal/console.h"

#include <string>

namespace kqp {

/// Prints one line for each finding, in the order of the file's lines. `answerIsNo` when there are any.
int check(const std::string& file, Console& console);

} // namespace kqp
