// Dragging the selected rows of a tree control to another place in it.
#include "toolkit/tree_control.h"

namespace ryv {

bool TreeControl::beginDrag() {
    if (dragging_ || !isEnabled() || selection_.count() == 0 || !onBeginDrag())
        return false;
    dragging_ = true;
    dropPlaceLost_ = false;
    return true;
}

/// Nothing goes to itself or into itself.
bool TreeControl::isDropPlace(const TreeItem* target) const noexcept {
    if (!dragging_ || selection_.count() == 0 || (target && !target->shown_))
        return false;
    for (const TreeItem* at = target; at; at = at->parent())
        if (at->selected())
            return false;
    return true;
}

bool TreeControl::dragOver(TreeItem* target, DropPosition position) {
    dropPlaceLost_ = false;
    const bool good = isDropPlace(target) && onDragOver(target, position);
    if (!good) {
        clearDropPlace();
    } else if (!hasDropPlace_ || dropTarget_ != target || dropPosition_ != position) {
        hasDropPlace_ = true;
        dropTarget_ = target;
        dropPosition_ = position;
        pending_.dropPlace = true;
    }
    settle();
    return good;
}

void TreeControl::dragLeave() {
    dropPlaceLost_ = false;
    clearDropPlace();
    settle();
}

void TreeControl::clearDropPlace() {
    pending_.dropPlace |= hasDropPlace_;
    hasDropPlace_ = false;
    dropTarget_ = nullptr;
}

void TreeControl::endDrag() {
    dragging_ = false;
    clearDropPlace();
    settle();
}

void TreeControl::drop() {
    TreeItem* const target = dropTarget_;
    const DropPosition position = dropPosition_;
    const bool good = hasDropPlace_ && isDropPlace(target);
    const bool lost = !good && (hasDropPlace_ || dropPlaceLost_);
    endDrag();
    if (good)
        onDrop(target, position);
    else if (lost)
        onDropLost();
}

void TreeControl::cancelDrag() {
    endDrag();
}

std::vector<TreeItem*> TreeControl::topmostSelected() const {
    std::vector<TreeItem*> found;
    TreeItem* item = rows_.root().firstChild(TreeCount::shown);
    while (item) {
        if (item->selected())
            found.push_back(item);
        item = item->selected() ? nextPast(*item, nullptr, TreeCount::shown)
                                : nextInTree(*item, nullptr, TreeCount::shown);
    }
    return found;
}

void TreeControl::onDrop(TreeItem* target, DropPosition position) {
    const bool inside = !target || position == DropPosition::onto;
    TreeItem* const parent = inside ? target : target->parent();
    TreeItem* behind = inside ? nullptr : position == DropPosition::after ? target : nullptr;
    for (TreeItem* const item : topmostSelected()) {
        std::size_t row = atEnd;
        if (behind)
            row = behind->row() + 1;
        else if (!inside)
            row = target->row();
        // Rows are numbered without the one that moves.
        if (!inside && item->parent() == parent && item->row() < row)
            --row;
        if (!moveRow(*item, parent, row))
            break;
        if (!inside)
            behind = item;
    }
    settle();
}

} // namespace ryv
