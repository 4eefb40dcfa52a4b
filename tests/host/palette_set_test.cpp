#include "host/palette_set.h"

#include "host/exported_functions.h"
#include "host/palette.h"
#include "tests/host/nav_fixture.h"

namespace ryv::test {
namespace {

class PaletteSetTest : public NavFixture {
protected:
    PaletteSetTest() { start(); }

    ScriptedPaletteSet& host() { return *surroundings.palettes.set; }
    ScriptedPalette& hostPalette() { return *host().palettes.front(); }
    bool save(WorkspaceNode& node) { return host().client().saveLayout(node); }
    bool load(const WorkspaceNode& node) { return host().client().loadLayout(node); }
    std::size_t rereads() const {
        const CStringArray& lines = surroundings.eventLog.lines;
        return static_cast<std::size_t>(std::count_if(lines.begin(), lines.end(),
            [](const CString& line) { return line.starts_with(u"onProjectReRead"); }));
    }
};

TEST_F(PaletteSetTest, creation_makesWhatTheHostHasToKnow) {
    surroundings.mainWindow.dpi = {1.5, 1.25};
    start();
    ASSERT_EQ(surroundings.palettes.tools.size(), 1u); // the tool of the run before was replaced
    const HostTool& tool = surroundings.palettes.tools[0];
    EXPECT_EQ(tool.name, u"Project Manager");
    EXPECT_EQ(tool.command, u"ryvnav");
    EXPECT_EQ(tool.id, u"{E7BD0FA7-884D-48F7-A62A-B65A2CDD1F80}");
    EXPECT_EQ(host().toolId, tool.id);
    EXPECT_FALSE(host().name.empty());
    EXPECT_EQ(host().description.rectangle, (ScreenRectangle{0, 0, 375, 563}));
    EXPECT_EQ(host().description.windowStyle, 0x410000u);
    EXPECT_EQ(host().description.paletteSetStyle, 46u);
    EXPECT_TRUE(host().description.doubleClicks);
    EXPECT_EQ(host().docking, DockingSides::all);
    ASSERT_EQ(hostPalette().bottomGroup.pages.size(), 2u);
    RyvPrmPalette& palette = *nav->firstPalette();
    EXPECT_EQ(hostPalette().bottomGroup.pages[0].second, &palette.details());
    EXPECT_EQ(hostPalette().bottomGroup.pages[1].second, &palette.preview());
    EXPECT_FALSE(palette.details().type(u"of the user"));
    EXPECT_EQ(hostPalette().header, &palette.projects());
    EXPECT_FALSE(palette.projects().rows().empty());
}

TEST_F(PaletteSetTest, controlsOfAnotherModule_takeThePlaceOfTheUsualOnes) {
    struct OtherTree : CProjectTree {};
    struct OtherBox : RyvPrmComboBox {};
    class Other final : public IRyvPrmControlFactoryImpl {
        void Destroy() override { delete this; }
        CProjectTree* NewProjectTree() override { return new OtherTree; }
        RyvPrmComboBox* NewProjectComboBox() override { return new OtherBox; }
    };
    RyvPrmControlFactory::Instance().RegisterImplementation(new Other);
    start();
    EXPECT_TRUE(dynamic_cast<OtherTree*>(&nav->firstPalette()->tree()));
    EXPECT_TRUE(dynamic_cast<OtherBox*>(&nav->firstPalette()->projects()));
    RyvPrmControlFactory::Instance().RegisterImplementation(nullptr);
}

TEST_F(PaletteSetTest, firstShow_floatsHalfTheScreenHighOverTheDocument) {
    struct Case {
        int screen;
        DpiFactors dpi;
        std::optional<ScreenRectangle> document;
        ScreenRectangle expected;
    };
    const ScreenRectangle area{30, 40, 500, 500};
    const Case cases[] = {
        {900, {1, 1}, area, {30, 40, 270, 450}},
        {1200, {1, 1}, area, {30, 40, 300, 600}},
        {400, {1, 1}, area, {30, 40, 237, 250}},
        {1023, {1, 1}, area, {30, 40, 306, 511}},
        {1024, {1, 1}, area, {30, 40, 256, 512}},
        {400, {1.5, 1.25}, area, {30, 40, 342, 313}},
        {900, {1, 1}, std::nullopt, {100, 250, 270, 450}},
    };
    surroundings.mainWindow.place = {100, 200, 800, 600};
    for (const Case& each : cases) {
        SCOPED_TRACE(each.screen);
        surroundings.mainWindow.height = each.screen;
        surroundings.mainWindow.dpi = each.dpi;
        surroundings.mainWindow.document = each.document;
        start();
        EXPECT_TRUE(nav->showPaletteSet(true));
        EXPECT_TRUE(host().visible && host().floating);
        EXPECT_EQ(host().rectangle, each.expected);
    }
    EXPECT_EQ(surroundings.mainWindow.focused, std::size(cases));
    host().rectangle = area; // the user moves it
    EXPECT_TRUE(nav->showPaletteSet(false) && nav->showPaletteSet(true));
    EXPECT_EQ(host().rectangle, area);
}

TEST_F(PaletteSetTest, oneThatTheWorkspaceShowsAlready_isNotMoved) {
    host().visible = true;
    EXPECT_TRUE(nav->showPaletteSet(true));
    EXPECT_FALSE(host().floating);
    host().floating = host().rollsUp = true;
    EXPECT_TRUE(nav->showPaletteSet(true));
    EXPECT_EQ(host().rolledOut, 1u);
}

TEST_F(PaletteSetTest, showing_saysWhenItCannot) {
    struct Case {
        const char* situation;
        std::function<void()> change;
        bool result, visible;
    };
    const Case cases[] = {
        {"no main window", [this] { surroundings.mainWindow.handle = WindowHandle::none; }, false, false},
        {"no window can be made", [this] { surroundings.palettes.canCreateWindows = false; }, false, false},
        {"background", [this] { surroundings.mainWindow.background = true; }, true, false},
        {"all is well", [] {}, true, true},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.situation);
        stop();
        surroundings.mainWindow.handle = WindowHandle{4711};
        surroundings.mainWindow.background = false;
        surroundings.palettes.canCreateWindows = true;
        each.change();
        start();
        EXPECT_EQ(nav->showPaletteSet(true), each.result);
        EXPECT_EQ(nav->isPaletteSetVisible(), each.visible);
    }
    surroundings.messages.destroyWindow(host().window()); // the host has ended it
    nav->blockCreation(true);
    EXPECT_FALSE(nav->createPaletteSet());
    EXPECT_FALSE(nav->showPaletteSet(true) || nav->isPaletteSetVisible());
}

TEST_F(PaletteSetTest, layout_comesBackInTheNextRun) {
    WorkspaceNode node(u"SET");
    hostPalette().setTopToWholeRatio(0.25);
    hostPalette().bottomGroup.selectPage(1);
    hostPalette().bottomGroup.setMinimized(true);
    hostPalette().topGroup.setStyle(7);
    host().dock = 3;
    EXPECT_TRUE(save(node) && save(node));
    ASSERT_EQ(node.children().size(), 1u);
    EXPECT_EQ(node.children()[0]->children().size(), 1u); // saved into its place, not beside it
    start();
    EXPECT_TRUE(load(node));
    EXPECT_EQ(host().dock, 3);
    EXPECT_EQ(nav->paletteSet()->savedActivePalette(), 0);
    EXPECT_EQ(hostPalette().topToWholeRatio(), 0.25);
    EXPECT_EQ(hostPalette().bottomGroup.selectedPage(), 1);
    EXPECT_TRUE(hostPalette().bottomGroup.isMinimized());
    EXPECT_EQ(hostPalette().topGroup.style(), 7);
}

TEST_F(PaletteSetTest, layoutOfAnother_leavesTheDefaults) {
    struct Case {
        CStringView node, name;
        double ratio;
    };
    const CString ours = hostPalette().name();
    const Case cases[] = {{u"PRM_PALETTE", u"Somebody else's", 0.5}, {u"PRM_PALETTES", ours, 0.5},
        {u"PRM_PALETTE", u"", 0.5}, {u"prm_palette", ours, 0.75}};
    for (const Case& each : cases) {
        start();
        WorkspaceNode node(u"SET");
        WorkspaceNode& set = node.addChild(u"PRM_PALETTESET");
        set.setString(u"ACTIVE_PALETTE_INDEX", u"0"); // of another type
        WorkspaceNode& palette = set.addChild(each.node);
        palette.setString(u"paletteName", each.name);
        palette.setReal(u"topToWholeRatio", 0.75);
        palette.addChild(u"GROUPCTRL_BOTTOM").setInteger(u"btnSelIndex", 99);
        EXPECT_TRUE(load(node));
        EXPECT_EQ(hostPalette().topToWholeRatio(), each.ratio);
        EXPECT_EQ(hostPalette().bottomGroup.selectedPage(), 0);
        EXPECT_EQ(nav->paletteSet()->savedActivePalette(), -1);
    }
    EXPECT_TRUE(load(WorkspaceNode(u"EMPTY")));
}

TEST_F(PaletteSetTest, failureOfTheHostsPart_failsTheWhole) {
    WorkspaceNode saved(u"SET");
    hostPalette().setTopToWholeRatio(0.25);
    ASSERT_TRUE(save(saved));
    EXPECT_FALSE(nav->remembersVisible());
    nav->showPaletteSet(true);
    hostPalette().setTopToWholeRatio(0.75);
    host().layoutWorks = false;
    WorkspaceNode node(u"SET");
    EXPECT_FALSE(save(node));
    EXPECT_TRUE(node.children().empty());
    EXPECT_TRUE(nav->remembersVisible()); // known all the same
    EXPECT_FALSE(load(saved));
    EXPECT_EQ(hostPalette().topToWholeRatio(), 0.75);
}

TEST_F(PaletteSetTest, removedPalette_leavesAnEmptySet) {
    surroundings.mainWindow.setTheme(HostTheme::dark);
    EXPECT_EQ(hostPalette().themesApplied, 1u);
    ScriptedPalette stranger(u"stranger");
    removeLocationPalette(&stranger);
    removeLocationPalette(nullptr);
    ASSERT_TRUE(nav->firstPalette());
    removeLocationPalette(&hostPalette());
    EXPECT_TRUE(host().palettes.empty());
    EXPECT_EQ(nav->firstPalette(), nullptr);
    WorkspaceNode node(u"SET");
    EXPECT_TRUE(nav->showPaletteSet(true) && save(node) && load(node));
    surroundings.mainWindow.setTheme(HostTheme::light);
    EXPECT_EQ(host().themesApplied, 2u);
}

/// Whatever a command of the palette waits for, it finds its tree again; the palette ends soon after.
TEST_F(PaletteSetTest, paletteRemovedByItsOwnCommand_endsBehindIt) {
    using Tab = RyvPrmProjectTab;
    constexpr int rename = 1138, remove = 1139, addDrawings = 212;
    const auto press = [](int button) {
        return [button](RyvPrmPalette& palette) { palette.tab().button(button).press(); };
    };
    const auto run = [](CStringView row, int command) {
        return [row, command](RyvPrmPalette& palette) {
            CProjectTree& tree = palette.tree();
            TreeItem* const item = tree.GetTreeItemBySubfolderTrace(tree.child(nullptr, 0), row);
            tree.setSelection({item ? item : tree.child(nullptr, 0)});
            tree.runCommand(command);
            if (tree.isEnabled())
                tree.finishEdit(u"a:b");
        };
    };
    const auto menu = [](RyvPrmPalette& palette) { palette.tree().contextMenu(nullptr, {}); };
    const auto takeAway = [this] {
        if (nav->firstPalette())
            removeLocationPalette(&hostPalette());
        surroundings.messages.advance(std::chrono::seconds(1)); // what waits has a loop of its own
    };
    ScriptedUserInterface& ui = surroundings.ui;
    struct Case {
        const char* command;
        std::function<void(RyvPrmPalette&)> begin;
        std::function<void()> answer = [] {};
        bool duringLisp = false;
    };
    const Case cases[] = {
        {"display", press(Tab::displayId),
            [&] {
                ui.answerDialog([&](Dialog&) {
                    takeAway();
                    return UserInterface::idOk;
                });
            }},
        {"publish", press(Tab::publishId), [&] { ui.answerMenu(238); }},
        {"open a project", press(Tab::openProjectId), [&] { ui.answerFiles(461, {project(u"b")}); }},
        {"menu", menu, [&] { ui.answerMenu(259); }},
        {"add drawings", run(u"", addDrawings), [&] { ui.answerFiles(460, {u"C:\\P\\n.dwg"}); }},
        {"remove", run(u"S", remove), [&] { ui.answerTask(u"RyvPageMan.RemoveSubfoldersAndDrawings", 6); }},
        {"remove, while LISP locks", run(u"S", remove),
            [&] { ui.answerTask(u"RyvPageMan.RemoveSubfoldersAndDrawings", 6); }, true},
        {"rename to what cannot be", run(u"S", rename)},
        {"rename, while LISP locks", run(u"S", rename), [] {}, true},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.command);
        start();
        files.put(u"C:\\P\\a.kqp", "a.dwg\n=====SUB=S\ns.dwg\n");
        ASSERT_TRUE(nav->projectManager()->openProject(u"C:\\P\\a.kqp", true));
        (each.duringLisp ? surroundings.lockCheck.meanwhile : ui.meanwhile) = takeAway;
        each.answer();
        each.begin(*nav->firstPalette());
        surroundings.lockCheck.meanwhile = ui.meanwhile = [] {};
        EXPECT_EQ(nav->firstPalette(), nullptr);
        EXPECT_EQ(ui.unusedAnswers(), 0u);
        EXPECT_TRUE(surroundings.lockCheck.locked.empty());
        EXPECT_EQ(surroundings.messages.windowCount(), 2u) << "it has ended too soon";
        surroundings.messages.advance(std::chrono::seconds(1));
        EXPECT_EQ(surroundings.messages.windowCount(), 1u) << "it is there still";
    }
}

