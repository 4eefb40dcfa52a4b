// What "--help", "kqp help COMMAND" and "--version" print.
#pragma once

#include "programs/kqp/command_table.h"

#include <string>

namespace kqp {

std::string programHelp();
std::string commandHelp(const Command& command);
std::string versionText();

} // namespace kqp
