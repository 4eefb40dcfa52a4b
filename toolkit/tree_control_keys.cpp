// The keys of a tree control.
#include "toolkit/tree_control.h"

#include "base/fold.h"

namespace ryv {

bool TreeControl::key(TreeKeyCode code, Modifiers modifiers) {
    if (!isEnabled())
        return false;
    if (modifiers.alt)
        return onKey(code, modifiers);
    switch (code) {
    case TreeKeyCode::up:
    case TreeKeyCode::down:
    case TreeKeyCode::home:
    case TreeKeyCode::end:
    case TreeKeyCode::pageUp:
    case TreeKeyCode::pageDown:
        if (TreeItem* const target = keyTarget(code)) {
            moveFocus(*target, modifiers);
            return true;
        }
        return false;
    case TreeKeyCode::left:
    case TreeKeyCode::right:
        return keyAcross(code == TreeKeyCode::right, modifiers);
    case TreeKeyCode::space:
        if (!focus_)
            return false;
        click(focus_, modifiers);
        return true;
    case TreeKeyCode::edit:
        return selection_.count() == 1 && editLabel(*selection().front());
    case TreeKeyCode::selectAll:
        pending_.byUser = true;
        selectAll();
        return true;
    case TreeKeyCode::expandAll:
        if (!focus_)
            return false;
        expandAll(focus_, true);
        return true;
    case TreeKeyCode::escape:
        if (!dragging_)
            return onKey(code, modifiers);
        cancelDrag();
        return true;
    case TreeKeyCode::remove:
    case TreeKeyCode::enter:
        return onKey(code, modifiers);
    }
    return false;
}

/// Where a key leads; the row with the focus itself at the ends, and null when there are no rows.
TreeItem* TreeControl::keyTarget(TreeKeyCode code) {
    TreeItem* const first = rows_.root().firstChild(TreeCount::shown);
    if (!first)
        return nullptr;
    if (code == TreeKeyCode::end)
        return lastVisibleWithin(*rows_.root().lastChild(TreeCount::shown));
    if (code == TreeKeyCode::home || !focus_)
        return first;
    if (code == TreeKeyCode::pageUp || code == TreeKeyCode::pageDown)
        return pageFrom(*focus_, code == TreeKeyCode::pageDown);
    TreeItem* const next = code == TreeKeyCode::down ? nextVisible(*focus_) : previousVisible(*focus_);
    return next ? next : focus_;
}

TreeItem* TreeControl::pageFrom(TreeItem& item, bool down) const {
    TreeItem* at = &item;
    for (std::size_t rows = pageRows_; rows > 0; --rows) {
        TreeItem* const next = down ? nextVisible(*at) : previousVisible(*at);
        if (!next)
            break;
        at = next;
    }
    return at;
}

/// With control alone the selection stays; it can be changed with the space bar then.
void TreeControl::moveFocus(TreeItem& item, Modifiers modifiers) {
    if (modifiers.shift) {
        if (!anchor_)
            anchor_ = focus_;
        selectRange(item, modifiers.ctrl);
    } else if (modifiers.ctrl) {
        changeFocus(&item);
    } else {
        selectOnly(item);
    }
    pending_.byUser = true;
    observers_.tell([&](TreeObserver& o) { o.revealed(item); });
    settle();
}

/// Left and right collapse and expand; where there is nothing to collapse or expand they go to the parent or
/// to the first child. With several rows selected they act on all of these.
bool TreeControl::keyAcross(bool expanding, Modifiers modifiers) {
    if (selection_.count() > 1)
        return expandSelected(expanding);
    if (!focus_)
        return false;
    const bool open = focus_->expanded() && focus_->shownChildCount() > 0;
    if (expanding != open && focus_->shownChildCount() > 0)
        return expand(*focus_, expanding), true;
    TreeItem* const target = expanding ? focus_->firstChild(TreeCount::shown) : focus_->parent();
    if (!target)
        return false;
    moveFocus(*target, modifiers);
    return true;
}

bool TreeControl::expandSelected(bool on) {
    const bool any = on ? expandSelectedRows() : collapseSelectedRows();
    settle();
    return any;
}

bool TreeControl::expandSelectedRows() {
    const std::vector<TreeItem*> selected = selection();
    bool any = false;
    for (TreeItem* const item : selected) {
        if (item->expanded_ || item->shownChildCount() == 0)
            continue;
        setExpanded(*item, true);
        any = true;
    }
    return any;
}

/// All in one pass over what can be seen. Rows that a collapsing one takes from the selection stay expanded.
bool TreeControl::collapseSelectedRows() {
    std::vector<TreeItem*> tops;
    TreeItem* at = rows_.root().firstChild(TreeCount::shown);
    while (at) {
        const bool collapses = at->selected() && at->expanded_ && at->shownChildCount() > 0;
        if (collapses)
            tops.push_back(at);
        at = collapses ? nextPast(*at, nullptr, TreeCount::shown) : nextVisible(*at);
    }
    if (tops.empty())
        return false;
    for (TreeItem* const top : tops)
        top->expanded_ = false;
    collapseInto(tops);
    for (TreeItem* const top : tops)
        observers_.tell([top](TreeObserver& o) { o.expansionChanged(*top); });
    return true;
}

bool TreeControl::typed(CStringView prefix) {
    TreeItem* const first = rows_.root().firstChild(TreeCount::shown);
    if (!isEnabled() || !first || prefix.empty())
        return false;
    const auto after = [first](TreeItem& item) {
        TreeItem* const next = nextVisible(item);
        return next ? next : first;
    };
    TreeItem* const start = !focus_ || !isExposed(*focus_) ? first : focus_;
    TreeItem* at = start == focus_ && prefix.size() == 1 ? after(*start) : start;
    TreeItem* const origin = at;
    do {
        if (equalNoCase(CStringView(at->label_).substr(0, prefix.size()), prefix)) {
            moveFocus(*at, {});
            return true;
        }
        at = after(*at);
    } while (at != origin);
    return false;
}

} // namespace ryv
