#include "toolkit/tree_control.h"

#include <algorithm>

namespace ryv {

TreeControl::TreeControl(int id) : Control(ControlKind::tree, id) {}

TreeControl::~TreeControl() = default;

TreeItem& TreeControl::make(TreeRow content) {
    TreeItem& item = TreeRows::make(std::move(content));
    item.matches_ = passes(item);
    item.shown_ = item.matches_;
    item.expanded_ = filter_.isActive();
    return item;
}

TreeItem& TreeControl::insert(TreeItem* parent, std::size_t row, TreeRow content) {
    std::vector<TreeRow> contents;
    contents.push_back(std::move(content));
    return *insertRows(parent, row, std::move(contents));
}

TreeItem* TreeControl::insertRows(TreeItem* parent, std::size_t row, std::vector<TreeRow> contents) {
    if (contents.empty())
        return nullptr;
    TreeItem& place = rows_.under(parent);
    row = std::min(row, place.childCount());
    std::vector<TreeItem*> items;
    items.reserve(contents.size());
    std::size_t shown = 0;
    for (TreeRow& content : contents) {
        items.push_back(&make(std::move(content)));
        shown += items.back()->shown_ ? 1u : 0u;
    }
    const std::size_t shownRow = TreeRows::shownBefore(place, row);
    tellInsertion(place, shownRow, shown, [&] { linkRows(place, row, items); });
    return items.front();
}

/// Does an insertion between its notices. `change` links rows, of which so many are shown, and shows those
/// above.
void TreeControl::tellInsertion(
    TreeItem& parent, std::size_t shownRow, std::size_t count, const std::function<void()>& change) {
    if (count == 0)
        return change();
    TreeItem* const top = rows_.topHidden(parent);
    TreeItem& where = top ? *top->parent_ : parent;
    observers_.tellAround(
        [&](TreeObserver& o) {
            o.aboutToInsert(rows_.handle(where), top ? top->shownRow() : shownRow, top ? 1 : count);
        },
        change, [](TreeObserver& o) { o.inserted(); });
}

void TreeControl::linkRows(TreeItem& parent, std::size_t row, const std::vector<TreeItem*>& items) {
    for (TreeItem* const item : items) {
        TreeRows::link(*item, parent, row++);
        if (item->shown_)
            TreeRows::showUpwards(parent);
        if (item->data_)
            onDataAttached(*item);
    }
}

void TreeControl::remove(TreeItem& item) {
    removeRun({&item});
    settle();
}

void TreeControl::clear() {
    std::vector<TreeItem*> all;
    for (TreeItem* item = rows_.root().firstChild(); item; item = item->next())
        all.push_back(item);
    if (!all.empty())
        removeRun(all);
    settle();
}

/// Removes siblings that stand side by side.
void TreeControl::removeRun(const std::vector<TreeItem*>& run) {
    std::vector<TreeItem*> leaving;
    std::size_t shown = 0;
    for (TreeItem* const item : run) {
        TreeRows::collectLeaving(*item, leaving);
        shown += item->shown_ ? 1u : 0u;
    }
    if (edited_ && edited_->leaving_)
        endEdit();
    tellRemoval(run, shown, [&] {
        for (TreeItem* const item : leaving)
            if (selection_.remove(*item))
                pending_.selection = true;
        for (TreeItem* const item : run)
            TreeRows::unlink(*item);
    });
    deleteItems(leaving);
}

/// Does a removal between its notices. `change` unlinks the rows, of which so many are shown.
void TreeControl::tellRemoval(
    const std::vector<TreeItem*>& run, std::size_t shownCount, const std::function<void()>& change) {
    TreeItem& parent = *run.front()->parent_;
    if (const TreeItem* const vanishing = rows_.topVanishing(parent, shownCount))
        for (const TreeItem* at = &parent; at != vanishing->parent_; at = at->parent_)
            if (at == edited_)
                endEdit();
    // Asked again: the label that was edited may match by now.
    TreeItem* const top = rows_.topVanishing(parent, shownCount);
    const TreeItem& first = top ? *top : *run.front();
    const TreeItem& last = top ? *top : *run.back();
    const std::size_t shownRow = first.shownRow();
    TreeItem& where = *first.parent_;
    TreeItem* refuge = TreeOrder::next(last, TreeCount::shown);
    if (!refuge)
        refuge = TreeOrder::previous(first, TreeCount::shown);
    if (!refuge)
        refuge = rows_.handle(where);
    const auto doIt = [&] {
        change();
        if (top)
            hideUpTo(parent, *top);
        leave(refuge);
    };
    if (shownCount == 0)
        doIt();
    else
        observers_.tellAround(
            [&](TreeObserver& o) { o.aboutToRemove(rows_.handle(where), shownRow, top ? 1 : shownCount); },
            doIt, [](TreeObserver& o) { o.removed(); });
}

void TreeControl::deleteItems(const std::vector<TreeItem*>& items) {
    for (TreeItem* const item : items) {
        beforeFilter_.forget(*item);
        onDeleteItem(*item);
    }
    TreeRows::destroy(items);
}

void TreeControl::setLabel(TreeItem& item, CString text) {
    applyLabel(item, std::move(text));
    settle();
}

void TreeControl::applyLabel(TreeItem& item, CString text) {
    if (item.label_ == text)
        return;
    item.label_ = std::move(text);
    relabelled(item);
}

void TreeControl::setImage(TreeItem& item, int image) {
    if (item.image_ == image)
        return;
    item.image_ = image;
    tellChanged(item);
}

void TreeControl::setBold(TreeItem& item, bool bold) {
    if (item.bold_ == bold)
        return;
    item.bold_ = bold;
    tellChanged(item);
}

void TreeControl::setData(TreeItem& item, std::unique_ptr<TreeItemData> data) {
    item.data_ = std::move(data);
    if (item.data_)
        onDataAttached(item);
    if (passes(item) != item.matches_)
        relabelled(item);
    settle();
}

/// A view that edits the label would overwrite what the user types.
void TreeControl::tellChanged(TreeItem& item) {
    if (&item == edited_)
        changedWhileEdited_ = true;
    else if (item.shown_)
        observers_.tell([&](TreeObserver& o) { o.changed(item); });
}

/// Tells what came together during an operation, the owner last: it may start the next one.
void TreeControl::settle() {
    const Pending pending = std::exchange(pending_, Pending());
    if (pending.focus)
        observers_.tell([](TreeObserver& o) { o.focusChanged(); });
    if (pending.firstVisible)
        observers_.tell([this](TreeObserver& o) { o.firstVisibleChanged(firstVisible_); });
    if (pending.dropPlace)
        observers_.tell([](TreeObserver& o) { o.dropPlaceChanged(); });
    if (pending.selection)
        observers_.tell([](TreeObserver& o) { o.selectionChanged(); });
    if (pending.editEnded)
        onLabelEditEnded();
    if (pending.selection)
        onSelectionChanged();
    if (pending.selection && pending.byUser)
        onUserSelected();
}

bool TreeControl::onDragOver(TreeItem*, DropPosition) {
    return true;
}
void TreeControl::onContextMenu(TreeItem*, TreePoint) {}
void TreeControl::onDoubleClick(TreeItem&) {}
bool TreeControl::onKey(TreeKeyCode, Modifiers) {
    return false;
}
void TreeControl::onDataAttached(TreeItem&) {}
void TreeControl::onDeleteItem(TreeItem&) {}

} // namespace ryv
