// The host's main window, the screen that it stands on, and its looks.
#pragma once

#include "platform/os/message_loop.h"

namespace ryv {

/// A place on the screen, in pixels from its top left corner.
struct ScreenRectangle {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    bool operator==(const ScreenRectangle&) const = default;
};

/// How much larger than at 96 dots an inch things are drawn; 1.5 stands for 150 %.
struct DpiFactors {
    double horizontal = 1;
    double vertical = 1;
};

enum class HostTheme { light, dark };

/// Hears of the host's looks, on the main thread.
class ThemeObserver {
public:
    /// The host's theme is another one now.
    virtual void themeChanged() = 0;

protected:
    ~ThemeObserver() = default;
};

class HostMainWindow {
public:
    virtual ~HostMainWindow() = default;

    /// None when the host runs without a window.
    virtual WindowHandle window() = 0;

    /// Empty when there is no main window.
    virtual ScreenRectangle rectangle() = 0;

    /// The client area of the active document's window, on the screen. False, `area` left alone, when no
    /// document has a window.
    virtual bool documentArea(ScreenRectangle& area) = 0;

    /// Gives the keyboard back to the main window.
    virtual void focus() = 0;

    /// True while the host works for another program and shows nothing.
    virtual bool isInBackground() = 0;

    /// Of the monitor that the main window is on.
    virtual DpiFactors dpiFactors() = 0;

    /// The height of that monitor in pixels; 0 when there is none.
    virtual int screenHeight() = 0;

    virtual HostTheme theme() = 0;

    /// Observers are not owned, hear the newest first, and take themselves off before they end.
    virtual void add(ThemeObserver& observer) = 0;
    virtual void remove(ThemeObserver& observer) = 0;
};

/// A host without a window, working in the background.
class NullHostMainWindow : public HostMainWindow {
public:
    WindowHandle window() override { return WindowHandle::none; }
    ScreenRectangle rectangle() override { return {}; }
    bool documentArea(ScreenRectangle&) override { return false; }
    void focus() override {}
    bool isInBackground() override { return true; }
    DpiFactors dpiFactors() override { return {}; }
    int screenHeight() override { return 0; }
    HostTheme theme() override { return HostTheme::light; }
    void add(ThemeObserver&) override {}
    void remove(ThemeObserver&) override {}
};

} // namespace ryv
