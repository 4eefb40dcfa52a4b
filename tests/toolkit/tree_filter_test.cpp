// Finding rows by words, and what a tree shows when the filter goes.
#include "tests/support/text.h"
#include "tests/toolkit/tree_mirror.h"

#include <memory>

namespace ryv::test {
namespace {

TEST(TreeFilter, matches_words_containedOrCloseTogether) {
    const struct {
        const char16_t* query;
        const char16_t* lines;
        bool found;
    } cases[] = {
        {u"", u"", true},
        {u"   ", u"any", true},
        {u"ump", u"Pump", true},
        {u"\u00E4b", u"\u00C4B", true},
        {u"-0", u"PANEL-01", true},
        {u"x", u"Pump", false},
        // Within one piece.
        {u"pmp", u"Pump", true},
        {u"pnl", u"PANEL-01.dwg", true},
        {u"pl", u"Panel", false},
        {u"mp", u"Pump", true},
        {u"up", u"Pump", false},
        {u"pppp", u"Pump", false},
        {u"pl", u"Pol", true},
        {u"pml", u"Pumxxxl", false},
        // From piece to piece.
        {u"p1", u"PANEL-01", true},
        {u"p1", u"PANEL-21", false},
        {u"p1", u"PANEL-001", true},
        {u"p01", u"PANEL-01", true},
        {u"pan-1", u"PANEL-01", true},
        {u"p1", u"Pump in room 1", false},
        {u"mcc", u"Motor control center", true},
        {u"mocoC", u"Motor control center", true},
        {u"13", u"123", false},
        {u"p1", u"Pump\n1", false},
        // Words.
        {u"main pmp", u"PANEL-01\nMain\nPump", true},
        {u" pmp  main ", u"Pump\nMain", true},
        {u"main pmpx", u"Main\nPump", false},
        {u"01main", u"PANEL-01\nMain", false},
    };
    for (const auto& each : cases)
        EXPECT_EQ(TreeFilter(each.query).matches(each.lines), each.found)
            << toAscii(each.query) << " in " << toAscii(each.lines);
    const CString longest(63, u'a');
    EXPECT_TRUE(TreeFilter(longest).matches(longest.substr(1) + u"bA\n" + u"a" + longest));
    EXPECT_FALSE(TreeFilter(longest + u"b").matches(longest + u"xb")) << "too long but for the exact search";
}

/// Rows are found by their record.
class Record : public TreeItemData {
public:
    explicit Record(CString its) : text(std::move(its)) {}
    CString text;
};

class FoundByRecord : public TreeControl {
public:
    FoundByRecord() : TreeControl(1) {}

protected:
    CString searchText(const TreeItem& item) const override {
        return item.data() ? static_cast<const Record*>(item.data())->text : item.label();
    }
};

/// top (a (a1 a2) b (b1 b2)), everything collapsed but for a.
class TreeFilterViewTest : public testing::Test {
public:
    TreeFilterViewTest() {
        add(nullptr, u"top");
        add(at(u"top"), u"a");
        add(at(u"top"), u"b");
        for (const auto* const label : {u"a1", u"a2"})
            add(at(u"a"), label);
        for (const auto* const label : {u"b1", u"b2"})
            add(at(u"b"), label);
        tree.expand(*at(u"top"), true);
        tree.expand(*at(u"a"), true);
        tree.setSelection({at(u"a2"), at(u"a")});
        tree.setFirstVisible(at(u"a"));
    }
    void add(TreeItem* parent, const char16_t* label) {
        tree.insert(parent, TreeControl::atEnd, {label, 0, false, std::make_unique<Record>(label)});
    }
    TreeItem* at(CStringView label) const {
        TreeItem* item = tree.child(nullptr, 0);
        while (item && item->label() != label)
            item = nextInTree(*item, nullptr);
        return item;
    }
    std::string state() const {
        std::string text;
        for (const TreeItem* const item : tree.selection())
            text += toAscii(item->label()) + " ";
        text += "| " + (tree.focus() ? toAscii(tree.focus()->label()) : "none");
        text += "| " + (tree.firstVisible() ? toAscii(tree.firstVisible()->label()) : "none") + " |";
        for (const TreeItem* item = tree.child(nullptr, 0); item; item = nextInTree(*item, nullptr))
            text += item->expanded() ? " " + toAscii(item->label()) : "";
        return text;
    }

    FoundByRecord tree;
    TreeMirror mirror{tree};
};

TEST_F(TreeFilterViewTest, filterGone_viewIsAsBefore_unlessOtherRowsWereSelected) {
    const struct {
        const char* name;
        void (*act)(TreeFilterViewTest&, TreeControl&); // with the filter set
        const char* state;                              // selection, focus, first row, expanded rows
    } cases[] = {
        {"nothing done", [](auto&, TreeControl&) {}, "a2 a | a| a | top a"},
        {"another word", [](auto&, TreeControl& tree) { tree.setFilter(u"b1 b"); }, "a2 a | a| a | top a"},
        {"collapsed", [](auto& its, TreeControl& tree) { tree.expand(*its.at(u"top"), false); },
            "a2 a | a| a | top a"},
        {"deselected",
            [](auto& its, TreeControl& tree) {
                tree.click(its.at(u"b2"));
                tree.click(nullptr);
            },
            "a2 a | a| a | top a"},
        {"selected", [](auto& its, TreeControl& tree) { tree.click(its.at(u"b2")); }, "b2 | b2| a | top a b"},
        {"put back by the program",
            [](auto& its, TreeControl& tree) { tree.restoreSelection({its.at(u"b2")}, its.at(u"b2")); },
            "a2 a | a| a | top a"},
        {"a row replaced by the program",
            [](auto& its, TreeControl& tree) {
                tree.remove(*its.at(u"a2"));
                its.add(its.at(u"a"), u"a2");
                tree.remember(*its.at(u"a2"));
            },
            "a a2 | a| a | top a"},
        {"removed", [](auto& its, TreeControl& tree) { tree.remove(*its.at(u"a")); }, "| top| top | top"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        tree.setFilter(u"b");
        EXPECT_EQ(state().substr(0, 2), "| ");
        each.act(*this, tree);
        tree.setFilter(u"");
        EXPECT_EQ(state(), each.state);
        mirror.check();
        if (!at(u"a"))
            break;
        tree.expand(*at(u"b"), false);
        tree.setSelection({at(u"a2"), at(u"a")});
    }
}

TEST_F(TreeFilterViewTest, newRecords_rowsComeAndGo) {
    tree.setFilter(u"b2");
    const auto record = [](const char16_t* text) { return std::make_unique<Record>(text); };
    tree.setData(*at(u"a1"), record(u"like b2"));
    EXPECT_TRUE(at(u"a")->shown() && at(u"a1")->shown());
    tree.setData(*at(u"b2"), record(u"other"));
    EXPECT_FALSE(at(u"b")->shown() || at(u"b2")->shown());
    std::vector<TreeRow> rows;
    rows.push_back({u"b1", 0, false, record(u"now b2")});
    rows.push_back({u"b3", 0, false, record(u"b 2 too: b2")});
    tree.replaceChildren(
        at(u"b"), std::move(rows), [](const CString& label, const TreeItemData*) { return label; });
    EXPECT_TRUE(at(u"b1")->shown() && at(u"b3")->shown() && at(u"b")->shown());
    mirror.check();
}

} // namespace
} // namespace ryv::test