TEST_F(PaletteSetTest, selectedRow_isDescribedAndPreviewed) {
    const CString other = project(u"b"); // beside the active one
    ASSERT_TRUE(activate(u"a") && nav->projectManager()->openProject(other, false));
    RyvPrmPalette& palette = *nav->firstPalette();
    TreeItem& row = *palette.tree().GetProjectItem(other);
    palette.tree().click(&row);
    EXPECT_NE(palette.details().text().find(u"File name: b.kqp"), CString::npos);
    EXPECT_EQ(palette.preview().drawing(), u"");
    palette.tree().click(row.firstChild());
    EXPECT_NE(palette.details().text().find(u"File name: b.dwg"), CString::npos);
    EXPECT_EQ(palette.preview().drawing(), u"C:\\P\\b.dwg");
    files.put(u"C:\\P\\b.dwg", std::string(3 * 1024, ' '));
    EXPECT_TRUE(surroundings.monitor.notify(u"C:\\P\\b.dwg", FileChange::contentChanged));
    EXPECT_NE(palette.details().text().find(u"3 KB"), CString::npos) << "as others have saved it";
    EXPECT_TRUE(surroundings.monitor.notify(u"C:\\P\\b.dwg.FLL", FileChange::created));
    EXPECT_EQ(palette.preview().version(), 1u) << "it looks as before";
    palette.tree().click(nullptr);
    EXPECT_FALSE(surroundings.monitor.notify(u"C:\\P\\b.dwg", FileChange::contentChanged));
    EXPECT_EQ(palette.preview().version(), 1u);
    EXPECT_EQ(palette.details().text(), u"");
    EXPECT_EQ(palette.preview().drawing(), u"");
}

