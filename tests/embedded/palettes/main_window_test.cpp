#include "embedded/palettes/main_window.h"

#include "tests/support/scripted_loop.h"

#include <gtest/gtest.h>

namespace drafta {
namespace {

TEST(Screen, sizes_areReadOrRefusedWhole) {
    const auto text = [](std::string_view words) {
        const std::optional<Screen> screen = Screen::parse(words);
        return screen ? std::to_string(screen->width) + " " + std::to_string(screen->height) + " " +
                            std::to_string(screen->percent)
                      : "none";
    };
    for (const auto& [words, wanted] :
        {std::pair("1280x900", "1280 900 100"), {"3840x2160@150", "3840 2160 150"}})
        EXPECT_EQ(text(words), wanted);
    for (const char* const words : {"", "x", "1280", "1280x", "1280x900@", "1280x900@100%", "1280x900@20",
             "-1280x900", "1280X900", "99x900", "40000x900", "1280x900 "})
        EXPECT_EQ(text(words), "none") << words;
}

struct Observer final : ryv::ThemeObserver {
    std::function<void()> changed;
    void themeChanged() override { changed(); }
};

TEST(MainWindow, theme_isToldNewestFirstToThoseThatAreStillThere) {
    ryv::test::ScriptedClock clock;
    ryv::test::ScriptedMessageLoop loop(clock);
    MainWindow window(loop, {}, false, [] { return false; });
    std::string told;
    Observer oldest, middle, newest;
    oldest.changed = [&] { told += "o"; };
    middle.changed = [&] { told += "m"; };
    newest.changed = [&] {
        told += "n";
        window.remove(middle);
    };
    for (Observer* const each : {&oldest, &middle, &newest, &oldest})
        window.add(*each);
    window.setTheme(ryv::HostTheme::light);
    EXPECT_EQ(told, "") << "as it was";
    window.setTheme(ryv::HostTheme::dark);
    EXPECT_EQ(told, "no");
    window.remove(oldest);
    window.remove(newest);
}

TEST(MainWindow, documentArea_isOnTheScreenWhileADocumentIsOpen) {
    ryv::test::ScriptedClock clock;
    ryv::test::ScriptedMessageLoop loop(clock);
    bool hasDocument = false;
    MainWindow window(loop, {1000, 100, 200}, true, [&] { return hasDocument; });
    ryv::ScreenRectangle area{1, 2, 3, 4};
    EXPECT_FALSE(window.documentArea(area));
    EXPECT_EQ(area, (ryv::ScreenRectangle{1, 2, 3, 4}));
    hasDocument = true;
    EXPECT_TRUE(window.documentArea(area));
    EXPECT_EQ(area, (ryv::ScreenRectangle{0, 120, 1000, 0})) << "bars grow with the screen's factor";
    EXPECT_NE(window.window(), ryv::WindowHandle::none);
}

} // namespace
} // namespace drafta
