// The commands that the host knows, in groups.
#pragma once

#include "platform/host/commands.h"

#include <memory>
#include <vector>

namespace drafta {

class CommandStack {
public:
    /// See ryv::HostCommands::addCommand.
    bool add(ryv::HostCommand command);
    bool removeGroup(ryv::CStringView group);

    /// Removes one command by its names, which count as for add(); false when there is none.
    bool remove(ryv::CStringView group, ryv::CStringView globalName);

    /// The command that a typed name means, null when there is none. In front of the name "'" asks for a
    /// transparent start, "_" for the name that is the same in all languages, "." for the host's own command
    /// where another one has taken its name; they may stand in any order and count here only in so far as "_"
    /// leaves the local names out. The newest command of a name is found, and stays alive while the result is
    /// held even when its group is removed.
    std::shared_ptr<const ryv::HostCommand> find(ryv::CStringView typed) const;

    /// All commands, the oldest first.
    const std::vector<std::shared_ptr<const ryv::HostCommand>>& commands() const noexcept {
        return commands_;
    }

private:
    std::vector<std::shared_ptr<const ryv::HostCommand>> commands_;
};

/// A typed command name without the marks in front.
ryv::CStringView withoutMarks(ryv::CStringView typed) noexcept;

} // namespace drafta
