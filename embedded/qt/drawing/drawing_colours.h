// The colours of drawings, fit to be seen on the canvas of a theme.
#pragma once

#include "embedded/qt/look/theme.h"

#include <array>
#include <cstdint>

namespace drafta {

class DrawingColours {
public:
    /// Each numbered colour is of at least 3 : 1 against the theme's canvas: one that is not is made darker
    /// or lighter. High contrast has one colour for all.
    explicit DrawingColours(const Theme& theme);

    /// The colour of a number (1 to 255) of the format; 7 and what is no number is that of the theme.
    QColor colour(std::uint16_t number) const {
        return QColor::fromRgb(number < colours_.size() ? colours_[number] : colours_[0]);
    }
    QColor canvas() const { return canvas_; }

private:
    static constexpr std::size_t count = 256;
    std::array<QRgb, count> colours_{};
    QColor canvas_;
};

/// The contrast of two colours as accessibility guidelines reckon it, 1 to 21.
double contrastOf(QColor a, QColor b);

} // namespace drafta
