// The main window of a host that draws nothing: it has a place on a screen that is only described.
#pragma once

#include "embedded/palettes/screen.h"
#include "platform/host/main_window.h"

#include <functional>
#include <vector>

namespace drafta {

/// The window fills the screen. Its theme is light until another one is set.
class HeadlessMainWindow final : public ryv::HostMainWindow, private ryv::MessageReceiver {
public:
    /// The loop outlives the window. `hasDocument` says whether a document is open. In the background the
    /// window is there all the same, for those that want a parent.
    HeadlessMainWindow(
        ryv::MessageLoop& loop, const Screen& screen, bool isInBackground, std::function<bool()> hasDocument);
    HeadlessMainWindow(const HeadlessMainWindow&) = delete;
    HeadlessMainWindow& operator=(const HeadlessMainWindow&) = delete;
    ~HeadlessMainWindow() override;

    /// Gives the host another look, and tells the observers when it is another one.
    void setTheme(ryv::HostTheme theme);

    /// How often the window was given the keyboard.
    int focusCount() const noexcept { return focusCount_; }

    ryv::WindowHandle window() override { return window_; }
    ryv::ScreenRectangle rectangle() override { return {0, 0, screen_.width, screen_.height}; }
    /// What the bars above and the command line below leave of the window.
    bool documentArea(ryv::ScreenRectangle& area) override;
    void focus() override { ++focusCount_; }
    bool isInBackground() override { return isInBackground_; }
    ryv::DpiFactors dpiFactors() override { return {factor(), factor()}; }
    int screenHeight() override { return screen_.height; }
    ryv::HostTheme theme() override { return theme_; }
    void add(ryv::ThemeObserver& observer) override;
    void remove(ryv::ThemeObserver& observer) override { std::erase(observers_, &observer); }

private:
    std::intptr_t onMessage(std::uint32_t, std::uintptr_t, std::intptr_t) override { return 0; }
    void onTimer(std::uint32_t) override {}
    double factor() const noexcept { return screen_.percent / 100.0; }

    ryv::MessageLoop& loop_;
    Screen screen_;
    bool isInBackground_;
    std::function<bool()> hasDocument_;
    ryv::WindowHandle window_;
    ryv::HostTheme theme_ = ryv::HostTheme::light;
    int focusCount_ = 0;
    std::vector<ryv::ThemeObserver*> observers_;
};

} // namespace drafta
