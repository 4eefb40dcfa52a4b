// How rows come and go with the filter of a tree control.
#include "toolkit/tree_control.h"

#include <algorithm>

namespace ryv {

namespace {

/// The row itself or the nearest above it that passes the filter, or null.
TreeItem* nearestShown(TreeItem* item) noexcept {
    while (item && !item->shown())
        item = item->parent();
    return item;
}

} // namespace

void TreeControl::setFilter(CString text) {
    if (text == filter_.text())
        return;
    endEdit();
    observers_.tellAround([](TreeObserver& o) { o.aboutToReset(); },
        [&] {
            const bool was = filter_.isActive();
            filter_ = TreeFilter(std::move(text));
            applyFilter(was);
            leaveHidden();
        },
        [](TreeObserver& o) { o.reset(); });
    settle();
}

/// First nobody is shown, or everybody; then those that match, with all above them.
void TreeControl::applyFilter(bool wasActive) {
    const bool all = !filter_.isActive();
    for (TreeItem* at = rows_.root().firstChild(); at; at = nextInTree(*at, nullptr)) {
        if (!wasActive)
            at->unfilteredExpanded_ = at->expanded_;
        at->expanded_ = !all || at->unfilteredExpanded_;
        at->matches_ = filter_.matches(at->label_);
        TreeOrder::resetShown(*at, all);
    }
    if (all)
        return;
    for (TreeItem* at = rows_.root().firstChild(); at; at = nextInTree(*at, nullptr))
        if (at->matches_)
            TreeRows::showUpwards(*at);
}

/// After many rows may have been hidden at once.
void TreeControl::leaveHidden() {
    const std::vector<TreeItem*> selected = selection_.items();
    for (TreeItem* const item : selected)
        if (!item->shown_ && selection_.remove(*item))
            pending_.selection = true;
    if (isGone(firstVisible_)) {
        firstVisible_ = nearestShown(firstVisible_);
        pending_.firstVisible = true;
    }
    leave(nearestShown(focus_));
}

/// The label of a row is another one: it may come, go, or stay and look different.
void TreeControl::refilter(TreeItem& item) {
    const bool matches = filter_.matches(item.label_);
    if (item.shown_ && !matches && item.shownChildCount() == 0)
        return hide(item);
    if (!item.shown_ && matches)
        return tellInsertion(*item.parent_, item.shownRow(), 1, [&] {
            item.matches_ = true;
            TreeRows::showUpwards(item);
        });
    item.matches_ = matches;
    tellChanged(item);
}

/// Hides a row that no longer matches, and those above it that were shown for its sake.
void TreeControl::hide(TreeItem& item) {
    item.matches_ = false;
    tellRemoval({&item}, 1, [&] { hideUpTo(item, item); });
}

/// From a row up to one above it.
void TreeControl::hideUpTo(TreeItem& item, const TreeItem& top) {
    for (TreeItem* at = &item;; at = at->parent_) {
        TreeOrder::setShown(*at, false);
        if (selection_.remove(*at))
            pending_.selection = true;
        if (at == &top)
            return;
    }
}

} // namespace ryv
