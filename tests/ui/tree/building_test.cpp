#include "tests/ui/tree/tree_fixture.h"

#include "tests/support/project_builder.h"

namespace ryv::test {
namespace {

class Building : public TreeFixture {
protected:
    static constexpr const char* lines =
        "a.dwg\n=====SUB=S\nb.dwg\n=====SUB=S/T\nc.dwg\n====REF\nr.dwg\n=====SUB=U\nd.dwg\n";
};

TEST_F(Building, openProject_isShownInItsOrder) {
    open("DEMO", lines);
    EXPECT_EQ(rows(), "DEMO(a.dwg S(b.dwg T(c.dwg)) &r.dwg U(d.dwg))");
    const _itemdatastruct* const record = CProjectTree::GetItemData(&row(u"c.dwg"));
    EXPECT_EQ(record->item, &row(u"c.dwg"));
    EXPECT_EQ(record->key, u"C:\\P\\c.dwg");
    EXPECT_EQ(CProjectTree::GetItemType(&row(u"T")), TreeItemType::subfolder);
    EXPECT_EQ(CProjectTree::GetItemType(nullptr), TreeItemType::none);
    // A tree that comes later shows what is open.
    CProjectTree second;
    second.HookProjectEvents();
    EXPECT_EQ(second.childCount(second.child(nullptr, 0)), 4u);
}

TEST_F(Building, reRead_tellsTheDifferenceAlone) {
    display({103, 108});
    const struct {
        const char* before;
        const char* after;
        const char* story;
    } cases[] = {
        {"a.dwg\nb.dwg\n", "a.dwg\nb.dwg\n", ""},
        {"a.dwg\nb.dwg\n", "a.dwg\n===New\nb.dwg\n", "changed b.dwg - New"},
        {"a.dwg\nb.dwg\n", "A.DWG\nb.dwg\n", "changed A.DWG"},
        {"a.dwg\nb.dwg\n", "a.dwg\n====REF\nb.dwg\n", "changed b.dwg"},
        {"a.dwg\nb.dwg\n", "b.dwg\na.dwg\n", "move b.dwg to DEMO:0"},
        {"a.dwg\nc.dwg\n", "a.dwg\nb.dwg\nc.dwg\n", "insert DEMO:1+1"},
        {"a.dwg\nb.dwg\nc.dwg\n", "b.dwg\n", "remove DEMO:0-1, remove DEMO:1-1"},
        {"a.dwg\na.dwg\nb.dwg\n", "a.dwg\na.dwg\na.dwg\nb.dwg\n", "insert DEMO:2+1"},
        {"=====SUB=S\nb.dwg\n", "=====SUB=s\nb.dwg\n=====SUB=S\nc.dwg\n", "insert S:1+1"},
        {"=====SUB=S/T\nb.dwg\nc.dwg\n", "=====SUB=S/T\nb.dwg\n=====SUB=S/T\nc.dwg\n",
            "remove DEMO:1-1, insert T:1+1"},
    };
    for (const auto& each : cases) {
        const CString id = open("DEMO", each.before);
        TreeStory story(*tree);
        reRead("DEMO", each.after);
        EXPECT_EQ(story.take(), each.story) << each.before << " -> " << each.after;
        manager->closeProject(id, true);
    }
}

TEST_F(Building, reRead_keepsSelectionFocusExpansionAndPlace) {
    const CString id = open("DEMO", "=====SUB=S/T\na.dwg\n=====SUB=S\nb.dwg\nc.dwg\nd.dwg\n");
    tree->expandAll(nullptr, true);
    tree->setSelection({&row(u"S"), &row(u"a.dwg"), &row(u"b.dwg"), &row(u"d.dwg")});
    tree->setFocus(&row(u"a.dwg"));
    tree->setFirstVisible(&row(u"b.dwg"));
    const TreeItem* const subfolder = &row(u"T");
    // a and b go elsewhere, d goes away.
    reRead("DEMO", "b.dwg\n=====SUB=S/T\ne.dwg\n=====SUB=U\na.dwg\nc.dwg\n");
    EXPECT_EQ(rows(), "DEMO(b.dwg S(T(e.dwg)) U(a.dwg) c.dwg)");
    EXPECT_EQ(selected(), "S a.dwg b.dwg");
    EXPECT_EQ(tree->focus(), &row(u"a.dwg"));
    EXPECT_EQ(tree->firstVisible(), &row(u"b.dwg"));
    EXPECT_EQ(&row(u"T"), subfolder);
    EXPECT_TRUE(row(u"S").expanded() && row(u"T").expanded());
    EXPECT_FALSE(row(u"U").expanded());
}

TEST_F(Building, subfoldersThatDifferInCaseOnly_areOneRow) {
    const CString id = open("DEMO", "x.dwg\n");
    CArray<RyvPrmItem*> items;
    for (const CStringView name : {u"Power", u"Other", u"power"}) {
        auto subfolder = std::make_unique<RyvPrmSubfolder>(CString(name));
        subfolder->add(drawing(u"C:\\P\\" + CString(name) + u".dwg"));
        subfolder->add(std::make_unique<RyvPrmSubfolder>(name == u"Other" ? u"Z" : CString(name) + u"Q"));
        items.push_back(subfolder.release());
    }
    manager->getProject(CStringView(id))->editProjectData().setProjFileDetails(items);
    EXPECT_TRUE(tree->AddDWGNodes(*tree->GetProjectItem(id), id));
    EXPECT_EQ(rows(), "DEMO(Power(Power.dwg PowerQ power.dwg) Other(Other.dwg Z))");
}

TEST_F(Building, subfolderRow_isNewOrTheOneThatIsThere) {
    const CString id = open("DEMO", "=====SUB=Power\npower.dwg\n");
    TreeItem& top = *tree->GetProjectItem(id);
    bool exists = false;
    EXPECT_EQ(tree->InsertSubfolderItem(u"power", top, exists), &row(u"POWER"));
    EXPECT_TRUE(exists);
    EXPECT_EQ(tree->InsertSubfolderItem(u"power", top, exists, CProjectTree::atEnd, true), nullptr);
    EXPECT_TRUE(exists);
    // A drawing of that label is no subfolder.
    EXPECT_NE(tree->InsertSubfolderItem(u"power.dwg", row(u"POWER"), exists, 0), nullptr);
    EXPECT_FALSE(exists);
    EXPECT_EQ(rows(), "DEMO(POWER(power.dwg power.dwg))");
}

TEST_F(Building, traces_leadToSubfoldersAndBack) {
    const CString id = open("DEMO", lines);
    const TreeItem* const top = tree->GetProjectItem(id);
    EXPECT_EQ(CProjectTree::GetChildSubfolderTraces(*top), (CStringArray{u"S", u"S/T", u"U"}));
    EXPECT_EQ(CProjectTree::GetChildSubfolderTraces(row(u"S")), (CStringArray{u"S/T"}));
    for (const CString& trace : CProjectTree::GetChildSubfolderTraces(*top))
        EXPECT_EQ(
            CProjectTree::GetSubfolderTraceForItem(tree->GetTreeItemBySubfolderTrace(top, trace)), trace);
    EXPECT_EQ(tree->GetTreeItemBySubfolderTrace(top, u"s/t"), &row(u"T"));
    for (const CStringView trace : {u"", u"T", u"S/U", u"S/T/c.dwg", u"a.dwg"})
        EXPECT_EQ(tree->GetTreeItemBySubfolderTrace(top, trace), nullptr);
    EXPECT_EQ(CProjectTree::GetSubfolderTraceForItem(&row(u"c.dwg")), u"");
    EXPECT_EQ(CProjectTree::GetSubfolderTraceForItem(top), u"");
}

TEST_F(Building, selectedDrawings_areThoseOfSelectedRowsInTheirOrder) {
    open("DEMO", "a.dwg\n=====SUB=S\nb.dwg\n=====SUB=S/T\nc.dwg\na.dwg\nd.dwg\n");
    EXPECT_TRUE(tree->GetAllSelectedDwgs().empty());
    tree->setSelection({&row(u"d.dwg"), &row(u"c.dwg"), &row(u"S")});
    EXPECT_EQ(tree->GetAllSelectedDwgs(), (CStringArray{u"C:\\P\\b.dwg", u"C:\\P\\c.dwg", u"C:\\P\\d.dwg"}));
    tree->setSelection({&row(u"DEMO")});
    EXPECT_EQ(tree->GetAllSelectedDwgs().size(), 4u);
    EXPECT_EQ(CProjectTree::GenerateDwgListUnderItem(row(u"DEMO")).size(), 5u);
}

/// Comes in seconds when each step is linear, and not at all when one recurses or walks the tree for each
/// row.
TEST_F(Building, largeAndDeepProjects_areBuiltAndReadAgain) {
    constexpr std::size_t flatRows = 100'000;
    constexpr std::size_t deepRows = 30'000;
    std::string flat;
    for (std::size_t i = 0; i < flatRows; ++i)
        flat += "d" + std::to_string(i) + ".dwg\n";
    std::string trace = "=====SUB=";
    for (std::size_t i = 0; i < deepRows; ++i)
        trace += "s/";
    surroundings.projectDatabase.helperProcess = true; // or the manager would look for 100,000 drawings
    for (const std::string& each : {flat, trace + "\nx.dwg\n"}) {
        files.put(path("DEMO.kqp"), each);
        ASSERT_TRUE(manager->openProject(path("DEMO.kqp"), false));
        tree->onDrawingActivate(path("x.dwg"));
        TreeStory story(*tree);
        manager->reReadProject(path("DEMO.kqp"));
        EXPECT_EQ(story.take(), "");
        std::size_t count = 0;
        for (const TreeItem* item = tree->child(nullptr, 0); item; item = nextInTree(*item, nullptr))
            ++count;
        EXPECT_EQ(count, 1 + (each == flat ? flatRows : deepRows + 1));
        manager->closeProject(path("DEMO.kqp"), true);
        EXPECT_EQ(tree->childCount(nullptr), 0u);
    }
}

} // namespace
} // namespace ryv::test
