// Palettes that were taken out of the palette set while somebody may still be at work in them.
#pragma once

#include "platform/os/message_loop.h"

#include <memory>
#include <vector>

namespace ryv {

class RyvPrmPalette;

/// Whoever has a palette removed may have been called by a command of its tree, or while that asks the user:
/// so none ends before control is back in the message loop and nothing is under way in its tree. Until then
/// it is on no screen and lets the user begin nothing. What is left ends with this object.
class LeavingPalettes final : private MessageReceiver {
public:
    LeavingPalettes() = default;
    LeavingPalettes(const LeavingPalettes&) = delete;
    LeavingPalettes& operator=(const LeavingPalettes&) = delete;
    ~LeavingPalettes();

    /// A palette whose side in the host has ended.
    void take(std::unique_ptr<RyvPrmPalette> palette);

private:
    std::intptr_t onMessage(std::uint32_t number, std::uintptr_t first, std::intptr_t second) override;
    void onTimer(std::uint32_t id) override;
    void closeWindow();

    std::vector<std::unique_ptr<RyvPrmPalette>> palettes_;
    WindowHandle window_ = WindowHandle::none; // as long as there are any
};

} // namespace ryv
