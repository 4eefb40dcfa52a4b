// The base of the package's modules: puts the module's ports in place and registers its command table.
#pragma once

#include "host/host_application.h"

#include <cstdint>
#include <span>

namespace ryv {

/// One command of a module's table. A slot without a global name is empty and is skipped.
struct CommandTableEntry {
    static constexpr std::uint32_t noResource = 0xFFFFFFFF;

    CStringView group;
    CStringView globalName;
    CStringView localName;
    std::uint32_t flags = 0;
    void (*handler)() = nullptr;
    std::uint32_t localNameResource = noResource; ///< number of the local name's text, when that is empty
};

class RyvModuleApp : public HostApplication {
protected:
    /// The table is not owned and lives as long as the module.
    explicit RyvModuleApp(std::span<const CommandTableEntry> commands) noexcept : commands_(commands) {}

    ModuleResult onInitialiseApplication(ModuleContext& context) override;
    ModuleResult onUnloadApplication(ModuleContext& context) override;

private:
    std::span<const CommandTableEntry> commands_;
};

} // namespace ryv
