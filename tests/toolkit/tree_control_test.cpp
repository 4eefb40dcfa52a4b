// Selecting, keys, editing and dragging in a tree control, each as a table or a short story.
#include "base/text.h"
#include "tests/toolkit/tree_mirror.h"
#include "toolkit/tree_item_watch.h"

#include <functional>
#include <string>

namespace ryv::test {
namespace {

constexpr Modifiers plain;
constexpr Modifiers ctrl{true, false};
constexpr Modifiers shift{false, true};
constexpr Modifiers both{true, true};

/// A control that writes down what its owner is asked and told, in short words.
class Recorded : public TreeControl {
public:
    Recorded() : TreeControl(1) {}

    std::string story;
    std::function<void()> during; // what happens inside the next hook
    bool answer = true;

    bool note(const std::string& what, const CString& text = {}) {
        story += what + (text.empty() ? "" : " " + toAscii(text)) + "; ";
        if (const auto action = std::exchange(during, nullptr))
            action();
        return answer;
    }
    bool onBeginLabelEdit(TreeItem& item) override { return note("begin", item.label()); }
    bool onEndLabelEdit(TreeItem&, const CString& text) override { return note("end", text); }
    void onLabelEditEnded() override { note("over"); }
    bool onDragOver(TreeItem* target, DropPosition) override {
        return note("over", target ? target->label() : u"nothing");
    }
    void onContextMenu(TreeItem* item, TreePoint) override {
        note("menu", item ? item->label() : u"nothing");
    }
    bool onKey(TreeKeyCode code, Modifiers) override {
        return note(code == TreeKeyCode::remove ? "remove" : "other");
    }
    void onDeleteItem(TreeItem& item) override { note("delete", item.label()); }
};

/// a(a1 a2(x y) a3) b(b1) c, with `a` expanded.
struct Sample {
    Sample() {
        add(nullptr, {u"a", u"b", u"c"});
        add(at(u"a"), {u"a1", u"a2", u"a3"});
        add(at(u"a2"), {u"x", u"y"});
        add(at(u"b"), {u"b1"});
        tree.expand(*at(u"a"), true);
    }
    void add(TreeItem* parent, const std::vector<CString>& labels) {
        for (const CString& label : labels)
            tree.insert(parent, TreeControl::atEnd, {label});
    }
    TreeItem* at(CStringView label) const {
        TreeItem* item = tree.child(nullptr, 0);
        while (item && item->label() != label)
            item = nextInTree(*item, nullptr);
        return item;
    }
    std::string selected() const {
        std::string text;
        for (const TreeItem* const item : tree.selection())
            text += (text.empty() ? "" : " ") + toAscii(item->label());
        return text;
    }
    std::string rows() const {
        std::string text;
        for (TreeItem* item = tree.child(nullptr, 0); item; item = nextInTree(*item, nullptr)) {
            const TreeItem* const parent = item->parent();
            text += (text.empty() ? "" : " ") + (parent ? toAscii(parent->label()) + "/" : "") +
                    toAscii(item->label());
        }
        return text;
    }
    static std::string name(const TreeItem* item) { return item ? toAscii(item->label()) : "none"; }

