// Complaints about the words of the command line.
#pragma once

#include "programs/kqp/terminal/console.h"

#include <string_view>

namespace kqp {

/// Says what is wrong in one line and where help is in another; gives the exit code.
int complainOfUsage(Console& console, std::string_view what);

} // namespace kqp
