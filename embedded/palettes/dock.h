// Where a palette set is: at a side of the main window, or floating on the screen.
#pragma once

#include "platform/host/palettes.h"

#include <optional>

namespace drafta {

enum class Dock { floating, left, right, top, bottom };

/// "FLOATING", "LEFT", "RIGHT", "TOP", "BOTTOM".
ryv::CStringView nameOf(Dock dock) noexcept;

/// Case does not count; nothing for other words.
std::optional<Dock> dockNamed(ryv::CStringView name) noexcept;

/// The side's bit of ryv::DockingSides; 0 for floating.
std::uint32_t sideOf(Dock dock) noexcept;

} // namespace drafta
