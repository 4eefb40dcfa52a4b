#include "embedded/palettes/headless_main_window.h"

#include <algorithm>
#include <cmath>

namespace drafta {

namespace {

// Pixels at 96 dots an inch.
constexpr int barsHeight = 60;
constexpr int commandLineHeight = 80;

} // namespace

HeadlessMainWindow::HeadlessMainWindow(
    ryv::MessageLoop& loop, const Screen& screen, bool isInBackground, std::function<bool()> hasDocument)
    : loop_(loop), screen_(screen), isInBackground_(isInBackground), hasDocument_(std::move(hasDocument)),
      window_(loop.createWindow(*this)) {}

HeadlessMainWindow::~HeadlessMainWindow() {
    loop_.destroyWindow(window_);
}

void HeadlessMainWindow::setTheme(ryv::HostTheme theme) {
    if (theme_ == theme)
        return;
    theme_ = theme;
    const std::vector<ryv::ThemeObserver*> told = observers_;
    for (auto observer = told.rbegin(); observer != told.rend(); ++observer)
        if (std::find(observers_.begin(), observers_.end(), *observer) != observers_.end())
            (*observer)->themeChanged();
}

bool HeadlessMainWindow::documentArea(ryv::ScreenRectangle& area) {
    if (!hasDocument_())
        return false;
    const int top = static_cast<int>(std::lround(barsHeight * factor()));
    const int bottom = static_cast<int>(std::lround(commandLineHeight * factor()));
    area = {0, top, screen_.width, std::max(0, screen_.height - top - bottom)};
    return true;
}

void HeadlessMainWindow::add(ryv::ThemeObserver& observer) {
    if (std::find(observers_.begin(), observers_.end(), &observer) == observers_.end())
        observers_.push_back(&observer);
}

} // namespace drafta
