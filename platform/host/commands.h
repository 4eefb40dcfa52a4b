// The host's command stack.
#pragma once

#include "base/strings.h"

#include <cstdint>
#include <functional>

namespace ryv {

/// How a command may be started; values are combined with "|".
namespace CommandFlags {
inline constexpr std::uint32_t modal = 0x0;                   ///< not while another command is active
inline constexpr std::uint32_t transparent = 0x1;             ///< also inside another command
inline constexpr std::uint32_t applicationContext = 0x200000; ///< runs outside of all documents
} // namespace CommandFlags

struct HostCommand {
    CString group;
    CString globalName; ///< by which it is found with "_" in front, in every language of the host
    CString localName;  ///< by which the user knows it
    std::uint32_t flags = CommandFlags::modal;
    std::function<void()> handler;
};

class HostCommands {
public:
    virtual ~HostCommands() = default;

    /// Adds a command; names are compared without regard to case, and the newest of a name is the one that is
    /// found. False for a command without a group, a name or a handler, or whose global name its group has.
    virtual bool addCommand(HostCommand command) = 0;

    /// Removes all commands of a group; false when there is no such group.
    virtual bool removeGroup(CStringView group) = 0;

    /// Runs a command at once and to its end, with the words that it would ask for: ("_.RYV_SCRIPT",
    /// "\\tmp\\a.scr"). False when there is no such command, it may not run now, or the user broke it off.
    virtual bool runCommand(const CStringArray& words) = 0;
};

/// Knows no command and takes none.
class NullHostCommands final : public HostCommands {
public:
    bool addCommand(HostCommand) override { return false; }
    bool removeGroup(CStringView) override { return false; }
    bool runCommand(const CStringArray&) override { return false; }
};

} // namespace ryv
