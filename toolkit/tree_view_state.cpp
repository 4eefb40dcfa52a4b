// What a tree control shows: expanded rows, the row at the upper edge, and where the user's place goes when
// rows leave.
#include "toolkit/tree_control.h"
#include "toolkit/tree_item_watch.h"

#include <unordered_map>

namespace ryv {

namespace {

/// Who stands in for rows that are collapsed away. Each row above them is looked at once, however many ask.
class StandIns {
public:
    /// Of all rows, when there are no tops. None of them stands below another.
    explicit StandIns(const std::vector<TreeItem*>& tops) {
        for (TreeItem* const top : tops)
            known_.emplace(top, top);
        all_ = tops.empty();
    }

    /// The top that the row is below, or the row at the top of the tree when there are none; else the row
    /// itself.
    TreeItem* of(TreeItem* item) {
        if (!item)
            return nullptr;
        TreeItem* at = item;
        while (at->parent() && !known_.contains(at))
            at = at->parent();
        const auto found = known_.find(at);
        TreeItem* const standIn = found != known_.end() ? found->second : all_ ? at : nullptr;
        for (TreeItem* passed = item; passed != at; passed = passed->parent())
            known_.emplace(passed, standIn);
        return standIn ? standIn : item;
    }

private:
    bool all_;
    std::unordered_map<const TreeItem*, TreeItem*> known_; // null: nobody stands in
};

} // namespace

void TreeControl::expand(TreeItem& item, bool on) {
    setExpanded(item, on);
    settle();
}

void TreeControl::setExpanded(TreeItem& item, bool on) {
    if (item.expanded_ == on)
        return;
    item.expanded_ = on;
    if (!on)
        collapseInto({&item});
    observers_.tell([&](TreeObserver& o) { o.expansionChanged(item); });
}

void TreeControl::expandAll(TreeItem* item, bool on) {
    TreeItem* const first = item ? item : rows_.root().firstChild();
    bool any = false;
    for (TreeItem* at = first; at; at = nextInTree(*at, item)) {
        const bool becomes = on && at->childCount() > 0;
        any = any || at->expanded_ != becomes;
        at->expanded_ = becomes;
    }
    if (!any)
        return;
    if (!on)
        collapseInto(item ? std::vector{item} : std::vector<TreeItem*>());
    observers_.tell([&](TreeObserver& o) { o.manyExpansionsChanged(item); });
    settle();
}

/// After rows, or all of them, collapsed: what was below one is replaced by itself, or by the row at the top.
void TreeControl::collapseInto(const std::vector<TreeItem*>& tops) {
    StandIns standIns(tops);
    const std::vector<TreeItem*> selected = selection_.items();
    for (TreeItem* const item : selected)
        if (TreeItem* const standIn = standIns.of(item); standIn != item) {
            selection_.remove(*item);
            selection_.add(*standIn);
            pending_.selection = true;
        }
    if (standIns.of(edited_) != edited_)
        endEdit();
    if (standIns.of(dropTarget_) != dropTarget_)
        clearDropPlace();
    changeFocus(standIns.of(focus_));
    anchor_ = standIns.of(anchor_);
    if (TreeItem* const standIn = standIns.of(firstVisible_); standIn != firstVisible_) {
        firstVisible_ = standIn;
        pending_.firstVisible = true;
    }
}

void TreeControl::ensureVisible(TreeItem& item) {
    if (!item.shown_)
        return;
    for (TreeItem* at = item.parent(); at; at = at->parent())
        setExpanded(*at, true);
    observers_.tell([&](TreeObserver& o) { o.revealed(item); });
}

void TreeControl::setFirstVisible(TreeItem* item) {
    if (item == firstVisible_ || (item && !item->shown_))
        return;
    firstVisible_ = item;
    pending_.firstVisible = true;
    settle();
}

bool TreeControl::isGone(const TreeItem* item) const noexcept {
    return item && (item->leaving_ || !item->shown_);
}

/// Rows were marked as leaving, or are no longer shown: what points to them points to `refuge` or nowhere.
/// The selection has been seen to.
void TreeControl::leave(TreeItem* refuge) {
    forgetWatches();
    if (isGone(dropTarget_)) {
        clearDropPlace();
        dropPlaceLost_ = true;
    }
    if (isGone(focus_))
        changeFocus(refuge);
    if (isGone(anchor_))
        anchor_ = focus_;
    if (isGone(firstVisible_)) {
        firstVisible_ = refuge;
        pending_.firstVisible = true;
    }
}

void TreeControl::forgetWatches() {
    for (TreeItemWatch* watch = watches_; watch; watch = watch->next_)
        if (watch->item_ && watch->item_->leaving_)
            watch->item_ = nullptr;
}

} // namespace ryv
