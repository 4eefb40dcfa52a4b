#include "manager/reread_window.h"

#include "bridge/platform.h"
#include "manager/nav_state.h"
#include "manager/project_manager.h"

namespace ryv {

RereadWindow::RereadWindow(NavState& state)
    : state_(state), window_(platform().os.messages->createWindow(*this)) {
    state_.setPaletteWindow(window_);
}

RereadWindow::~RereadWindow() {
    state_.setPaletteWindow(WindowHandle::none);
    platform().os.messages->destroyWindow(window_);
}

std::intptr_t RereadWindow::onMessage(std::uint32_t number, std::uintptr_t first, std::intptr_t) {
    RyvPrmProjectManager* const manager = state_.projectManager();
    if (number == rereadMessage && manager)
        manager->onReReadMessage(first);
    return 0;
}

void RereadWindow::onTimer(std::uint32_t id) {
    if (RyvPrmProjectManager* const manager = state_.projectManager())
        manager->onReReadTimer(window_, id);
    else
        platform().os.messages->killTimer(window_, id);
}

} // namespace ryv
