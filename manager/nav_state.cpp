#include "manager/nav_state.h"

#include "manager/project_manager.h"

#include <algorithm>

namespace ryv {

namespace {
NavState*& slot() noexcept {
    static NavState* state = nullptr;
    return state;
}
} // namespace

NavState::NavState() : deferredRequests_(projectReread_) {}

NavState::~NavState() {
    destroyProjectManager();
    if (navState() == this)
        setNavState(nullptr);
}

void NavState::createProjectManager() {
    if (!projectManager_)
        projectManager_ = std::make_unique<RyvPrmProjectManager>();
}

void NavState::destroyProjectManager() {
    projectManager_.reset();
}

void NavState::addBusyListener(BusyListener& listener) {
    busyListeners_.push_back(&listener);
}

void NavState::removeBusyListener(BusyListener& listener) {
    std::erase(busyListeners_, &listener);
}

void NavState::tellBusyListeners(std::int16_t busy) {
    const std::vector<BusyListener*> listeners = busyListeners_;
    for (auto each = listeners.rbegin(); each != listeners.rend(); ++each)
        if (std::find(busyListeners_.begin(), busyListeners_.end(), *each) != busyListeners_.end())
            (*each)->busyChanged(busy);
}

NavState* navState() noexcept {
    return slot();
}

void setNavState(NavState* state) noexcept {
    slot() = state;
}

RyvPrmProjectManager* GetProjectManager() noexcept {
    return navState() ? navState()->projectManager() : nullptr;
}

} // namespace ryv
