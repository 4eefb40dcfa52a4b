// The rows of a tree control as a store: owned, linked, walked. Whom it concerns is told by the control.
#pragma once

#include "toolkit/tree_item.h"

#include <vector>

namespace ryv {

/// Owns all rows. They hang below a root that is never handed out. Depth costs no stack anywhere.
class TreeRows {
public:
    TreeRows() : root_(TreeRow()) { root_.shown_ = true; }
    TreeRows(const TreeRows&) = delete;
    TreeRows& operator=(const TreeRows&) = delete;
    ~TreeRows();

    TreeItem& root() noexcept { return root_; }
    const TreeItem& root() const noexcept { return root_; }
    bool isRoot(const TreeItem& item) const noexcept { return &item == &root_; }

    /// The root for null, and the other way round.
    TreeItem& under(TreeItem* parent) noexcept { return parent ? *parent : root_; }
    TreeItem* handle(TreeItem& item) const noexcept { return isRoot(item) ? nullptr : &item; }

    /// A row that hangs nowhere yet. It has to be linked before anything else happens to it.
    static TreeItem& make(TreeRow row) { return *new TreeItem(std::move(row)); }
    static void link(TreeItem& item, TreeItem& parent, std::size_t place) noexcept;
    static void unlink(TreeItem& item) noexcept;

    /// Appends the row and all below it, children before their parents, and marks them as leaving.
    static void collectLeaving(TreeItem& top, std::vector<TreeItem*>& leaving);
    static void destroy(const std::vector<TreeItem*>& items) noexcept;

    /// The outermost row, from `parent` upwards, that no longer passes the filter once `parent` loses so many
    /// of its shown children; null when all of them still do.
    TreeItem* topVanishing(TreeItem& parent, std::size_t losing) const noexcept;

    /// The outermost row, from `parent` upwards, that does not pass the filter yet, or null.
    TreeItem* topHidden(TreeItem& parent) const noexcept;

    /// Shows a row and all above it that are not shown.
    static void showUpwards(TreeItem& item) noexcept;

    /// How many shown children stand before a place that counts all of them.
    static std::size_t shownBefore(const TreeItem& parent, std::size_t place) noexcept;

private:
    TreeItem root_;
};

/// Whether `item` is `top` or stands anywhere below it. Costs the depth of `item`.
bool isWithin(const TreeItem& item, const TreeItem& top) noexcept;

/// Whether `a` comes before `b` when the tree is read from top to bottom; they are different rows.
bool precedes(const TreeItem& a, const TreeItem& b) noexcept;

/// The row that follows in reading order, children first, or null. `top` limits the walk to what is below it.
TreeItem* nextInTree(const TreeItem& item, const TreeItem* top, TreeCount which = TreeCount::all) noexcept;

/// The same, without what is below `item`.
TreeItem* nextPast(const TreeItem& item, const TreeItem* top, TreeCount which = TreeCount::all) noexcept;

// What can be seen by scrolling: rows that pass the filter and whose parents are all expanded. Null at the
// ends.
TreeItem* nextVisible(const TreeItem& item) noexcept;
TreeItem* previousVisible(const TreeItem& item) noexcept;
TreeItem* lastVisibleWithin(TreeItem& item) noexcept;
bool isExposed(const TreeItem& item) noexcept;

} // namespace ryv
