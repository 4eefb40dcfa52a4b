// The border between the host and a plug-in module: messages with numbers, to one entry point.
#pragma once

#include "platform/platform.h"

namespace ryv {

/// What the host tells a module. The numbers are the host's; those without a name here go to the module's
/// base and are answered with success.
enum class ModuleMessage : int {
    initialiseApplication = 0, ///< first of all, once
    unloadApplication = 1,     ///< last of all, once
    loadDrawing = 2,           ///< a document was opened or created; it is current
    last = 15                  ///< higher numbers mean nothing
};

enum class ModuleResult : int {
    nothing = 0, ///< the number is none of the messages
    success = 1,
    failure = 2
};

/// What comes with every message. It begins with its own size in bytes and the version of these interfaces; a
/// module refuses one that differs from its own in either.
struct ModuleContext {
    std::uint32_t size = sizeof(ModuleContext);
    std::uint32_t version = current;
    Platform* platform = nullptr; ///< valid from the first message to the end of the last one

    static constexpr std::uint32_t current = 2;
};

/// The type of the entry point, and the name that the host looks it up by.
using ModuleEntry = int (*)(int message, ModuleContext* context);
inline constexpr const char* moduleEntryName = "ryvModuleEntry";

} // namespace ryv
