#include "manager/nav_state.h"

#include "bridge/platform.h"
#include "manager/project_manager.h"
#include "network/network_places.h"

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
    newDrawing.reset(); // its locks are the project manager's
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

NetworkPlaces& NavState::networkPlaces() {
    if (!networkPlaces_)
        networkPlaces_ = std::make_unique<NetworkPlaces>(*platform().os.network, *platform().os.clock);
    return *networkPlaces_;
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