TEST_F(PaletteSetTest, closedDrawing_isNotMarkedAnyMore) {
    ASSERT_TRUE(activate(u"a"));
    const TreeItem& row = *nav->firstPalette()->tree().GetDrawingItem(u"C:\\P\\a.dwg");
    const DocumentId document = openDocument(u"C:\\P\\a.dwg");
    EXPECT_TRUE(row.bold());
    const DocumentId other = openDocument(u"C:\\other.dwg");
    surroundings.documents.activate(document);
    surroundings.documents.closeDocument(other);
    EXPECT_TRUE(row.bold());
    surroundings.documents.closeDocument(document);
    EXPECT_FALSE(row.bold());
}

TEST_F(PaletteSetTest, changedProject_isReadAgainWithAndWithoutAPalette) {
    for (const bool hasPalettes : {true, false}) {
        stop();
        surroundings.palettes.canCreateWindows = hasPalettes;
        start();
        ASSERT_TRUE(activate(u"a"));
        surroundings.monitor.notify(project(u"a"), FileChange::contentChanged);
        surroundings.palettes.canCreateWindows = true;
        EXPECT_TRUE(nav->createPaletteSet()); // what waits already is not lost
        surroundings.messages.advance(std::chrono::milliseconds(100));
        EXPECT_EQ(std::exchange(surroundings.eventLog.lines, {}).back(), u"onProjectReRead C:\\P\\a.kqp");
        EXPECT_EQ(nav->paletteWindow(), host().window());
        EXPECT_EQ(surroundings.messages.timerCount(), 0u);
    }
}

