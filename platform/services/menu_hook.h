// The package's hook into the host's menus.
#pragma once

namespace ryv {

class MenuHook {
public:
    virtual ~MenuHook() = default;

    /// Ends the hook object, if there is one.
    virtual void remove() = 0;
};

/// There is no hook.
class NullMenuHook final : public MenuHook {
public:
    void remove() override {}
};

} // namespace ryv
