#include "bridge/platform.h"

namespace ryv {

namespace {
Platform*& slot() noexcept {
    static Platform* installed = nullptr;
    return installed;
}
} // namespace

Platform& platform() noexcept {
    static Platform nothing;
    return slot() ? *slot() : nothing;
}

void setPlatform(Platform* ports) noexcept {
    slot() = ports;
}

} // namespace ryv
