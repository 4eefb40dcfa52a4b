// The host's main window: one that a view draws, or one that nobody sees, on a screen that is only described.
#pragma once

#include "embedded/palettes/screen.h"
#include "platform/host/main_window.h"

#include <functional>
#include <vector>

namespace drafta {

/// What draws a main window.
class MainWindowView {
public:
    virtual ~MainWindowView() = default;

    /// All in pixels of the screen.
    virtual ryv::ScreenRectangle rectangle() = 0;
    virtual ryv::ScreenRectangle documentArea() = 0;
    virtual int screenHeight() = 0;
    virtual ryv::DpiFactors dpiFactors() = 0;

    /// Takes the keyboard.
    virtual void focus() = 0;
};

/// Without a view the window fills the screen. Its theme is light until another one is set.
class MainWindow final : public ryv::HostMainWindow, private ryv::MessageReceiver {
public:
    /// The loop outlives the window. `hasDocument` says whether a document is open. In the background the
    /// window is there all the same, for those that want a parent.
    MainWindow(
        ryv::MessageLoop& loop, const Screen& screen, bool isInBackground, std::function<bool()> hasDocument);
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;
    ~MainWindow() override;

    /// Lets a view draw the window, which outlives that or takes itself off; null for nobody.
    void setView(MainWindowView* view) noexcept { view_ = view; }

    /// Gives the host another look, and tells the observers when it is another one.
    void setTheme(ryv::HostTheme theme);

    /// How often the window was given the keyboard.
    int focusCount() const noexcept { return focusCount_; }

    ryv::WindowHandle window() override { return window_; }
    ryv::ScreenRectangle rectangle() override;
    /// Without a view, what the bars above and the command line below would leave of the window.
    bool documentArea(ryv::ScreenRectangle& area) override;
    void focus() override;
    bool isInBackground() override { return isInBackground_; }
    ryv::DpiFactors dpiFactors() override;
    int screenHeight() override;
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
    MainWindowView* view_ = nullptr;
    std::function<bool()> hasDocument_;
    ryv::WindowHandle window_;
    ryv::HostTheme theme_ = ryv::HostTheme::light;
    int focusCount_ = 0;
    std::vector<ryv::ThemeObserver*> observers_;
};

} // namespace drafta
