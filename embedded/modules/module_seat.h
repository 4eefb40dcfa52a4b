// What one module gets from the host: all of the host's ports, and those on which it can leave something
// behind as ports of its own.
#pragma once

#include "embedded/modules/module_commands.h"
#include "embedded/modules/module_documents.h"
#include "embedded/modules/module_lisp.h"
#include "embedded/modules/module_loop.h"
#include "embedded/modules/module_observers.h"
#include "platform/host/module.h"

namespace drafta {

/// Remembers the module's LISP functions, commands, observers and reactors, windows with their timers,
/// watched files, and the functions that it has queued. Palette sets are not among them: they belong to the
/// module, which ends them itself.
class ModuleSeat {
public:
    /// The ports of `platform` and the host outlive the seat.
    ModuleSeat(const ryv::Platform& platform, SeatHost& host);
    ModuleSeat(const ModuleSeat&) = delete;
    ModuleSeat& operator=(const ModuleSeat&) = delete;
    ~ModuleSeat() { drop(); }

    /// Takes back what the module has registered and not taken back itself. Functions that it has queued end
    /// here and are not run. The ports go on working, so what the module adds later is for the next call, or
    /// the seat's end. Not while anything of the module is at work.
    void drop();

    ryv::ModuleContext& context() noexcept { return context_; }

private:
    ryv::Platform platform_;
    ModuleLisp lisp_;
    ModuleCommands commands_;
    ModuleDocuments documents_;
    ModuleEditor editor_;
    ModuleMainWindow mainWindow_;
    ModuleMessages messages_;
    ModuleMonitor monitor_;
    ModuleClientManager clientManager_;
    ModuleProjectDatabase projectDatabase_;
    ryv::ModuleContext context_;
};

} // namespace drafta
