#include "ui/tree/project_tab.h"

#include "tests/ui/tree/tree_fixture.h"

namespace ryv::test {
namespace {

using Tab = RyvPrmProjectTab;

/// Notes what the buttons ask of it.
class NotingTree : public CProjectTree {
public:
    explicit NotingTree(std::string& story) : story_(story) {}
    void EmptySelectMenuNewProject() override { story_ += "new project "; }
    void EmptySelectMenuOpenProject() override { story_ += "open project "; }
    void EmptySelectMenuNewDrawing() override { story_ += "new drawing "; }
    void ProjectMenuPubPlotMenuPlot() override { story_ += "plot "; }

private:
    std::string& story_;
};

class ProjectTab : public TreeFixture {
protected:
    ProjectTab() {
        tree.reset(); // the tab has its own
        document = surroundings.documents.openDocument(u"C:\\P\\a.dwg");
        tab = std::make_unique<Tab>(state, std::make_unique<NotingTree>(story));
    }
    void TearDown() override { tab.reset(); }

    /// The names of the buttons that can be pressed.
    std::string usable() {
        std::string names;
        for (const Button* const each : dynamic_cast<ControlPage&>(tab->page()).buttons())
            if (each && each->isUsable())
                names += (names.empty() ? "" : " ") + toUtf8(each->name());
        return names;
    }
    void setBusy(bool busy) {
        surroundings.documents.setQuiescent(document, !busy);
        state.tellBusyListeners(busy ? 1 : 0);
    }

