// The screen that a host without a display pretends to stand on.
#pragma once

#include <optional>
#include <string_view>

namespace drafta {

/// A monitor: its size in pixels, and how much larger than at 96 dots an inch things are drawn.
struct Screen {
    int width = 1920;
    int height = 1080;
    int percent = 100;

    /// Reads "WIDTHxHEIGHT" or "WIDTHxHEIGHT@PERCENT". Nothing when the text is neither, or says a size that
    /// no screen has: 100 to 32767 pixels, 50 to 1000 percent.
    static std::optional<Screen> parse(std::string_view text);
};

} // namespace drafta
