#include "embedded/modules/module_commands.h"

#include "base/fold.h"

namespace drafta {

bool ModuleCommands::addCommand(ryv::HostCommand command) {
    const Name name(command.group, command.globalName);
    const bool added = commands_.addCommand(std::move(command));
    if (added)
        added_.add(name);
    return added;
}

bool ModuleCommands::removeGroup(ryv::CStringView group) {
    bool removed = false;
    added_.drop([&](const Name& name) {
        if (ryv::equalNoCase(name.first, group)) {
            host_.dropCommand(name.first, name.second);
            removed = true;
        } else {
            added_.add(name);
        }
    });
    return removed;
}

void ModuleCommands::drop() {
    added_.drop([&](const Name& name) { host_.dropCommand(name.first, name.second); });
}

} // namespace drafta