    std::string story;
    DocumentId document = DocumentId::none;
    std::unique_ptr<Tab> tab;
};

TEST_F(ProjectTab, buttons_standInTheirOrderWithNumbersAndTooltips) {
    std::string row;
    for (const Button* const each : dynamic_cast<ControlPage&>(tab->page()).buttons()) {
        row += each ? toUtf8(each->name()) + ":" + std::to_string(each->id()) + " " : "| ";
        EXPECT_TRUE(!each || !each->tooltip().empty());
        EXPECT_EQ(each && each->isDropDown(), each && each->id() == Tab::publishId);
    }
    EXPECT_EQ(row,
        "NEWPROJ:209 OPENPROJ:210 NEWDWG:208 | REFRESH:203 TASKLIST:204 RESEQTAG:205 | DISPCON:206 "
        "PUBLISH:202 | HELP:207 ");
    EXPECT_EQ(dynamic_cast<ControlPage&>(tab->page()).content(), &tab->tree());
}

TEST_F(ProjectTab, buttons_doWhatTheirNamesSay) {
    for (const int id : {Tab::newProjectId, Tab::openProjectId, Tab::newDrawingId})
        tab->button(id).press();
    EXPECT_EQ(story, "new project open project new drawing ");
    tab->button(Tab::helpId).press();
    EXPECT_EQ(surroundings.help.topics, (CStringArray{u"project_manager_dialog"}));
    const CString id = open("DEMO", "a.dwg\n", true);
    project("DEMO", "a.dwg\nb.dwg\n");
    tab->button(Tab::refreshId).press();
    EXPECT_EQ(tab->tree().childCount(tab->tree().GetProjectItem(id)), 2u);
    files.put(path("DEMO_update.mdb"), "tasks");
    state.tellBusyListeners(0);
    surroundings.documents.sent.clear();
    tab->button(Tab::taskListId).press();
    tab->button(Tab::resequenceId).press();
    surroundings.documents.runApplicationContext();
    EXPECT_EQ(
        surroundings.documents.sentTexts(), (CStringArray{u"(c:kq_upd_pending nil)\r", u"(c:kq_bump)\r"}));
}

TEST_F(ProjectTab, busyHost_disablesWhatNeedsIt) {
    open("DEMO", "a.dwg\n", true);
    files.put(path("DEMO_update.mdb"), "tasks");
    manager->onProjectTasksAdded(path("DEMO.kqp"), path("DEMO_update.mdb"));
    const std::string all = "NEWPROJ OPENPROJ NEWDWG REFRESH TASKLIST RESEQTAG DISPCON PUBLISH HELP";
    EXPECT_EQ(usable(), all);
    setBusy(true);
    EXPECT_EQ(usable(), "OPENPROJ REFRESH DISPCON HELP");
    EXPECT_FALSE(tab->button(Tab::newProjectId).press());
    tab = std::make_unique<Tab>(state); // one that is made meanwhile
    EXPECT_EQ(usable(), "OPENPROJ REFRESH DISPCON HELP");
    setBusy(false);
    EXPECT_EQ(usable(), all);
    surroundings.documents.closeDocument(document);
    state.tellBusyListeners(0);
    EXPECT_FALSE(tab->button(Tab::taskListId).isEnabled());
}

TEST_F(ProjectTab, taskList_followsTheActiveProject) {
    const CString a = open("A", "a.dwg\n", true);
    const CString b = open("B", "b.dwg\n");
    const Button& button = tab->button(Tab::taskListId);
    files.put(path("B_update.mdb"), "tasks");
    manager->onProjectTasksAdded(b, path("B_update.mdb"));
    EXPECT_FALSE(button.isEnabled());
    manager->setActiveProject(CStringView(b));
    EXPECT_TRUE(button.isEnabled());
    files.erase(path("B_update.mdb"));
    manager->onProjectTasksDeleted(a, path("A_update.mdb"));
    EXPECT_TRUE(button.isEnabled()); // not about the active project
    manager->onProjectTasksDeleted(b, path("B_update.mdb"));
    EXPECT_FALSE(button.isEnabled());
}

TEST_F(ProjectTab, displayDialog_refreshesTheLabelsAfterOk) {
    const CString id = open("DEMO", "===Main\na.dwg\n", true);
    const auto label = [&] { return toUtf8(tab->tree().child(tab->tree().GetProjectItem(id), 0)->label()); };
    for (const int result : {UserInterface::idCancel, UserInterface::idOk}) {
        surroundings.ui.answerDialog([&](Dialog&) {
            display({103, 108});
            return result;
        });
        tab->button(Tab::displayId).press();
        EXPECT_EQ(label(), result == UserInterface::idOk ? "a.dwg - Main" : "a.dwg");
    }
}

TEST_F(ProjectTab, publish_offersItsCommandsAndRunsTheChosenOne) {
    const CString id = open("DEMO", "a.dwg\n", true);
    tab->button(Tab::publishId).press(); // nothing chosen
    EXPECT_EQ(story, "");
    tab->tree().click(tab->tree().GetProjectItem(id));
    surroundings.ui.answerMenu(238);
    tab->button(Tab::publishId).press();
    EXPECT_EQ(story, "plot ");
    EXPECT_EQ(surroundings.ui.asked, (CStringArray{u"menu", u"menu"}));
    EXPECT_EQ(surroundings.ui.menuItems, (std::vector<int>{238, 240, 241}));
}

TEST_F(ProjectTab, activeProject_isOpenedUpAndSelectedOnce) {
    const CString a = open("A", "a.dwg\n", true);
    CProjectTree& rows = tab->tree();
    EXPECT_TRUE(rows.GetProjectItem(a)->expanded() && rows.GetProjectItem(a)->selected());
    const CString b = open("B", "b.dwg\n");
    rows.expand(*rows.GetProjectItem(a), false);
    rows.click(nullptr);
    for (const CString& id : {b, a}) {
        manager->setActiveProject(CStringView(id));
        EXPECT_EQ(rows.GetProjectItem(id)->expanded(), id == b);
    }
    EXPECT_FALSE(rows.GetProjectItem(a)->selected());
    // A row that comes later, and a tab that does.
    manager->closeProject(a, true);
    ASSERT_TRUE(manager->openProject(a, true));
    EXPECT_TRUE(rows.GetProjectItem(a)->expanded());
    tab = std::make_unique<Tab>(state);
    EXPECT_TRUE(tab->tree().GetProjectItem(a)->expanded());
}

} // namespace
} // namespace ryv::test
