// Selecting rows of a tree control, by the program and with the mouse.
#include "toolkit/tree_control.h"
#include "toolkit/tree_item_watch.h"

#include <algorithm>

namespace ryv {

bool TreeControl::changeFocus(TreeItem* item) noexcept {
    if (item == focus_)
        return false;
    focus_ = item;
    pending_.focus = true;
    return true;
}

void TreeControl::setFocus(TreeItem* item) {
    if (item && !item->shown_)
        return;
    changeFocus(item);
    anchor_ = item;
    settle();
}

void TreeControl::select(TreeItem& item, bool on) {
    if (item.shown_)
        chosen(on ? selection_.add(item) : selection_.remove(item));
    settle();
}

void TreeControl::setSelection(const std::vector<TreeItem*>& items) {
    std::vector<TreeItem*> shown = items;
    std::erase_if(shown, [](const TreeItem* item) { return !item->shown_; });
    chosen(selection_.assign(shown));
    if (!shown.empty())
        changeFocus(anchor_ = shown.back());
    settle();
}

void TreeControl::restoreSelection(const std::vector<TreeItem*>& items, TreeItem* focus) {
    std::vector<TreeItem*> shown = items;
    std::erase_if(shown, [](const TreeItem* item) { return !item->shown_; });
    pending_.selection |= selection_.assign(shown);
    if (focus && focus->shown_)
        changeFocus(focus);
    settle();
}

void TreeControl::selectAll() {
    std::vector<TreeItem*> all;
    for (TreeItem* item = rows_.root().firstChild(TreeCount::shown); item; item = nextVisible(*item))
        all.push_back(item);
    chosen(selection_.assign(all));
    settle();
}

void TreeControl::selectOnly(TreeItem& item) {
    chosen(selection_.assign({&item}));
    changeFocus(&item);
    anchor_ = &item;
}

/// The rows from one to the other, in that direction; both can be seen, or the second one comes alone.
std::vector<TreeItem*> TreeControl::range(TreeItem& from, TreeItem& to) const {
    if (&from == &to || !isExposed(to))
        return {&to};
    const bool down = precedes(from, to);
    TreeItem* const last = down ? &to : &from;
    std::vector<TreeItem*> rows;
    for (TreeItem* item = down ? &from : &to; item != last; item = nextVisible(*item))
        rows.push_back(item);
    rows.push_back(last);
    if (!down)
        std::reverse(rows.begin(), rows.end());
    return rows;
}

void TreeControl::selectRange(TreeItem& to, bool adding) {
    if (!anchor_ || !isExposed(*anchor_))
        anchor_ = &to;
    const std::vector<TreeItem*> rows = range(*anchor_, to);
    if (!adding)
        chosen(selection_.assign(rows));
    else
        for (TreeItem* const item : rows)
            chosen(selection_.add(*item));
    changeFocus(&to);
}

void TreeControl::click(TreeItem* item, Modifiers modifiers) {
    if (!isEnabled() || (item && !item->shown_))
        return;
    if (!item) {
        if (modifiers == Modifiers())
            chosen(selection_.clear());
    } else if (modifiers.shift) {
        selectRange(*item, modifiers.ctrl);
    } else if (modifiers.ctrl) {
        chosen(item->selected() ? selection_.remove(*item) : selection_.add(*item));
        changeFocus(item);
        anchor_ = item;
    } else {
        selectOnly(*item);
    }
    pending_.byUser = true;
    settle();
}

void TreeControl::doubleClick(TreeItem& item) {
    if (isEnabled())
        onDoubleClick(item);
}

void TreeControl::clickLabel(TreeItem& item) {
    if (isEnabled() && editOnClick_ && item.selected() && selection_.count() == 1)
        editLabel(item);
}

void TreeControl::contextMenu(TreeItem* item, TreePoint point) {
    if (!isEnabled())
        return;
    if (!item) {
        click(nullptr);
        return onContextMenu(nullptr, point);
    }
    const TreeItemWatch watch(*this, *item);
    if (!item->selected())
        click(item);
    else if (changeFocus(item))
        settle();
    if (watch.item())
        onContextMenu(item, point);
}

} // namespace ryv
