#include "host/first_place.h"

#include <algorithm>
#include <cmath>

namespace ryv {

namespace {

constexpr double leastHeight = 250; // at 96 dots an inch
constexpr double leastWidth = 210;
constexpr int frame = 27;         // pixels of the set's own frame and title, on any screen
constexpr int smallScreen = 1024; // below that the set is wider for its height
constexpr int belowTitle = 50;    // of the main window

int scaled(double length, double factor) {
    return static_cast<int>(std::lround(length * factor));
}

} // namespace

ScreenRectangle firstPlace(HostMainWindow& mainWindow) {
    const DpiFactors dpi = mainWindow.dpiFactors();
    const int screen = mainWindow.screenHeight();
    ScreenRectangle place;
    place.height = std::max(screen / 2, scaled(leastHeight, dpi.vertical));
    const int width = screen < smallScreen ? place.height * 3 / 5 : place.height / 2;
    place.width = std::max(width, scaled(leastWidth, dpi.horizontal) + frame);
    ScreenRectangle document;
    const bool overDocument = mainWindow.documentArea(document);
    const ScreenRectangle corner = overDocument ? document : mainWindow.rectangle();
    place.left = corner.left;
    place.top = corner.top + (overDocument ? 0 : belowTitle);
    return place;
}

} // namespace ryv
