// How rows come and go with the filter of a tree control.
#include "toolkit/tree_control.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

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
    bool reveals = false;
    observers_.tellAround([](TreeObserver& o) { o.aboutToReset(); },
        [&] {
            const bool was = filter_.isActive();
            filter_ = TreeFilter(std::move(text));
            if (!was && filter_.isActive())
                rememberView();
            applyFilter(was);
            leaveHidden();
            reveals = was && !filter_.isActive() && chosenWhileFiltered_ && selection_.count() > 0;
            if (reveals)
                revealSelection();
            else if (was && !filter_.isActive())
                restoreView();
        },
        [](TreeObserver& o) { o.reset(); });
    if (reveals) { // from where the view stood
        observers_.tell([this](TreeObserver& o) { o.firstVisibleChanged(firstVisible_); });
        if (focus_)
            observers_.tell([this](TreeObserver& o) { o.revealed(*focus_); });
        pending_.firstVisible = false;
    }
    settle();
}

void TreeControl::rememberView() {
    beforeFilter_.keepSelection(selection_.items());
    beforeFilter_.focus = focus_;
    beforeFilter_.anchor = anchor_;
    beforeFilter_.firstVisible = firstVisible_;
    chosenWhileFiltered_ = false;
}

void TreeControl::remember(TreeItem& item) {
    if (filter_.isActive())
        beforeFilter_.add(item);
}

/// Rows that are gone leave what has taken their place.
void TreeControl::restoreView() {
    const TreeFilterMemory before = std::exchange(beforeFilter_, {});
    if (selection_.assign(before.selection()))
        pending_.selection = true;
    if (before.focus)
        changeFocus(before.focus);
    if (before.anchor)
        anchor_ = before.anchor;
    if (before.firstVisible) {
        firstVisible_ = before.firstVisible;
        pending_.firstVisible = true;
    }
}

/// Each row above is expanded once, however many are selected below it.
void TreeControl::revealSelection() {
    if (TreeItem* const first = std::exchange(beforeFilter_, {}).firstVisible)
        firstVisible_ = first;
    std::unordered_set<const TreeItem*> seen;
    const auto expandAbove = [&seen](TreeItem* at) {
        for (; at && seen.insert(at).second; at = at->parent())
            at->expanded_ = true;
    };
    for (TreeItem* const item : selection_.items())
        expandAbove(item->parent());
    if (focus_)
        expandAbove(focus_->parent());
}

/// The user or the program selects.
void TreeControl::chosen(bool differs) noexcept {
    pending_.selection |= differs;
    chosenWhileFiltered_ |= differs;
}

CString TreeControl::searchText(const TreeItem& item) const {
    return item.label_;
}

bool TreeControl::passes(const TreeItem& item) const {
    return !filter_.isActive() || filter_.matches(searchText(item));
}

/// What a view shows or the filter looks at is different now. A view that edits the label would overwrite
/// what the user types.
void TreeControl::relabelled(TreeItem& item) {
    if (&item == edited_)
        changedWhileEdited_ = true;
    else
        refilter(item);
}

/// First nobody is shown, or everybody; then those that match, with all above them.
void TreeControl::applyFilter(bool wasActive) {
    const bool all = !filter_.isActive();
    for (TreeItem* at = rows_.root().firstChild(); at; at = nextInTree(*at, nullptr)) {
        if (!wasActive)
            at->unfilteredExpanded_ = at->expanded_;
        at->expanded_ = !all || at->unfilteredExpanded_;
        at->matches_ = passes(*at);
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

/// The row may come, go, or stay and look different.
void TreeControl::refilter(TreeItem& item) {
    const bool matches = passes(item);
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
