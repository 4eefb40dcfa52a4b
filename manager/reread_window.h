// A window without a face that the re-reads of changed projects run from, where there is no palette.
#pragma once

#include "platform/os/message_loop.h"

namespace ryv {

class NavState;

/// What the window that re-reads run from hands on to the project manager of `state`: a message, and a timer
/// of its own, which is stopped when there is no manager.
void handleRereadMessage(const NavState& state, std::uint32_t number, std::uintptr_t first);
void handleRereadTimer(const NavState& state, WindowHandle window, std::uint32_t id);

/// Stands as the palette window of a NavState for as long as it lives. Programs without a palette make one.
class RereadWindow final : private MessageReceiver {
public:
    explicit RereadWindow(NavState& state);
    RereadWindow(const RereadWindow&) = delete;
    RereadWindow& operator=(const RereadWindow&) = delete;
    ~RereadWindow();

private:
    std::intptr_t onMessage(std::uint32_t number, std::uintptr_t first, std::intptr_t second) override;
    void onTimer(std::uint32_t id) override;

    NavState& state_;
    WindowHandle window_;
};

} // namespace ryv
