#include "toolkit/tree_rows.h"

namespace ryv {

TreeRows::~TreeRows() {
    std::vector<TreeItem*> all;
    for (TreeItem* item = root_.firstChild(); item; item = item->next())
        collectLeaving(*item, all);
    destroy(all);
}

void TreeRows::link(TreeItem& item, TreeItem& parent, std::size_t place) noexcept {
    item.parent_ = &parent;
    parent.children_.insert(place, item);
}

void TreeRows::unlink(TreeItem& item) noexcept {
    item.parent_->children_.erase(item);
    item.parent_ = nullptr;
}

void TreeRows::collectLeaving(TreeItem& top, std::vector<TreeItem*>& leaving) {
    TreeItem* at = &top;
    for (;;) {
        while (TreeItem* const child = at->firstChild())
            at = child;
        for (;;) {
            at->leaving_ = true;
            leaving.push_back(at);
            if (at == &top)
                return;
            TreeItem* const sibling = at->next();
            at = sibling ? sibling : at->parent_;
            if (sibling)
                break;
        }
    }
}

void TreeRows::destroy(const std::vector<TreeItem*>& items) noexcept {
    for (TreeItem* const item : items)
        delete item;
}

TreeItem* TreeRows::topVanishing(TreeItem& parent, std::size_t losing) const noexcept {
    TreeItem* top = nullptr;
    for (TreeItem* at = &parent; losing > 0 && !isRoot(*at); at = at->parent_, losing = 1) {
        if (at->matches_ || at->shownChildCount() != losing)
            break;
        top = at;
    }
    return top;
}

TreeItem* TreeRows::topHidden(TreeItem& parent) const noexcept {
    TreeItem* top = nullptr;
    for (TreeItem* at = &parent; !at->shown_; at = at->parent_)
        top = at;
    return top;
}

void TreeRows::showUpwards(TreeItem& item) noexcept {
    for (TreeItem* at = &item; !at->shown_; at = at->parent_)
        TreeOrder::setShown(*at, true);
}

std::size_t TreeRows::shownBefore(const TreeItem& parent, std::size_t place) noexcept {
    const TreeItem* const there = parent.child(place);
    return there ? there->shownRow() : parent.shownChildCount();
}

} // namespace ryv
