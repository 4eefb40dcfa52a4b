#include "embedded/palettes/main_window.h"
#include "embedded/palettes/palette_actions.h"
#include "embedded/palettes/palette_framework.h"
#include "embedded/palettes/palette_text.h"
#include "tests/embedded/palettes/palette_client.h"
#include "tests/support/memory_files.h"
#include "tests/support/scripted_loop.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

namespace drafta {
namespace {

using ryv::CStringView;
using ryv::ScreenRectangle;
using test::PaletteClient;

class PaletteSetTest : public ::testing::Test {
protected:
    ryv::test::MemoryFiles files;
    ryv::test::ScriptedClock clock;
    ryv::test::ScriptedMessageLoop loop{clock};
    MainWindow mainWindow{loop, {1000, 800, 100}, false, [] { return true; }};
    std::string told;
    const std::function<void(CStringView)> warn = [this](CStringView line) {
        told += ryv::toAscii(line) + "\n";
    };
    Workspace workspace{files, u"\\p\\workspace.xml", warn};
    PaletteFramework palettes{{loop, mainWindow, workspace, warn}};

    std::string text() const { return ryv::toAscii(shownPalettes(palettes)); }
    bool act(CStringView name, CStringView value = {}) {
        return findPaletteAction(name)->run(*palettes.sets().at(0), value);
    }
};

TEST_F(PaletteSetTest, withoutAWindow_nothingHappens) {
    PaletteClient client(palettes);
    client.set->show(true);
    client.set->restoreFloating({1, 2, 3, 4});
    ryv::WorkspaceNode node(u"n");
    EXPECT_FALSE(client.set->isVisible() || client.set->isFloating() || client.set->save(node));
    for (const PaletteAction& action : paletteActions())
        for (const CStringView value : {u"", u"LEFT", u"ON", u"TOP", u"0.5"})
            EXPECT_FALSE(action.run(*palettes.sets().at(0), value)) << ryv::toAscii(action.name);
    EXPECT_EQ(client.set->activePalette(), -1);
    EXPECT_EQ(text(), "Project Manager: no window\n");
}

TEST_F(PaletteSetTest, window_isTheClientsUntilTheSetEnds) {
    PaletteClient client(palettes);
    ASSERT_TRUE(client.create());
    EXPECT_FALSE(client.set->createWindow({}));
    EXPECT_TRUE(loop.setTimer(client.set->window(), 100, std::chrono::milliseconds(1000)));
    loop.advance(std::chrono::milliseconds(1000));
    EXPECT_EQ(client.lastTimer, 100u);
    client.set->show(true);
    loop.destroyWindow(client.set->window());
    EXPECT_FALSE(client.set->isVisible());
    EXPECT_TRUE(client.set->createWindow({})) << "the one before is gone";
    EXPECT_FALSE(client.set->isVisible());
    client.set.reset();
    EXPECT_EQ(loop.windowCount(), 1u) << "the main window's own";
    EXPECT_EQ(text(), "");
    loop.pump();
}

TEST_F(PaletteSetTest, actions_doWhatTheUserCanDoAndNothingElse) {
    PaletteClient client(palettes);
    ASSERT_TRUE(client.create());
    client.set->show(true);
    struct Case {
        CStringView action, value;
        bool works;
        const char* line; // of the text
    };
    const Case cases[] = {{u"DOCK", u"left", true, "Project Manager: docked left"},
        {u"DOCK", u"RIGHT", false, "docked left"}, {u"DOCK", u"FLOATING", false, "docked left"},
        {u"FLOAT", u"", true, "floating at 10,20, 250 x 450\n"},
        {u"FLOAT", u"5, 6,70,80", true, "at 5,6, 70 x 80\n"}, {u"FLOAT", u"5,6,70", false, "at 5,6"},
        {u"FLOAT", u"5,6,0,80", false, "at 5,6"}, {u"FLOAT", u"5,6,99999,80", false, "at 5,6"},
        {u"PAGE", u"preview", true, "Details [Preview] (bottom, 50 %)"},
        {u"PAGE", u"none", false, "[Preview]"}, {u"RATIO", u"0.3", true, "(bottom, 70 %)"},
        {u"RATIO", u"1.5", false, "(bottom, 70 %)"}, {u"RATIO", u"nan", false, "(bottom, 70 %)"},
        {u"MINIMIZE", u"BOTTOM", true, "(bottom, 70 %, minimized)"},
        {u"RESTORE", u"bottom", true, "no preview"}, {u"MINIMIZE", u"MIDDLE", false, "(bottom, 70 %)"},
        {u"TAB", u"projects", true, "[Projects]"}, {u"TAB", u"other", false, "[Projects]"},
        {u"ROLLUP", u"on", true, "70 x 80, rolled up\n"}, {u"ROLLUP", u"perhaps", false, "rolled up"},
        {u"CLOSE", u"", true, "Project Manager: hidden\n"}, {u"CLOSE", u"", false, "hidden"}};
    for (const Case& each : cases) {
        EXPECT_EQ(act(each.action, each.value), each.works)
            << ryv::toAscii(each.action) << " " << ryv::toAscii(each.value);
        EXPECT_NE(text().find(each.line), std::string::npos) << each.line << " in\n" << text();
    }
    client.set->rollOut();
    client.set->show(true);
    EXPECT_EQ(text(), "Project Manager: floating at 5,6, 70 x 80\n"
                      "  [Projects]\n"
                      "    Pump Station\n"
                      "  Details [Preview] (bottom, 70 %)\n"
                      "    no preview\n");
    EXPECT_TRUE(client.set->rollsUpAutomatically());
    client.set->enableDocking(ryv::DockingSides::left);
    EXPECT_TRUE(act(u"DOCK", u"LEFT"));
    client.set->enableDocking(0);
    EXPECT_TRUE(client.set->isFloating()) << "the side that it was at is gone";
}

TEST_F(PaletteSetTest, removedPalette_leavesTheSelectionWithTheOthers) {
    PaletteClient client(palettes);
    ASSERT_TRUE(client.create());
    ryv::HostPalette& second = client.set->addPalette(u"Second");
    client.set->addPalette(u"Third");
    act(u"TAB", u"third");
    EXPECT_TRUE(client.set->removePalette(second));
    EXPECT_EQ(palettes.sets().at(0)->shownPalette()->name(), u"Third");
    EXPECT_TRUE(client.set->removePalette(*palettes.sets().at(0)->shownPalette()));
    EXPECT_EQ(client.set->activePalette(), 0);
    EXPECT_TRUE(client.set->removePalette(*client.palette));
    EXPECT_EQ(client.set->activePalette(), -1);
    PaletteClient other(palettes);
    ASSERT_TRUE(other.create());
    EXPECT_FALSE(client.set->removePalette(*other.palette));
}

TEST_F(PaletteSetTest, layout_comesBackWithTheNextWindow) {
    {
        PaletteClient client(palettes);
        ASSERT_TRUE(client.create());
        client.set->show(true);
        ASSERT_TRUE(act(u"FLOAT", u"900,-70,70,80") && act(u"ROLLUP", u"ON") && act(u"DOCK", u"TOP") &&
                    act(u"RATIO", u"0.3"));
        EXPECT_TRUE(palettes.saveLayouts());
    }
    for (const bool isPumped : {true, false}) {
        PaletteClient client(palettes);
        ASSERT_TRUE(client.create());
        if (isPumped)
            loop.pump();
        client.set->restoreFloating({1, 2, 300, 400});
        client.set->show(true);
        EXPECT_FALSE(client.set->isFloating())
            << "until somebody has seen the set, what is saved counts more than a place that is proposed";
        EXPECT_EQ(client.palette->topToWholeRatio(), 0.3);
        EXPECT_TRUE(palettes.loadLayouts());
        EXPECT_FALSE(client.set->isFloating());
        EXPECT_TRUE(act(u"FLOAT"));
        EXPECT_EQ(palettes.sets().at(0)->rectangle(), (ScreenRectangle{900, 0, 70, 80}))
            << "where it can be reached";
        EXPECT_TRUE(client.set->rollsUpAutomatically());
        EXPECT_TRUE(
            palettes.sets().at(0)->floatAt({1, 2, 2'000'000'000, 2'000'000'000}) && palettes.saveLayouts());
        EXPECT_TRUE(palettes.loadLayouts());
        EXPECT_EQ(palettes.sets().at(0)->rectangle(), (ScreenRectangle{1, 2, 1000, 800}))
            << "as large as fits";
        EXPECT_TRUE(act(u"FLOAT", u"900,-70,70,80") && act(u"DOCK", u"TOP") && palettes.saveLayouts());
    }
    EXPECT_EQ(told, "");
}

TEST_F(PaletteSetTest, layoutThatMakesNoSense_isToldAndChangesNothing) {
    for (const auto& [name, value] : {std::pair(u"dock", ryv::WorkspaceNode::Value(u"AWAY")), {u"width", 0},
             {u"left", 0.5}, {u"rollsUp", u"1"}}) {
        PaletteClient client(palettes);
        ASSERT_TRUE(client.create());
        ryv::WorkspaceNode node(u"n");
        ASSERT_TRUE(act(u"DOCK", u"LEFT") && client.set->save(node));
        ryv::WorkspaceNode& own = *node.findChild(u"HOST_WINDOW");
        if (const auto* const text = std::get_if<ryv::CString>(&value))
            own.setString(name, *text);
        else if (const auto* const number = std::get_if<std::int32_t>(&value))
            own.setInteger(name, *number);
        else
            own.setReal(name, std::get<double>(value));
        EXPECT_TRUE(act(u"FLOAT", u"1,2,300,400"));
        EXPECT_FALSE(client.set->load(node)) << ryv::toAscii(name);
        EXPECT_TRUE(client.set->isFloating()) << ryv::toAscii(name);
    }
    PaletteClient client(palettes, u"{2}");
    ASSERT_TRUE(client.create());
    client.set->show(true);
    EXPECT_TRUE(palettes.saveLayouts());
    client.works = false;
    EXPECT_FALSE(palettes.saveLayouts());
    EXPECT_FALSE(palettes.loadLayouts());
    EXPECT_EQ(std::count(told.begin(), told.end(), '\n'), 2) << told;
    client.works = true;
    EXPECT_TRUE(palettes.loadLayouts()) << "the last one that could be saved is still there";
}

TEST_F(PaletteSetTest, theme_isTakenOnWhenAskedFor) {
    PaletteClient client(palettes);
    ASSERT_TRUE(client.create());
    mainWindow.setTheme(ryv::HostTheme::dark);
    const PaletteSet& set = *palettes.sets().at(0);
    EXPECT_EQ(set.theme(), ryv::HostTheme::light);
    client.set->applyTheme();
    EXPECT_EQ(set.theme(), ryv::HostTheme::dark);
    EXPECT_EQ(set.shownPalette()->theme(), ryv::HostTheme::light) << "without its palettes";
}

} // namespace
} // namespace drafta
