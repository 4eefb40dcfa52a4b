// The program from its words to its exit code.
#pragma once

#include "programs/kqp/terminal/console.h"

#include <string>
#include <vector>

namespace kqp {

/// Does what the words behind the program's name ask for. The ports are installed already. Never throws.
int run(const std::vector<std::string>& words, Console& console) noexcept;

} // namespace kqp
