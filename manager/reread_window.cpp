#include "manager/reread_window.h"

#include "bridge/platform.h"
#include "manager/nav_state.h"
#include "manager/project_manager.h"

namespace ryv {

void handleRereadMessage(const NavState& state, std::uint32_t number, std::uintptr_t first) {
    RyvPrmProjectManager* const manager = state.projectManager();
    if (number == rereadMessage && manager)
        manager->onReReadMessage(first);
}

void handleRereadTimer(const NavState& state, WindowHandle window, std::uint32_t id) {
    if (RyvPrmProjectManager* const manager = state.projectManager())
        manager->onReReadTimer(window, id);
    else
        platform().os.messages->killTimer(window, id);
}

RereadWindow::RereadWindow(NavState& state)
    : state_(state), window_(platform().os.messages->createWindow(*this)) {
    state_.setPaletteWindow(window_);
}

RereadWindow::~RereadWindow() {
    state_.setPaletteWindow(WindowHandle::none);
    platform().os.messages->destroyWindow(window_);
}

std::intptr_t RereadWindow::onMessage(std::uint32_t number, std::uintptr_t first, std::intptr_t) {
    handleRereadMessage(state_, number, first);
    return 0;
}

void RereadWindow::onTimer(std::uint32_t id) {
    handleRereadTimer(state_, window_, id);
}

} // namespace ryv
