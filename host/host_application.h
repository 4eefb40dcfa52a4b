// The base of a plug-in's application object, as the host has it.
#pragma once

#include "platform/host/module.h"

namespace ryv {

/// One handler for each of the host's messages. What a module does not override keeps the base behaviour,
/// which is to answer success.
class HostApplication {
public:
    HostApplication() = default;
    HostApplication(const HostApplication&) = delete;
    HostApplication& operator=(const HostApplication&) = delete;
    virtual ~HostApplication() = default;

    static bool isMessage(int number) noexcept;

    /// Hands a message to the handler of its number; `nothing` for a number that is no message.
    ModuleResult dispatch(int message, ModuleContext& context);

protected:
    // In the order of the messages' numbers, which dispatch() relies on.
    virtual ModuleResult onInitialiseApplication(ModuleContext& context);
    virtual ModuleResult onUnloadApplication(ModuleContext& context);
    virtual ModuleResult onLoadDrawing(ModuleContext& context);
    // The host has no names for these; no module of the package asks for one.
    virtual ModuleResult onMessage3(ModuleContext& context);
    virtual ModuleResult onMessage4(ModuleContext& context);
    virtual ModuleResult onMessage5(ModuleContext& context);
    virtual ModuleResult onMessage6(ModuleContext& context);
    virtual ModuleResult onMessage7(ModuleContext& context);
    virtual ModuleResult onMessage8(ModuleContext& context);
    virtual ModuleResult onMessage9(ModuleContext& context);
    virtual ModuleResult onMessage10(ModuleContext& context);
    virtual ModuleResult onMessage11(ModuleContext& context);
    virtual ModuleResult onMessage12(ModuleContext& context);
    virtual ModuleResult onMessage13(ModuleContext& context);
    virtual ModuleResult onMessage14(ModuleContext& context);
    virtual ModuleResult onMessage15(ModuleContext& context);

private:
    using Handler = ModuleResult (HostApplication::*)(ModuleContext&);
    static Handler handlerOf(int message) noexcept;
};

} // namespace ryv
