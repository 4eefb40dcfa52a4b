// The module's entry point, which the host looks up by its name.
#pragma once

#include "base/export.h"
#include "platform/host/module.h"

/// Takes a message of the host with its number (0 to 15). The result is a ryv::ModuleResult: `nothing` for
/// other numbers. A context of another interface version, or of another size, is refused: the reason goes to
/// standard error, since nothing of such a host can be trusted, and the result is `failure`. Nothing throws.
/// Main thread only.
extern "C" RYV_EXPORT int ryvModuleEntry(int message, ryv::ModuleContext* context) noexcept;
