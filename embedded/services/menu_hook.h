// The package's hook into the menus of a host that has none to draw: it is there from the start until it is
// ended.
#pragma once

#include "platform/services/menu_hook.h"

namespace drafta {

class MenuHook final : public ryv::MenuHook {
public:
    bool isThere() const noexcept { return isThere_; }

    void remove() override { isThere_ = false; }

private:
    bool isThere_ = true;
};

} // namespace drafta
