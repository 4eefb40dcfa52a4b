// Moving rows of a tree control.
#include "toolkit/tree_control.h"

#include <algorithm>

namespace ryv {

bool TreeControl::move(TreeItem& item, TreeItem* parent, std::size_t row) {
    const bool moved = moveRow(item, parent, row);
    settle();
    return moved;
}

bool TreeControl::moveRow(TreeItem& item, TreeItem* parent, std::size_t row) {
    if (parent && isWithin(*parent, item))
        return false;
    TreeItem& to = rows_.under(parent);
    const bool stays = item.parent_ == &to;
    row = std::min(row, to.childCount() - (stays ? 1u : 0u));
    if (stays && item.row() == row)
        return true;
    const bool hides = !stays && item.shown_ && rows_.topVanishing(*item.parent_, 1);
    const bool shows = item.shown_ && rows_.topHidden(to);
    if (!hides && !shows) {
        place(item, to, row);
        return true;
    }
    if (edited_) { // whose label may match by now, or no longer
        endEdit();
        return moveRow(item, parent, row);
    }
    placeAndReset(item, to, row);
    return true;
}

/// Which rows pass the filter does not change.
void TreeControl::place(TreeItem& item, TreeItem& parent, std::size_t row) {
    const auto relink = [&] {
        TreeRows::unlink(item);
        TreeRows::link(item, parent, row);
    };
    if (!item.shown_)
        return relink();
    // The place as it is numbered while the row still counts.
    const bool passes = item.parent_ == &parent && item.row() < row;
    const std::size_t shownRow = TreeRows::shownBefore(parent, passes ? row + 1 : row) - (passes ? 1u : 0u);
    observers_.tellAround([&](TreeObserver& o) { o.aboutToMove(item, rows_.handle(parent), shownRow); },
        relink, [](TreeObserver& o) { o.moved(); });
}

/// The row takes some that it held into view along, or leaves some behind that were shown for its sake.
void TreeControl::placeAndReset(TreeItem& item, TreeItem& parent, std::size_t row) {
    observers_.tellAround([](TreeObserver& o) { o.aboutToReset(); },
        [&] {
            TreeItem& from = *item.parent_;
            TreeItem* const top = rows_.topVanishing(from, 1);
            TreeRows::unlink(item);
            for (TreeItem* at = &from; top && at != top->parent_; at = at->parent_)
                TreeOrder::setShown(*at, false);
            TreeRows::link(item, parent, row);
            TreeRows::showUpwards(parent);
            leaveHidden();
        },
        [](TreeObserver& o) { o.reset(); });
}

} // namespace ryv
