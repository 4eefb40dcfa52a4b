// The module's commands.
#pragma once

#include "host/module_application.h"

namespace ryv {

/// The twelve commands of the group "RYVPageMan", in the order of registering.
std::span<const CommandTableEntry> commandTable() noexcept;

/// "RYNAVCOPYTO", which has a group of its own, since it belongs to the tree and not to the table.
void addCopyToCommand();
void removeCopyToCommand();

} // namespace ryv
