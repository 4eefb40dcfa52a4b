#include "host/nav_manager.h"

#include "host/application.h"
#include "host/commands.h"
#include "host/palette_set.h"
#include "tests/host/nav_fixture.h"
#include "tests/support/fault_files.h"

namespace ryv::test {
namespace {

class NavManagerTest : public NavFixture {
protected:
    ScriptedPaletteSet& host() { return *surroundings.palettes.set; }
    std::uint32_t storedVisibility() {
        std::uint32_t value = 99;
        static_cast<void>(surroundings.registry.readInteger(settingsKey, u"Visibility", value));
        return value;
    }
};

TEST_F(NavManagerTest, loadingProjects_showsThePaletteSetThatWasVisible) {
    using Value = ScriptedRegistry::Value;
    const std::pair<std::optional<Value>, bool> cases[] = {{std::nullopt, true}, {Value(1u), true},
        {Value(0u), false}, {Value(2u), false}, {Value(CString(u"0")), true}};
    recordProject(project(u"a"), last_project::active);
    for (const auto& [stored, shown] : cases) {
        if (stored)
            surroundings.registry.put(settingsKey, u"Visibility", *stored);
        start();
        surroundings.documents.openDocument(u"C:\\d.dwg");
        EXPECT_TRUE(nav->projectManager()->InitialOpenComplete());
        EXPECT_EQ(nav->isPaletteSetVisible(), shown);
        stop();
        EXPECT_EQ(storedVisibility(), shown ? 1u : 0u);
    }
}

TEST_F(NavManagerTest, newDrawingThatIsNotMade_leavesNoSubfolderForTheNext) {
    start();
    ASSERT_TRUE(activate(u"a"));
    nav->projectManager()->SetNewDwgSubfolderTrace(u"S");
    commands::newDrawing();
    files.put(u"C:\\P\\n.dwg", "drawing");
    nav->projectManager()->addFileToProject(std::make_unique<RyvPrmFileDetails>(u"C:\\P\\n.dwg"));
    EXPECT_FALSE(nav->projectManager()->getActiveProject()->getProjectData().findSubfolder(u"S"));
}

TEST_F(NavManagerTest, paletteSetThatWasHidden_staysHiddenInTheNextRun) {
    for (const bool shown : {false, true}) {
        start();
        nav->showPaletteSet(shown);
        WorkspaceNode node(u"SET");
        EXPECT_TRUE(host().client().saveLayout(node));
        nav->showPaletteSet(!shown); // after the host has saved its workspace, on its way out
        start();
        surroundings.documents.openDocument(u"C:\\d.dwg");
        EXPECT_EQ(nav->isPaletteSetVisible(), shown);
    }
}

TEST_F(NavManagerTest, loadingThatIsTriedAgain_doesNotShowWhatTheUserHid) {
    scriptLisp(true);
    start();
    const DocumentId document = openDocument(u"C:\\d.dwg"); // there is no list in either form
    EXPECT_TRUE(nav->isPaletteSetVisible());
    nav->showPaletteSet(false);
    becomeIdle(document);
    EXPECT_FALSE(nav->projectManager()->InitialOpenComplete());
    EXPECT_FALSE(nav->isPaletteSetVisible());
}

/// Paths of a computer that has this temporary folder, or none when it is empty.
class TemporaryFolder final : public SystemPaths {
public:
    explicit TemporaryFolder(CStringView folder) : folder_(folder) {}
    CString currentFolder() override { return paths_.currentFolder(); }
    CString fullPath(CStringView path) override { return paths_.fullPath(path); }
    CString temporaryFolder() override { return folder_; }
    CString fromNative(std::string_view native) override { return paths_.fromNative(native); }
    std::string toNative(CStringView path) override { return paths_.toNative(path); }

private:
    NullSystemPaths paths_;
    CString folder_;
};

TEST(ApplicationTest, shutDown_deletesNothingWithoutATemporaryFolder) {
    for (const CStringView folder : {u"\\T", u""}) {
        MemoryFiles memory;
        FaultFiles files(memory);
        ScriptedPlatform surroundings(&files);
        TemporaryFolder paths(folder);
        surroundings.ports.os.paths = &paths;
        ModuleContext context;
        context.platform = &surroundings.ports;
        CRyvPageManApp application;
        ASSERT_EQ(application.dispatch(0, context), ModuleResult::success);
        EXPECT_EQ(navState()->temporaryDrawing.empty(), folder.empty());
        application.dispatch(1, context);
        EXPECT_EQ(std::ranges::count(files.calls(), FileCall::remove), folder.empty() ? 0 : 1);
    }
}

} // namespace
} // namespace ryv::test
