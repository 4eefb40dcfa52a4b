// The walks that tree_rows.h declares.
#include "toolkit/tree_rows.h"

namespace ryv {

namespace {

std::size_t depthOf(const TreeItem& item) noexcept {
    std::size_t depth = 0;
    for (const TreeItem* at = item.parent(); at; at = at->parent())
        ++depth;
    return depth;
}

const TreeItem& ancestor(const TreeItem& item, std::size_t levels) noexcept {
    const TreeItem* at = &item;
    for (; levels > 0; --levels)
        at = at->parent();
    return *at;
}

} // namespace

bool isWithin(const TreeItem& item, const TreeItem& top) noexcept {
    const TreeItem* at = &item;
    while (at && at != &top)
        at = at->parent();
    return at;
}

bool precedes(const TreeItem& a, const TreeItem& b) noexcept {
    const std::size_t depthOfA = depthOf(a);
    const std::size_t depthOfB = depthOf(b);
    const TreeItem* above = &ancestor(a, depthOfA > depthOfB ? depthOfA - depthOfB : 0);
    const TreeItem* beside = &ancestor(b, depthOfB > depthOfA ? depthOfB - depthOfA : 0);
    if (above == beside)
        return depthOfA < depthOfB;
    while (above->parent() != beside->parent()) {
        above = above->parent();
        beside = beside->parent();
    }
    return above->row() < beside->row();
}

TreeItem* nextPast(const TreeItem& item, const TreeItem* top, TreeCount which) noexcept {
    for (const TreeItem* at = &item; at && at != top; at = at->parent())
        if (TreeItem* const sibling = at->next(which))
            return sibling;
    return nullptr;
}

TreeItem* nextInTree(const TreeItem& item, const TreeItem* top, TreeCount which) noexcept {
    TreeItem* const child = item.firstChild(which);
    return child ? child : nextPast(item, top, which);
}

TreeItem* nextVisible(const TreeItem& item) noexcept {
    return item.expanded() ? nextInTree(item, nullptr, TreeCount::shown)
                           : nextPast(item, nullptr, TreeCount::shown);
}

TreeItem* lastVisibleWithin(TreeItem& item) noexcept {
    TreeItem* at = &item;
    while (at->expanded() && at->shownChildCount() > 0)
        at = at->lastChild(TreeCount::shown);
    return at;
}

TreeItem* previousVisible(const TreeItem& item) noexcept {
    TreeItem* const sibling = item.previous(TreeCount::shown);
    return sibling ? lastVisibleWithin(*sibling) : item.parent();
}

bool isExposed(const TreeItem& item) noexcept {
    bool open = item.shown();
    for (const TreeItem* at = item.parent(); at && open; at = at->parent())
        open = at->expanded();
    return open;
}

} // namespace ryv