    Recorded tree;
    TreeMirror mirror{tree};
};

class TreeControlTest : public testing::Test, public Sample {};

TEST_F(TreeControlTest, click_withModifiers_selectsInTheOrderOfSelecting) {
    const struct {
        const char16_t* row; // null: the empty area
        Modifiers modifiers;
        const char* selected;
        const char* anchor;
    } steps[] = {
        {u"a3", plain, "a3", "a3"},
        {u"a1", shift, "a3 a2 a1", "a3"},
        {u"b", shift, "a3 b", "a3"},
        {u"a1", ctrl, "a3 b a1", "a1"},
        {u"a2", both, "a3 b a1 a2", "a1"},
        {u"b", ctrl, "a3 a1 a2", "b"},
        {nullptr, ctrl, "a3 a1 a2", "b"},
        {u"c", both, "a3 a1 a2 b c", "b"},
        {u"a1", plain, "a1", "a1"},
        {nullptr, plain, "", "a1"},
    };
    for (const auto& step : steps) {
        tree.click(step.row ? at(step.row) : nullptr, step.modifiers);
        EXPECT_EQ(selected(), step.selected);
        EXPECT_EQ(name(tree.anchor()), step.anchor);
    }
}

TEST_F(TreeControlTest, key_withModifiers_movesSelectsAndExpands) {
    using enum TreeKeyCode;
    const struct {
        TreeKeyCode code;
        Modifiers modifiers;
        const char* selected;
        const char* focus;
    } steps[] = {
        {down, plain, "a", "a"},
        {down, plain, "a1", "a1"},
        {down, shift, "a1 a2", "a2"},
        {down, shift, "a1 a2 a3", "a3"},
        {up, shift, "a1 a2", "a2"},
        {up, plain, "a1", "a1"},
        {down, ctrl, "a1", "a2"},
        {space, ctrl, "a1 a2", "a2"},
        {end, plain, "c", "c"},
        {down, plain, "c", "c"},
        {home, shift, "c b a3 a2 a1 a", "a"},
        {down, plain, "a1", "a1"},
        {left, plain, "a", "a"},
        {right, plain, "a1", "a1"},
        {pageDown, plain, "a3", "a3"},
        {pageUp, plain, "a1", "a1"},
        {down, plain, "a2", "a2"},
        {right, plain, "a2", "a2"},
        {right, plain, "x", "x"},
        {selectAll, ctrl, "a a1 a2 x y a3 b c", "x"},
        {left, plain, "a b c", "a"},
        {right, plain, "a b c", "a"},
        {up, plain, "a", "a"},
        {left, plain, "a", "a"},
        {expandAll, plain, "a", "a"},
        {end, shift, "a a1 a2 x y a3 b b1 c", "c"},
    };
    tree.setPageRows(2);
    for (const auto& step : steps) {
        SCOPED_TRACE(&step - steps);
        EXPECT_TRUE(tree.key(step.code, step.modifiers));
        EXPECT_EQ(selected(), step.selected);
        EXPECT_EQ(name(tree.focus()), step.focus);
    }
    EXPECT_FALSE(tree.key(edit)) << "many are selected";
    EXPECT_TRUE(tree.key(remove));
    EXPECT_EQ(tree.story, "remove; ");
}

TEST_F(TreeControlTest, typed_letters_goToTheNextVisibleRowThatBeginsSo) {
    const struct {
        const char16_t* prefix;
        const char* focus;
    } steps[] = {{u"A", "a"}, {u"a", "a1"}, {u"a", "a2"}, {u"A2", "a2"}, {u"b", "b"}, {u"b", "b"},
        {u"a", "a"}, {u"x", "a"}};
    for (const auto& step : steps) {
        EXPECT_EQ(tree.typed(step.prefix), CStringView(step.prefix) != u"x");
        EXPECT_EQ(name(tree.focus()), step.focus);
    }
}

TEST_F(TreeControlTest, disabled_control_doesNothingForTheUser) {
    tree.setSelection({at(u"a"), at(u"b")});
    tree.setEnabled(false);
    tree.click(at(u"c"));
    tree.contextMenu(at(u"c"), {});
    EXPECT_FALSE(tree.key(TreeKeyCode::remove) || tree.typed(u"c") || tree.beginDrag());
    EXPECT_FALSE(tree.editLabel(*at(u"c")));
    EXPECT_EQ(selected() + tree.story, "a b");
}

TEST_F(TreeControlTest, rowsLeaving_focusGoesToTheNeighbourAndSelectionForgets) {
    const struct {
        const char16_t* focus;
        std::function<void()> leave;
        const char* focusAfter;
        const char* selected;
    } cases[] = {
        {u"a3", [this] { tree.remove(*at(u"a3")); }, "a2", "a1"},
        {u"a2", [this] { tree.expand(*at(u"a"), false); }, "a", "a"},
        {u"a", [this] { tree.setFilter(u"B"); }, "none", ""},
        {u"b1", [this] { tree.remove(*at(u"b1")); }, "b", ""},
        {u"a2",
            [this] {
                tree.setFilter(u"a2");
                tree.setLabel(*at(u"a2"), u"q");
            },
            "none", ""},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(&each - cases);
        const auto other = tree.focus() == nullptr ? at(u"a1") : nullptr;
        tree.setSelection(
            other ? std::vector<TreeItem*>{other, at(each.focus)} : std::vector{at(each.focus)});
        tree.setFirstVisible(at(each.focus));
        each.leave();
        EXPECT_EQ(name(tree.focus()), each.focusAfter);
        EXPECT_EQ(name(tree.firstVisible()), each.focusAfter);
        EXPECT_EQ(selected(), each.selected);
        tree.setFilter({});
    }
}

TEST_F(TreeControlTest, contextMenu_onRows_selectsWhatItIsFor) {
    tree.setSelection({at(u"a1"), at(u"b")});
    tree.contextMenu(at(u"a1"), {});
    EXPECT_EQ(selected(), "a1 b");
    tree.contextMenu(at(u"c"), {});
    EXPECT_EQ(selected(), "c");
    tree.contextMenu(nullptr, {});
    EXPECT_EQ(selected(), "");
    EXPECT_EQ(tree.story, "menu a1; menu c; menu nothing; ");
}

/// A view with an editor: what it is told about the row and its editor.
class Editing final : public TreeObserver {
public:
    void editStarted(TreeItem&, const CString& text) override { story += "open " + toAscii(text) + "; "; }
    void editEnded() override { story += "close; "; }
    void changed(TreeItem& item) override { story += "changed " + toAscii(item.label()) + "; "; }
    void removed() override { story += "removed; "; }
    void reset() override { story += "reset; "; }
    std::string story;
};

TEST_F(TreeControlTest, editing_howeverItEnds_tellsTheOwnerOnce) {
    const struct {
        const char* name;
        void (*act)(Sample&); // after the editing of c began
        const char* owner;
        const char* view;
        const char* label; // null: the row is gone
    } cases[] = {
        {"accepted", [](Sample& s) { s.tree.finishEdit(u"new"); }, "begin c; end new; over; ",
            "open c; close; changed new; ", "new"},
        {"given up", [](Sample& s) { s.tree.finishEdit({}); }, "begin c; over; ", "open c; close; ", "c"},
        {"refused",
            [](Sample& s) {
                s.tree.answer = false;
                s.tree.finishEdit(u"new");
            },
            "begin c; end new; over; ", "open c; close; ", "c"},
        {"changed meanwhile",
            [](Sample& s) {
                s.tree.setLabel(*s.at(u"c"), u"d");
                s.tree.setBold(*s.at(u"d"), true);
                s.tree.finishEdit({});
            },
            "begin c; over; ", "open c; close; changed d; ", "d"},
        {"removed meanwhile",
            [](Sample& s) {
                s.tree.remove(*s.at(u"c"));
                s.tree.finishEdit(u"new");
            },
            "begin c; delete c; over; ", "open c; close; removed; ", nullptr},
        {"removed by the owner",
            [](Sample& s) {
                s.tree.during = [&s] { s.tree.remove(*s.at(u"c")); };
                s.tree.finishEdit(u"new");
            },
            "begin c; end new; delete c; over; ", "open c; close; removed; ", nullptr},
        {"filtered meanwhile", [](Sample& s) { s.tree.setFilter(u"x"); }, "begin c; over; ",
            "open c; close; reset; ", "c"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        Sample sample;
        TreeItem& row = *sample.at(u"c");
        Editing view;
        sample.tree.attach(view);
        ASSERT_TRUE(sample.tree.editLabel(row));
        EXPECT_FALSE(sample.tree.editLabel(*sample.at(u"b"))) << "one at a time";
        each.act(sample);
        EXPECT_EQ(sample.tree.editedItem(), nullptr);
        EXPECT_EQ(sample.tree.story, each.owner);
        EXPECT_EQ(view.story, each.view);
        if (each.label)
            EXPECT_EQ(toAscii(row.label()), each.label);
    }
}

TEST_F(TreeControlTest, editLabel_refusedOrRemovedByTheOwner_doesNotBegin) {
    tree.answer = false;
    EXPECT_FALSE(tree.editLabel(*at(u"c")));
    tree.answer = true;
    tree.during = [this] { tree.remove(*at(u"c")); };
    EXPECT_FALSE(tree.editLabel(*at(u"c")));
    EXPECT_EQ(tree.story, "begin c; begin c; delete c; over; ");
    tree.click(at(u"a"));
    tree.clickLabel(*at(u"a"));
    EXPECT_EQ(tree.editedItem(), nullptr) << "not allowed";
    tree.setEditOnClick(true);
    tree.clickLabel(*at(u"a"));
    EXPECT_EQ(tree.editedItem(), at(u"a"));
}

TEST_F(TreeControlTest, drop_atEachPlace_movesTopmostSelectedRowsInTheirOrder) {
    const struct {
        std::vector<const char16_t*> dragged;
        const char16_t* target;
        DropPosition position;
        const char* rows; // empty: not a place to drop
    } cases[] = {
        {{u"y", u"a1"}, u"c", DropPosition::onto, "a a/a2 a2/x a/a3 b b/b1 c c/a1 c/y"},
        {{u"x", u"a2"}, u"b1", DropPosition::before, "a a/a1 a/a3 b b/a2 a2/x a2/y b/b1 c"},
        {{u"a1", u"a3"}, u"a2", DropPosition::after, "a a/a2 a2/x a2/y a/a1 a/a3 b b/b1 c"},
        {{u"a3"}, u"a1", DropPosition::before, "a a/a3 a/a1 a/a2 a2/x a2/y b b/b1 c"},
        {{u"a1"}, u"a3", DropPosition::before, "a a/a2 a2/x a2/y a/a1 a/a3 b b/b1 c"},
        {{u"a1"}, nullptr, DropPosition::onto, "a a/a2 a2/x a2/y a/a3 b b/b1 c a1"},
        {{u"a"}, u"x", DropPosition::onto, ""},
        {{u"a1", u"b"}, u"b", DropPosition::after, ""},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(&each - cases);
        Sample fresh;
        std::vector<TreeItem*> dragged;
        for (const auto* const label : each.dragged)
            dragged.push_back(fresh.at(label));
        fresh.tree.setSelection(dragged);
        const std::string before = fresh.rows();
        ASSERT_TRUE(fresh.tree.beginDrag());
        EXPECT_EQ(fresh.tree.dragOver(each.target ? fresh.at(each.target) : nullptr, each.position),
            each.rows[0] != '\0');
        fresh.tree.drop();
        EXPECT_EQ(fresh.rows(), each.rows[0] ? each.rows : before);
        EXPECT_FALSE(fresh.tree.isDragging());
        fresh.mirror.check();
    }
}

TEST_F(TreeControlTest, drag_refusedCancelledOrRobbedOfItsTarget_movesNothing) {
    const std::string before = rows();
    EXPECT_FALSE(tree.beginDrag()) << "nothing is selected";
    tree.click(at(u"a1"));
    const std::function<void()> endings[] = {
        [this] {
            tree.answer = false;
            EXPECT_FALSE(tree.dragOver(at(u"c"), DropPosition::onto));
            tree.drop();
        },
        [this] {
            tree.key(TreeKeyCode::escape);
            tree.drop();
        },
        [this] {
            tree.setFilter(u"a");
            tree.drop();
        },
    };
    for (const auto& ending : endings) {
        tree.answer = true;
        ASSERT_TRUE(tree.beginDrag());
        EXPECT_TRUE(tree.dragOver(at(u"c"), DropPosition::onto));
        ending();
        EXPECT_FALSE(tree.hasDropPlace());
        EXPECT_EQ(rows(), before);
    }
}

} // namespace
} // namespace ryv::test
