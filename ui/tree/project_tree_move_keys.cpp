// Moving drawings and subfolders with the keyboard: with Alt held down the arrow keys move what is selected
// where dragging would have to take aim.
#include "ui/tree/item_move.h"
#include "ui/tree/project_tree.h"

#include <algorithm>
#include <utility>

namespace ryv {

namespace {

using Side = ItemPlace::Side;

ItemPlace besideOf(const TreeItem& row, Side side) {
    return {CProjectTree::GetSubfolderTraceForItem(row.parent(), false), side, RowFinder().addressOf(row)};
}

bool isSubfolderRow(const TreeItem& row) {
    return CProjectTree::GetItemType(&row) == TreeItemType::subfolder;
}

TreeItem* neighbour(const TreeItem& row, bool above) {
    TreeItem* at = above ? row.previous(TreeCount::shown) : row.next(TreeCount::shown);
    while (at && at->selected())
        at = above ? at->previous(TreeCount::shown) : at->next(TreeCount::shown);
    return at;
}

std::optional<ItemPlace> pastNeighbour(const TreeItem& row, bool above) {
    const TreeItem* const past = neighbour(row, above);
    if (!past)
        return {};
    return besideOf(*past, above ? Side::before : Side::after);
}

/// Behind the subfolder that holds it.
std::optional<ItemPlace> outOf(const TreeItem& row) {
    if (!isSubfolderRow(*row.parent()))
        return {};
    return besideOf(*row.parent(), Side::after);
}

/// To the end of the next subfolder above, or else the beginning of the next one below.
std::optional<ItemPlace> into(const TreeItem& first, const TreeItem& last) {
    for (const bool above : {true, false}) {
        const TreeItem* at = neighbour(above ? first : last, above);
        while (at && !isSubfolderRow(*at))
            at = neighbour(*at, above);
        if (at)
            return ItemPlace{
                CProjectTree::GetSubfolderTraceForItem(at, false), above ? Side::last : Side::first, {}};
    }
    return {};
}

std::optional<ItemPlace> placeOneStep(const std::vector<TreeItem*>& rows, TreeKeyCode code) {
    switch (code) {
    case TreeKeyCode::up:
        return pastNeighbour(*rows.front(), true);
    case TreeKeyCode::down:
        return pastNeighbour(*rows.back(), false);
    case TreeKeyCode::left:
        return outOf(*rows.front());
    case TreeKeyCode::right:
        return into(*rows.front(), *rows.back());
    default:
        return {};
    }
}

} // namespace

/// What is selected stays together, so it has to lie in one place.
bool CProjectTree::moveByKey(TreeKeyCode code) {
    if (!onBeginDrag())
        return false;
    const std::vector<TreeItem*> rows = topmostSelected();
    const bool together = std::all_of(rows.begin(), rows.end(),
        [&rows](const TreeItem* row) { return row->parent() == rows.front()->parent(); });
    const std::optional<ItemPlace> place = together ? placeOneStep(rows, code) : std::nullopt;
    if (!place)
        return false;
    notice_.clearUnlessOffering();
    moveItems(CString(draggedFrom_), std::exchange(draggedItems_, {}), *place);
    return true;
}

} // namespace ryv
