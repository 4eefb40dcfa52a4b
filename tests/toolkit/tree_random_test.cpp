// A tree control under random changes, against rows in plain arrays that are walked for every answer, and
// against a view that knows only what it is told.
#include "tests/support/random.h"
#include "tests/toolkit/tree_mirror.h"

#include "base/fold.h"

#include <memory>
#include <unordered_map>

namespace ryv::test {
namespace {

struct Node {
    TreeItem* item = nullptr;
    Node* parent = nullptr;
    CString label;
    bool expanded = false;
    bool unfiltered = false; // expanded, when there is no filter
    std::vector<std::unique_ptr<Node>> children;
};

CString firstLetter(const CString& label, const TreeItemData*) {
    return label.substr(0, 1);
}

class Changed {
public:
    explicit Changed(std::uint64_t seed) : chance_(seed) {}

    const char* change();
    void check();

private:
    // -- The answers, each by a walk.
    bool shown(const Node& node) const {
        bool hit = TreeFilter(filter_).matches(node.label);
        for (const auto& child : node.children)
            hit = hit || shown(*child);
        return hit;
    }
    void walk(Node& node, bool visibleOnly, std::vector<Node*>& found) const {
        for (const auto& child : node.children)
            if (!visibleOnly || shown(*child)) {
                found.push_back(child.get());
                if (!visibleOnly || child->expanded)
                    walk(*child, visibleOnly, found);
            }
    }
    std::vector<Node*> all(bool visibleOnly = false) {
        std::vector<Node*> found;
        walk(root_, visibleOnly, found);
        return found;
    }
    static bool below(const Node* node, const Node* top) {
        for (node = node->parent; node && node != top;)
            node = node->parent;
        return node;
    }
    Node* nodeOf(const TreeItem* item) {
        for (Node* const node : all())
            if (node->item == item)
                return node;
        return nullptr;
    }
    void compare(const Node& node);

    // -- Changes to both.
    CString label() { return CString(chance_.pick({u"a", u"ab", u"B", u"abc", u"c", u"\u00C4b"})); }
    Node* someNode(bool orRoot) {
        const auto nodes = all();
        if (nodes.empty() || (orRoot && chance_.oneIn(5)))
            return orRoot ? &root_ : nullptr;
        return chance_.pick(nodes);
    }
    void insert(Node& parent);
    void remove(Node& node);
    void move(Node& node, Node& parent);
    void replace(Node& parent);
    void expandAll(Node& node, bool on);
    void setFilter(CString text);
    void unfiltered();
    void click(Node& node, Modifiers modifiers);
    void selectVisible(std::vector<Node*> nodes, bool adding);
    void dropHidden() {
        std::erase_if(selection_, [this](const Node* node) { return !shown(*node); });
    }
    void collapsed(Node& top);
    std::unique_ptr<Node> newNode(Node& parent, CString text) const {
        auto node = std::make_unique<Node>();
        node->parent = &parent;
        node->label = std::move(text);
        node->expanded = !filter_.empty();
        return node;
    }

