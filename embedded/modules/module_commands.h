// The host's command stack as one module has it.
#pragma once

#include "embedded/modules/left_behind.h"
#include "embedded/modules/seat_host.h"
#include "platform/host/commands.h"

namespace drafta {

class ModuleCommands final : public ryv::HostCommands {
public:
    ModuleCommands(ryv::HostCommands& commands, SeatHost& host) noexcept : commands_(commands), host_(host) {}

    /// Removes the commands that were added.
    void drop();

    bool addCommand(ryv::HostCommand command) override;
    /// Of a group that others use too only the module's own commands are removed.
    bool removeGroup(ryv::CStringView group) override;
    bool runCommand(const ryv::CStringArray& words) override { return commands_.runCommand(words); }

private:
    using Name = std::pair<ryv::CString, ryv::CString>; // group and global name, as they were added

    ryv::HostCommands& commands_;
    SeatHost& host_;
    LeftBehind<Name> added_;
};

} // namespace drafta
