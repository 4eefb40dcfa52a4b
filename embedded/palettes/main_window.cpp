#include "embedded/palettes/main_window.h"

#include <algorithm>
#include <cmath>

namespace drafta {

namespace {

// Pixels at 96 dots an inch.
constexpr int barsHeight = 60;
constexpr int commandLineHeight = 80;

} // namespace

MainWindow::MainWindow(
    ryv::MessageLoop& loop, const Screen& screen, bool isInBackground, std::function<bool()> hasDocument)
    : loop_(loop), screen_(screen), isInBackground_(isInBackground), hasDocument_(std::move(hasDocument)),
      window_(loop.createWindow(*this)) {}

MainWindow::~MainWindow() {
    loop_.destroyWindow(window_);
}

void MainWindow::setTheme(ryv::HostTheme theme) {
    if (theme_ == theme)
        return;
    theme_ = theme;
    const std::vector<ryv::ThemeObserver*> told = observers_;
    for (auto observer = told.rbegin(); observer != told.rend(); ++observer)
        if (std::find(observers_.begin(), observers_.end(), *observer) != observers_.end())
            (*observer)->themeChanged();
}

ryv::ScreenRectangle MainWindow::rectangle() {
    return view_ ? view_->rectangle() : ryv::ScreenRectangle{0, 0, screen_.width, screen_.height};
}

ryv::DpiFactors MainWindow::dpiFactors() {
    return view_ ? view_->dpiFactors() : ryv::DpiFactors{factor(), factor()};
}

int MainWindow::screenHeight() {
    return view_ ? view_->screenHeight() : screen_.height;
}

void MainWindow::focus() {
    ++focusCount_;
    if (view_)
        view_->focus();
}

bool MainWindow::documentArea(ryv::ScreenRectangle& area) {
    if (!hasDocument_())
        return false;
    if (view_) {
        area = view_->documentArea();
        return true;
    }
    const int top = static_cast<int>(std::lround(barsHeight * factor()));
    const int bottom = static_cast<int>(std::lround(commandLineHeight * factor()));
    area = {0, top, screen_.width, std::max(0, screen_.height - top - bottom)};
    return true;
}

void MainWindow::add(ryv::ThemeObserver& observer) {
    if (std::find(observers_.begin(), observers_.end(), &observer) == observers_.end())
        observers_.push_back(&observer);
}

} // namespace drafta
