#include "toolkit/tree_order.h"

#include "toolkit/tree_item.h"

namespace ryv {

namespace {

/// One side of the search tree and the other, so that every walk is written once for both directions.
using Side = TreeItem* TreeOrderLinks::*;
constexpr Side left = &TreeOrderLinks::left;
constexpr Side right = &TreeOrderLinks::right;

constexpr Side other(Side side) noexcept {
    return side == left ? right : left;
}

} // namespace

/// The parts of an item that orders work on.
struct TreeOrderAccess {
    static TreeOrderLinks& links(TreeItem& item) noexcept { return item.links_; }
    static const TreeOrderLinks& links(const TreeItem& item) noexcept { return item.links_; }
    static void setShown(TreeItem& item, bool shown) noexcept { item.shown_ = shown; }
};

namespace {

TreeOrderLinks& links(TreeItem& item) noexcept {
    return TreeOrderAccess::links(item);
}

const TreeOrderLinks& links(const TreeItem& item) noexcept {
    return TreeOrderAccess::links(item);
}

std::uint32_t countOf(const TreeItem* item, TreeCount which) noexcept {
    return item ? links(*item).counts[static_cast<std::size_t>(which)] : 0;
}

std::uint32_t own(const TreeItem& item, TreeCount which) noexcept {
    return which == TreeCount::all || item.shown() ? 1u : 0u;
}

void recount(TreeItem& item) noexcept {
    TreeOrderLinks& its = links(item);
    for (const TreeCount which : {TreeCount::all, TreeCount::shown})
        its.counts[static_cast<std::size_t>(which)] =
            own(item, which) + countOf(its.left, which) + countOf(its.right, which);
}

/// Any number that has nothing to do with the sequence in which items are made.
std::uint64_t priority(const TreeItem& item) noexcept {
    auto mixed = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(&item));
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9u;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBu;
    return mixed ^ (mixed >> 31);
}

/// The outermost counting item on a side of the tree below `item`, which holds one.
TreeItem* outermost(TreeItem* item, Side side, TreeCount which) noexcept {
    for (;;) {
        if (countOf(links(*item).*side, which) > 0)
            item = links(*item).*side;
        else if (own(*item, which))
            return item;
        else
            item = links(*item).*other(side);
    }
}

TreeItem* neighbour(const TreeItem& item, Side side, TreeCount which) noexcept {
    if (countOf(links(item).*side, which) > 0)
        return outermost(links(item).*side, other(side), which);
    const TreeItem* below = &item;
    for (TreeItem* up = links(item).up; up; below = up, up = links(*up).up) {
        if (links(*up).*side == below)
            continue;
        if (own(*up, which))
            return up;
        if (countOf(links(*up).*side, which) > 0)
            return outermost(links(*up).*side, other(side), which);
    }
    return nullptr;
}

} // namespace

std::size_t TreeOrder::size(TreeCount which) const noexcept {
    return countOf(root_, which);
}

TreeItem* TreeOrder::at(std::size_t place, TreeCount which) const noexcept {
    if (place >= size(which))
        return nullptr;
    TreeItem* item = root_;
    for (;;) {
        const std::size_t before = countOf(links(*item).left, which);
        if (place < before) {
            item = links(*item).left;
            continue;
        }
        place -= before;
        if (place < own(*item, which))
            return item;
        place -= own(*item, which);
        item = links(*item).right;
    }
}

TreeItem* TreeOrder::first(TreeCount which) const noexcept {
    return size(which) > 0 ? outermost(root_, left, which) : nullptr;
}

TreeItem* TreeOrder::last(TreeCount which) const noexcept {
    return size(which) > 0 ? outermost(root_, right, which) : nullptr;
}

std::size_t TreeOrder::countBefore(const TreeItem& item, TreeCount which) noexcept {
    std::size_t count = countOf(links(item).left, which);
    const TreeItem* below = &item;
    for (const TreeItem* up = links(item).up; up; below = up, up = links(*up).up)
        if (links(*up).right == below)
            count += countOf(links(*up).left, which) + own(*up, which);
    return count;
}

TreeItem* TreeOrder::next(const TreeItem& item, TreeCount which) noexcept {
    return neighbour(item, right, which);
}

TreeItem* TreeOrder::previous(const TreeItem& item, TreeCount which) noexcept {
    return neighbour(item, left, which);
}

void TreeOrder::insert(std::size_t place, TreeItem& item) noexcept {
    links(item) = TreeOrderLinks();
    recount(item);
    TreeItem** hook = &root_;
    while (TreeItem* const up = *hook) {
        TreeOrderLinks& its = links(*up);
        for (const TreeCount which : {TreeCount::all, TreeCount::shown})
            its.counts[static_cast<std::size_t>(which)] += own(item, which);
        links(item).up = up;
        const std::size_t before = countOf(its.left, TreeCount::all);
        const bool toTheRight = place > before;
        place -= toTheRight ? before + 1 : 0;
        hook = toTheRight ? &its.right : &its.left;
    }
    *hook = &item;
    while (links(item).up && priority(item) < priority(*links(item).up))
        rotateUp(item);
}

void TreeOrder::erase(TreeItem& item) noexcept {
    while (links(item).left && links(item).right) {
        TreeItem& leftOne = *links(item).left;
        TreeItem& rightOne = *links(item).right;
        rotateUp(priority(leftOne) < priority(rightOne) ? leftOne : rightOne);
    }
    for (TreeItem* up = links(item).up; up; up = links(*up).up)
        for (const TreeCount which : {TreeCount::all, TreeCount::shown})
            links(*up).counts[static_cast<std::size_t>(which)] -= own(item, which);
    replace(item, links(item).left ? links(item).left : links(item).right);
    links(item) = TreeOrderLinks();
}

void TreeOrder::setShown(TreeItem& item, bool shown) noexcept {
    if (item.shown() == shown)
        return;
    TreeOrderAccess::setShown(item, shown);
    for (TreeItem* at = &item; at; at = links(*at).up) {
        std::uint32_t& count = links(*at).counts[static_cast<std::size_t>(TreeCount::shown)];
        count = shown ? count + 1 : count - 1;
    }
}

void TreeOrder::resetShown(TreeItem& item, bool shown) noexcept {
    TreeOrderAccess::setShown(item, shown);
    TreeOrderLinks& its = links(item);
    its.counts[static_cast<std::size_t>(TreeCount::shown)] =
        shown ? its.counts[static_cast<std::size_t>(TreeCount::all)] : 0;
}

/// Makes an item the parent of its parent; the order stays.
void TreeOrder::rotateUp(TreeItem& item) noexcept {
    TreeItem& up = *links(item).up;
    const Side side = links(up).left == &item ? left : right;
    TreeItem* const between = links(item).*other(side);
    replace(up, &item);
    links(up).*side = between;
    if (between)
        links(*between).up = &up;
    links(item).*other(side) = &up;
    links(up).up = &item;
    recount(up);
    recount(item);
}

/// Hangs `by` where `item` hung.
void TreeOrder::replace(TreeItem& item, TreeItem* by) noexcept {
    TreeItem* const up = links(item).up;
    if (by)
        links(*by).up = up;
    if (!up)
        root_ = by;
    else if (links(*up).left == &item)
        links(*up).left = by;
    else
        links(*up).right = by;
}

} // namespace ryv
