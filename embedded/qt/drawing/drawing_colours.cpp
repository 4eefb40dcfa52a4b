#include "embedded/qt/drawing/drawing_colours.h"

#include <cmath>

namespace drafta {

namespace {

constexpr double leastContrast = 3;

double linear(double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(QColor colour) {
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

/// The colour that the format means by a number: nine of their own, a circle of 24 hues in five shades, each
/// full and half saturated, and six greys.
QColor namedColour(int number) {
    constexpr std::array<QRgb, 10> first{
        0xFFFFFF, 0xFF0000, 0xFFFF00, 0x00FF00, 0x00FFFF, 0x0000FF, 0xFF00FF, 0xFFFFFF, 0x808080, 0xC0C0C0};
    constexpr std::array<int, 5> values{255, 189, 129, 104, 79};
    constexpr std::array<int, 6> greys{51, 80, 105, 130, 190, 255};
    constexpr int firstHue = 10, firstGrey = 250, degreesApart = 15;
    if (number < firstHue)
        return QColor::fromRgb(first[static_cast<std::size_t>(number)]);
    if (number >= firstGrey) {
        const int grey = greys[static_cast<std::size_t>(number - firstGrey)];
        return {grey, grey, grey};
    }
    const int shade = number % 10;
    return QColor::fromHsv((number / 10 - 1) * degreesApart, shade % 2 == 0 ? 255 : 85,
        values[static_cast<std::size_t>(shade / 2)]);
}

/// The colour mixed with black or white, as much as it takes to be seen on the canvas.
QColor seenOn(QColor colour, QColor canvas) {
    const int end = canvas.lightness() < 128 ? 255 : 0;
    constexpr int steps = 20;
    QColor seen = colour;
    for (int step = 1; contrastOf(seen, canvas) < leastContrast && step <= steps; ++step) {
        const auto mixed = [&](int channel) { return channel + (end - channel) * step / steps; };
        seen = {mixed(colour.red()), mixed(colour.green()), mixed(colour.blue())};
    }
    return seen;
}

} // namespace

double contrastOf(QColor a, QColor b) {
    const double first = luminance(a), second = luminance(b);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

DrawingColours::DrawingColours(const Theme& theme) : canvas_(theme.canvas) {
    constexpr std::size_t ownColour = 7;
    colours_.fill(theme.drawing.rgb());
    if (theme.look == Look::highContrast)
        return;
    for (std::size_t i = 1; i < count; ++i)
        if (i != ownColour)
            colours_[i] = seenOn(namedColour(static_cast<int>(i)), canvas_).rgb();
}

} // namespace drafta
