#include "host/leaving_palettes.h"

#include "bridge/platform.h"
#include "host/palette.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace ryv {

namespace {

constexpr std::uint32_t lookTimer = 1;
constexpr std::chrono::milliseconds lookPeriod{100};

} // namespace

LeavingPalettes::~LeavingPalettes() {
    closeWindow();
}

/// A name that is being typed is given up, which unlocks its files: nobody is left to end that.
void LeavingPalettes::take(std::unique_ptr<RyvPrmPalette> palette) {
    CProjectTree& tree = palettes_.emplace_back(std::move(palette))->tree();
    tree.setEnabled(false);
    tree.finishEdit(std::nullopt);
    MessageLoop& messages = *platform().os.messages;
    if (!messages.isWindow(window_))
        window_ = messages.createWindow(*this);
    messages.setTimer(window_, lookTimer, lookPeriod);
}

std::intptr_t LeavingPalettes::onMessage(std::uint32_t, std::uintptr_t, std::intptr_t) {
    return 0;
}

/// Comes also from the loops of questions, in which the palette has to stay.
void LeavingPalettes::onTimer(std::uint32_t) {
    const auto idle = std::partition(
        palettes_.begin(), palettes_.end(), [](const auto& each) { return each->tree().isAtWork(); });
    const std::vector<std::unique_ptr<RyvPrmPalette>> ending(
        std::make_move_iterator(idle), std::make_move_iterator(palettes_.end()));
    palettes_.erase(idle, palettes_.end());
    if (palettes_.empty())
        closeWindow();
}

void LeavingPalettes::closeWindow() {
    platform().os.messages->destroyWindow(std::exchange(window_, WindowHandle::none));
}

} // namespace ryv
