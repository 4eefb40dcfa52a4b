#include "host/host_application.h"

#include <array>

namespace ryv {

HostApplication::Handler HostApplication::handlerOf(int message) noexcept {
    static constexpr std::array<Handler, 16> handlers = {&HostApplication::onInitialiseApplication,
        &HostApplication::onUnloadApplication, &HostApplication::onLoadDrawing, &HostApplication::onMessage3,
        &HostApplication::onMessage4, &HostApplication::onMessage5, &HostApplication::onMessage6,
        &HostApplication::onMessage7, &HostApplication::onMessage8, &HostApplication::onMessage9,
        &HostApplication::onMessage10, &HostApplication::onMessage11, &HostApplication::onMessage12,
        &HostApplication::onMessage13, &HostApplication::onMessage14, &HostApplication::onMessage15};
    static_assert(handlers.size() == static_cast<std::size_t>(ModuleMessage::last) + 1);
    return isMessage(message) ? handlers[static_cast<std::size_t>(message)] : nullptr;
}

bool HostApplication::isMessage(int number) noexcept {
    return number >= 0 && number <= static_cast<int>(ModuleMessage::last);
}

ModuleResult HostApplication::dispatch(int message, ModuleContext& context) {
    const Handler handler = handlerOf(message);
    return handler ? (this->*handler)(context) : ModuleResult::nothing;
}

ModuleResult HostApplication::onInitialiseApplication(ModuleContext&) {
    return ModuleResult::success;
}
ModuleResult HostApplication::onUnloadApplication(ModuleContext&) {
    return ModuleResult::success;
}
ModuleResult HostApplication::onLoadDrawing(ModuleContext&) {
    return ModuleResult::success;
}
ModuleResult HostApplication::onMessage3(ModuleContext&) {
    return ModuleResult::success;
}
ModuleResult HostApplication::onMessage4(ModuleContext&) {
    return ModuleResult::success;
}
ModuleResult HostApplication::onMessage5(ModuleContext&) {
    return ModuleResult::success;
}
ModuleResult HostApplication::onMessage6(ModuleContext&) {
    return ModuleResult::success;
}
ModuleResult HostApplication::onMessage7(ModuleContext&) {
    return ModuleResult::success;
}
ModuleResult HostApplication::onMessage8(ModuleContext&) {
    return ModuleResult::success;
}
ModuleResult HostApplication::onMessage9(ModuleContext&) {
    return ModuleResult::success;
}
ModuleResult HostApplication::onMessage10(ModuleContext&) {
    return ModuleResult::success;
}
ModuleResult HostApplication::onMessage11(ModuleContext&) {
    return ModuleResult::success;
}
ModuleResult HostApplication::onMessage12(ModuleContext&) {
    return ModuleResult::success;
}
ModuleResult HostApplication::onMessage13(ModuleContext&) {
    return ModuleResult::success;
}
ModuleResult HostApplication::onMessage14(ModuleContext&) {
    return ModuleResult::success;
}
ModuleResult HostApplication::onMessage15(ModuleContext&) {
    return ModuleResult::success;
}

} // namespace ryv