TEST_F(PaletteSetTest, hundredRereads_neverMeetTheRetryTimer) {
    scriptLisp(false);
    ASSERT_TRUE(activate(u"a"));
    surroundings.documents.openDocument(u"C:\\d.dwg");
    nav->startRetryTimer();
    for (int i = 0; i < 110; ++i) {
        surroundings.monitor.notify(project(u"a"), FileChange::contentChanged);
        surroundings.messages.advance(std::chrono::milliseconds(100));
    }
    EXPECT_EQ(rereads(), 110u);
    EXPECT_EQ(timesTold(), 11u);
}

TEST_F(PaletteSetTest, retryTimer_asksLispEverySecondUntilItHears) {
    using std::chrono::milliseconds;
    scriptLisp(false);
    ASSERT_TRUE(activate(u"a"));
    const DocumentId document = openDocument(u"C:\\d.dwg");
    becomeIdle(document);
    EXPECT_EQ(timesTold(), 1u);
    EXPECT_FALSE(nav->makeActivePending);
    surroundings.messages.advance(milliseconds(500));
    nav->startRetryTimer(); // runs already: nothing is put off
    surroundings.messages.advance(milliseconds(499));
    EXPECT_EQ(timesTold(), 1u);
    surroundings.messages.advance(milliseconds(1));
    EXPECT_EQ(timesTold(), 2u);
    scriptLisp(true);
    surroundings.messages.advance(milliseconds(5000));
    EXPECT_EQ(timesTold(), 3u);
    EXPECT_EQ(surroundings.lisp.calls().back()[1], u"C:\\P\\a.kqp");
    nav->startRetryTimer();
    stop();
    EXPECT_EQ(surroundings.messages.timerCount() + surroundings.messages.windowCount(), 0u);
    EXPECT_EQ(surroundings.mainWindow.observerCount(), 0u);
}

TEST_F(PaletteSetTest, withoutAWindow_theNextIdleStateIsTheRetry) {
    stop();
    surroundings.palettes.canCreateWindows = false;
    start();
    scriptLisp(false);
    ASSERT_TRUE(activate(u"a"));
    const DocumentId document = openDocument(u"C:\\d.dwg");
    becomeIdle(document);
    becomeIdle(document);
    EXPECT_EQ(timesTold(), 2u);
    scriptLisp(true);
    becomeIdle(document);
    becomeIdle(document);
    EXPECT_EQ(timesTold(), 3u);
}

} // namespace
} // namespace ryv::test
