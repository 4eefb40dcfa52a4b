// The command "lock-status".
#pragma once

#include "programs/kqp/terminal/console.h"

#include <string>

namespace kqp {

/// Prints who has the file locked as one JSON object. Exit code 0 when this user could work on the file, 1
/// when not. A lock file whose maker has ended is removed on the way.
int lockStatus(const std::string& file, Console& console);

} // namespace kqp
