// What happens to rows when they are replaced, removed in great numbers, or stand very deep.
#include "base/text.h"
#include "tests/toolkit/tree_mirror.h"
#include "toolkit/tree_item_watch.h"

#include <string>

namespace ryv::test {
namespace {

CString labelOf(const CString& label, const TreeItemData*) {
    return label;
}

std::vector<TreeRow> rowsOf(const std::vector<CString>& labels) {
    std::vector<TreeRow> rows;
    for (const CString& label : labels)
        rows.push_back({label});
    return rows;
}

/// Counts what a view has to do.
class Counting final : public TreeObserver {
public:
    void aboutToInsert(TreeItem*, std::size_t, std::size_t count) override { add('i', count); }
    void aboutToRemove(TreeItem*, std::size_t, std::size_t count) override { add('r', count); }
    void aboutToMove(TreeItem& item, TreeItem*, std::size_t) override { add('m', item.label().size()); }
    void aboutToReset() override { story += "reset "; }
    void changed(TreeItem&) override { story += "c "; }
    std::string story;

private:
    void add(char what, std::size_t count) { story += what + std::to_string(count) + " "; }
};

TEST(TreeRows, replaceChildren_touchesOnlyWhatDiffers) {
    const struct {
        std::vector<CString> rows;
        const char* story;
    } cases[] = {
        {{u"a", u"b", u"c", u"d"}, ""},
        {{u"a", u"x", u"y", u"b", u"c", u"d"}, "i2 "},
        {{u"c", u"d"}, "r2 "},
        {{u"b", u"c", u"d", u"a"}, "m1 "},
        {{u"d", u"x", u"b", u"c"}, "m1 i1 r1 "},
        {{u"a", u"a", u"b", u"c", u"d", u"z"}, "i1 i1 "},
        {{}, "r4 "},
    };
    for (const auto& each : cases) {
        TreeControl tree(1);
        tree.insertRows(nullptr, 0, rowsOf({u"a", u"b", u"c", u"d"}));
        tree.expand(*tree.child(nullptr, 1), true);
        tree.selectAll();
        const std::vector<TreeItem*> before = tree.selection();
        TreeMirror mirror(tree);
        Counting counting;
        tree.attach(counting);
        tree.replaceChildren(nullptr, rowsOf(each.rows), labelOf);
        tree.detach(counting);
        EXPECT_EQ(counting.story, each.story);
        std::size_t kept = 0;
        for (std::size_t row = 0; row < each.rows.size(); ++row) {
            const TreeItem& item = *tree.child(nullptr, row);
            EXPECT_EQ(item.label(), each.rows[row]);
            EXPECT_EQ(item.expanded(), item.label() == u"b");
            kept += item.selected() ? 1u : 0u;
        }
        EXPECT_EQ(tree.selectionCount(), kept);
        EXPECT_EQ(mirror.selectionNotices, tree.selectionCount() == before.size() ? 0u : 1u);
    }
}

TEST(TreeRows, replaceChildren_manyInAnotherOrder_isOneReset) {
    std::vector<CString> labels;
    for (int i = 0; i < 300; ++i)
        labels.push_back(toText(i));
    TreeControl tree(1);
    tree.insertRows(nullptr, 0, rowsOf(labels));
    TreeItem* const first = tree.child(nullptr, 0);
    TreeMirror mirror(tree);
    Counting counting;
    tree.attach(counting);
    std::reverse(labels.begin(), labels.end());
    tree.replaceChildren(nullptr, rowsOf(labels), labelOf);
    tree.detach(counting);
    EXPECT_EQ(counting.story, "reset ");
    EXPECT_EQ(first->row(), 299u);
    for (std::size_t row = 0; row < labels.size(); ++row)
        ASSERT_EQ(tree.child(nullptr, row)->label(), labels[row]);
}

/// Every operation on a chain of rows, each below the one before.
TEST(TreeRows, depth_ofAHundredThousand_costsNoStack) {
    constexpr std::size_t depth = 100000;
    class Deleting : public TreeControl {
    public:
        Deleting() : TreeControl(1) {}
        void onDeleteItem(TreeItem& item) override { ++deleted, last = item.label(); }
        std::size_t deleted = 0;
        CString last;
    } tree;
    TreeItem* item = nullptr;
    for (std::size_t i = 0; i < depth; ++i)
        item = &tree.insert(item, 0, {i + 1 == depth ? u"deepest" : i == 0 ? u"top" : u"row"});
    TreeItem& top = *tree.child(nullptr, 0);
    TreeItem& deepest = *item;
    tree.ensureVisible(deepest);
    tree.selectAll();
    EXPECT_EQ(tree.selectionCount(), depth);
    tree.expandAll(nullptr, false);
    EXPECT_EQ(tree.selection(), std::vector<TreeItem*>{&top});
    tree.expandAll(&top, true);
    tree.click(&top);
    tree.click(&deepest, {false, true});
    EXPECT_EQ(tree.selection().back(), &deepest);
    tree.expand(top, false);
    EXPECT_EQ(tree.selectionCount(), 1u);
    tree.setFilter(u"DEEPEST");
    EXPECT_TRUE(top.shown());
    tree.setLabel(deepest, u"gone");
    EXPECT_FALSE(top.shown());
    tree.setLabel(deepest, u"deepest");
    EXPECT_TRUE(top.shown());
    EXPECT_FALSE(tree.move(top, &deepest, 0));
    TreeItem* const half = [&] {
        TreeItem* at = &top;
        for (std::size_t i = 0; i < depth / 2; ++i)
            at = at->child(0);
        return at;
    }();
    EXPECT_TRUE(tree.move(*half, nullptr, 0));
    tree.setFilter({});
    const TreeItemWatch watch(tree, deepest);
    tree.remove(top);
    EXPECT_EQ(tree.deleted, depth / 2);
    EXPECT_EQ(tree.last, u"top") << "children come first";
    EXPECT_EQ(watch.item(), &deepest);
    tree.clear();
    EXPECT_EQ(tree.deleted, depth);
    EXPECT_EQ(watch.item(), nullptr);
}

TEST(TreeRows, observers_thatComeAndGoDuringNotices_areToldWholeChanges) {
    class Other final : public TreeObserver {
    public:
        void inserted() override { story += "inserted "; }
        void reset() override { story += "reset "; }
        std::string story;
    };
    class Meddler final : public TreeObserver {
    public:
        Meddler(TreeControl& tree, Other& leaving, Other& coming)
            : tree_(tree), leaving_(leaving), coming_(coming) {}
        void aboutToInsert(TreeItem*, std::size_t, std::size_t) override {
            tree_.detach(leaving_);
            tree_.attach(coming_);
            tree_.detach(*this);
        }
        void inserted() override { ADD_FAILURE() << "detached before"; }

    private:
        TreeControl& tree_;
        Other& leaving_;
        Other& coming_;
    };
    TreeControl tree(1);
    Other leaving, staying, coming;
    Meddler meddler(tree, leaving, coming);
    tree.attach(meddler);
    tree.attach(leaving);
    tree.attach(staying);
    tree.insert(nullptr, 0, {u"a"});
    tree.insert(nullptr, 0, {u"b"});
    EXPECT_EQ(leaving.story, "");
    EXPECT_EQ(staying.story, "inserted inserted ");
    EXPECT_EQ(coming.story, "reset inserted ");
}

TEST(TreeRows, records_belongToTheirRows) {
    struct Record : TreeItemData {
        explicit Record(int& alive) : count(alive) { ++count; }
        Record(const Record&) = delete;
        Record& operator=(const Record&) = delete;
        ~Record() override { --count; }
        int& count;
    };
    int alive = 0;
    {
        TreeControl tree(1);
        const auto row = [&] { return TreeRow{u"a", 0, false, std::make_unique<Record>(alive)}; };
        TreeItem& item = tree.insert(nullptr, 0, row());
        tree.insert(&item, 0, row());
        std::vector<TreeRow> newer;
        newer.push_back(row());
        const TreeItemData* const record = newer[0].data.get();
        tree.replaceChildren(nullptr, std::move(newer), labelOf);
        EXPECT_EQ(item.data(), record);
        EXPECT_EQ(alive, 2);
        tree.remove(*item.child(0));
        EXPECT_EQ(alive, 1);
    }
    EXPECT_EQ(alive, 0);
}

} // namespace
} // namespace ryv::test
