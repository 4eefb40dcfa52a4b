#include "ui/tree/kept_view.h"

#include "base/fold.h"
#include "toolkit/tree_rows.h"

#include <unordered_set>

namespace ryv {

KeptView::KeptView(CProjectTree& tree, const TreeItem& project) : tree_(tree), project_(project) {
    if (tree_.selectionCount() > 0 || !tree_.filter().empty())
        keepSelection();
    watch(focus_, tree.focus());
    watch(firstVisible_, tree.firstVisible());
}

CString KeptView::drawingOf(const TreeItem& row) {
    return CProjectTree::GetItemType(&row) == TreeItemType::drawing
               ? toUpper(CProjectTree::GetItemData(&row)->key)
               : CString();
}

/// The project's rows are walked, not the selection: that may lie in other projects, which are rebuilt, too.
void KeptView::keepSelection() {
    selected_ = tree_.selection();
    for (const TreeItem* row = project_.firstChild(); row; row = nextInTree(*row, &project_)) {
        const bool remembered = tree_.isRemembered(row);
        if (!row->selected() && !remembered)
            continue;
        const CString drawing = drawingOf(*row);
        if (row->selected() && !drawing.empty())
            drawings_.emplace(row, drawing);
        if (remembered && !drawing.empty())
            remembered_.emplace(row, drawing);
    }
}

void KeptView::watch(Watched& place, TreeItem* row) {
    if (!row)
        return;
    place.watch.emplace(tree_, *row);
    place.drawing = drawingOf(*row);
}

void KeptView::restore() {
    Rows rows = wantedRows();
    if (rows.empty())
        return;
    find(rows);
    TreeItem* const focus = focus_.isLost() ? rows[focus_.drawing] : nullptr;
    tree_.restoreSelection(selectionNow(rows), focus);
    for (const auto& [row, drawing] : remembered_)
        if (const auto place = rows.find(drawing); place != rows.end() && place->second)
            tree_.remember(*place->second);
    if (TreeItem* const first = firstVisible_.isLost() ? rows[firstVisible_.drawing] : nullptr)
        tree_.setFirstVisible(first);
}

/// The lost drawings, none of them found yet.
KeptView::Rows KeptView::wantedRows() const {
    Rows rows;
    if (tree_.selectionCount() < selected_.size()) {
        const std::unordered_set<const TreeItem*> left(tree_.selection().begin(), tree_.selection().end());
        for (const auto& [row, drawing] : drawings_)
            if (!left.contains(row))
                rows[drawing] = nullptr;
    }
    for (const auto& [row, drawing] : remembered_)
        if (!tree_.isRemembered(row))
            rows[drawing] = nullptr;
    for (const Watched* const place : {&focus_, &firstVisible_})
        if (place->isLost())
            rows[place->drawing] = nullptr;
    return rows;
}

void KeptView::find(Rows& wanted) const {
    std::size_t missing = wanted.size();
    for (TreeItem* row = project_.firstChild(); row && missing > 0; row = nextInTree(*row, &project_)) {
        const auto place = wanted.find(drawingOf(*row));
        if (place == wanted.end() || place->second)
            continue;
        place->second = row;
        --missing;
    }
}

/// In the order of selecting. When no row was found it is what it is.
std::vector<TreeItem*> KeptView::selectionNow(const Rows& found) const {
    const std::unordered_set<const TreeItem*> left(tree_.selection().begin(), tree_.selection().end());
    std::unordered_set<const TreeItem*> taken;
    std::vector<TreeItem*> rows;
    for (TreeItem* row : selected_) {
        if (!left.contains(row)) {
            const auto drawing = drawings_.find(row);
            const auto place = drawing == drawings_.end() ? found.end() : found.find(drawing->second);
            row = place == found.end() ? nullptr : place->second;
        }
        if (row && taken.insert(row).second)
            rows.push_back(row);
    }
    return rows.size() > left.size() ? rows : tree_.selection();
}

} // namespace ryv