    Random chance_;
    Node root_;
    CString filter_;
    std::vector<Node*> selection_;
    std::vector<Node*> unfilteredSelection_;
    bool chosen_ = false; // while there is a filter
    TreeControl control_{1};
    TreeMirror mirror_{control_};
};

void Changed::insert(Node& parent) {
    std::vector<TreeRow> rows(1 + chance_.below(3));
    const std::size_t place = chance_.below(parent.children.size() + 1);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        rows[i].label = label();
        parent.children.insert(
            parent.children.begin() + static_cast<std::ptrdiff_t>(place + i), newNode(parent, rows[i].label));
    }
    control_.insertRows(parent.item, place, std::move(rows));
    for (std::size_t i = 0; i < parent.children.size(); ++i)
        parent.children[i]->item = control_.child(parent.item, i);
}

void Changed::remove(Node& node) {
    for (auto* const nodes : {&selection_, &unfilteredSelection_})
        std::erase_if(*nodes, [&](const Node* each) { return each == &node || below(each, &node); });
    control_.remove(*node.item);
    Node& parent = *node.parent;
    std::erase_if(parent.children, [&](const auto& child) { return child.get() == &node; });
    dropHidden();
}

void Changed::move(Node& node, Node& parent) {
    const std::size_t place = chance_.below(parent.children.size() + 2);
    const bool possible = &parent != &node && !below(&parent, &node);
    EXPECT_EQ(control_.move(*node.item, parent.item, place), possible);
    if (!possible)
        return;
    auto& from = node.parent->children;
    const auto at =
        std::find_if(from.begin(), from.end(), [&](const auto& child) { return child.get() == &node; });
    auto taken = std::move(*at);
    from.erase(at);
    taken->parent = &parent;
    auto& to = parent.children;
    to.insert(to.begin() + static_cast<std::ptrdiff_t>(std::min(place, to.size())), std::move(taken));
    dropHidden();
}

void Changed::replace(Node& parent) {
    std::vector<TreeRow> rows(chance_.below(6));
    auto old = std::move(parent.children);
    parent.children.clear();
    for (TreeRow& row : rows) {
        row.label = label();
        const auto kept = std::find_if(
            old.begin(), old.end(), [&](const auto& node) { return node && node->label[0] == row.label[0]; });
        parent.children.push_back(kept == old.end() ? newNode(parent, row.label) : std::move(*kept));
        parent.children.back()->label = row.label;
    }
    for (const auto& gone : old)
        for (auto* const nodes : {&selection_, &unfilteredSelection_})
            std::erase_if(*nodes,
                [&](const Node* each) { return gone && (each == gone.get() || below(each, gone.get())); });
    control_.replaceChildren(parent.item, std::move(rows), firstLetter);
    for (std::size_t i = 0; i < parent.children.size(); ++i)
        if (!parent.children[i]->item)
            parent.children[i]->item = control_.child(parent.item, i);
    dropHidden();
}

void Changed::collapsed(Node& top) {
    for (Node* const node : std::vector<Node*>(selection_)) {
        Node* standIn = node;
        while (standIn != &top && standIn->parent && standIn->parent != &root_)
            standIn = standIn->parent;
        if (standIn == node || (&top != &root_ && standIn != &top))
            continue;
        std::erase(selection_, node);
        if (std::find(selection_.begin(), selection_.end(), standIn) == selection_.end())
            selection_.push_back(standIn);
    }
}

void Changed::expandAll(Node& node, bool on) {
    control_.expandAll(node.item, on);
    bool any = false;
    for (Node* const each : all())
        if (each == &node || below(each, &node)) {
            const bool becomes = on && !each->children.empty();
            any = any || each->expanded != becomes;
            each->expanded = becomes;
        }
    if (!on && any)
        collapsed(node);
}

void Changed::setFilter(CString text) {
    control_.setFilter(text);
    if (text == filter_)
        return;
    for (Node* const node : all()) {
        if (filter_.empty())
            node->unfiltered = node->expanded;
        node->expanded = !text.empty() || node->unfiltered;
    }
    if (std::exchange(filter_, std::move(text)).empty()) {
        unfilteredSelection_ = selection_;
        chosen_ = false;
    }
    dropHidden();
    if (filter_.empty())
        unfiltered();
}

void Changed::unfiltered() {
    if (!chosen_ || selection_.empty()) {
        selection_ = unfilteredSelection_;
        return;
    }
    auto revealed = selection_;
    revealed.push_back(nodeOf(control_.focus()));
    for (Node* const node : revealed)
        for (Node* above = node ? node->parent : nullptr; above && above->parent; above = above->parent)
            above->expanded = true;
}

void Changed::selectVisible(std::vector<Node*> nodes, bool adding) {
    const auto before = selection_;
    if (!adding)
        selection_.clear();
    for (Node* const node : nodes)
        if (std::find(selection_.begin(), selection_.end(), node) == selection_.end())
            selection_.push_back(node);
    chosen_ = chosen_ || before != selection_;
}

void Changed::click(Node& node, Modifiers modifiers) {
    Node* const anchor = nodeOf(control_.anchor());
    control_.click(node.item, modifiers);
    const auto visible = all(true);
    const auto to = std::find(visible.begin(), visible.end(), &node);
    const auto from = std::find(visible.begin(), visible.end(), anchor);
    if (!shown(node))
        return;
    EXPECT_EQ(control_.focus(), node.item);
    if (modifiers.shift && to != visible.end() && from != visible.end()) {
        std::vector<Node*> range(std::min(from, to), std::max(from, to) + 1);
        if (to < from)
            std::reverse(range.begin(), range.end());
        selectVisible(range, modifiers.ctrl);
    } else if (modifiers == Modifiers{true, false} && std::erase(selection_, &node) > 0) {
        chosen_ = true;
    } else {
        selectVisible({&node}, modifiers.ctrl);
    }
}

const char* Changed::change() {
    Node* const node = someNode(false);
    if (!node || chance_.oneIn(4))
        return insert(*someNode(true)), "insert";
    switch (chance_.below(11)) {
    case 0:
        return remove(*node), "remove";
    case 1:
    case 2:
        return move(*node, *someNode(true)), "move";
    case 3:
        return replace(*someNode(true)), "replace";
    case 4:
        node->label = label();
        control_.setLabel(*node->item, node->label);
        return dropHidden(), "relabel";
    case 5:
        return setFilter(CString(chance_.pick({u"", u"", u"b", u"BC", u"\u00E4", u"x"}))), "filter";
    case 6:
        node->expanded = !node->expanded;
        control_.expand(*node->item, node->expanded);
        if (!node->expanded)
            collapsed(*node);
        return "expand";
    case 7:
        return expandAll(*someNode(true), chance_.oneIn(2)), "expand all";
    case 8:
        control_.selectAll();
        return selectVisible(all(true), false), "select all";
    default:
        return click(*node, {chance_.oneIn(2), chance_.oneIn(2)}), "click";
    }
}

void Changed::compare(const Node& node) {
    ASSERT_EQ(control_.childCount(node.item), node.children.size());
    std::size_t shownRow = 0;
    for (std::size_t row = 0; row < node.children.size(); ++row) {
        const Node& child = *node.children[row];
        ASSERT_EQ(control_.child(node.item, row), child.item);
        EXPECT_EQ(child.item->row(), row);
        EXPECT_EQ(child.item->parent(), node.item);
        EXPECT_EQ(child.item->label(), child.label);
        EXPECT_EQ(child.item->expanded(), child.expanded);
        EXPECT_EQ(child.item->shownRow(), shownRow);
        ASSERT_EQ(child.item->shown(), shown(child));
        if (child.item->shown())
            EXPECT_EQ(control_.shownChild(node.item, shownRow++), child.item);
        compare(child);
    }
    EXPECT_EQ(control_.shownChildCount(node.item), shownRow);
}

void Changed::check() {
    compare(root_);
    mirror_.check();
    std::vector<TreeItem*> selected;
    for (const Node* const node : selection_)
        selected.push_back(node->item);
    EXPECT_EQ(control_.selectionCount(), selected.size());
    EXPECT_EQ(control_.selection(), selected);
    for (const Node* const node : all())
        EXPECT_EQ(node->item->selected(),
            std::find(selection_.begin(), selection_.end(), node) != selection_.end());
}

TEST(TreeRandom, changes_inAnySequence_agreeWithPlainArraysAndWithWhatViewsAreTold) {
    for (std::uint64_t seed = 1; seed <= 120; ++seed) {
        Changed changed(seed);
        for (int step = 0; step < 60; ++step) {
            const char* const what = changed.change();
            changed.check();
            ASSERT_FALSE(testing::Test::HasFailure()) << what << ", seed " << seed << ", step " << step;
        }
    }
}

} // namespace
} // namespace ryv::test
