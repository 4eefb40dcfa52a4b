// What stands out in the project tree, and in which order the projects stand.
#include "ui/tree/project_tree.h"

#include "base/fold.h"
#include "bridge/platform.h"
#include "toolkit/tree_rows.h"

#include <algorithm>
#include <utility>

namespace ryv {

/// Of the projects in the tree only the first one that lists the drawing is walked.
TreeItem* CProjectTree::listedDrawingItem(CStringView drawing) const {
    const RyvPrmProjectManager* const manager = GetProjectManager();
    for (TreeItem* top = child(nullptr, 0); manager && top; top = top->next())
        if (manager->isFileInProject(drawing, projectOfRow(*top)))
            if (TreeItem* const row = GetDrawingItem(drawing, top))
                return row;
    return nullptr;
}

void CProjectTree::BoldNewActiveDrawingAndSubfolders(CStringView drawing) {
    HostDocuments& documents = *platform().host.documents;
    activeDrawing_ = drawing.empty() ? documents.fileName(documents.currentDocument()) : CString(drawing);
    std::vector<TreeItem*> rows;
    if (TreeItem* const row = activeDrawing_.empty() ? nullptr : listedDrawingItem(activeDrawing_)) {
        rows.push_back(row);
        for (TreeItem* at = row->parent(); at && at->parent(); at = at->parent())
            rows.push_back(at);
    }
    std::reverse(rows.begin(), rows.end());
    setBoldRows(rows);
}

/// After a project's rows changed, of which no other project's can have become bold or not bold.
void CProjectTree::boldAfterBuild(const TreeItem& projectItem, CStringView projectId) {
    const RyvPrmProjectManager* const manager = GetProjectManager();
    const TreeItem* top = boldRows_.empty() ? nullptr : boldRows_.begin()->first;
    while (top && top->parent())
        top = top->parent();
    if (activeDrawing_.empty() || top == &projectItem ||
        (manager && manager->isFileInProject(activeDrawing_, projectId)))
        BoldNewActiveDrawingAndSubfolders(activeDrawing_);
}

/// Rows are changed only where that makes a difference: views redraw each of them. The order is that of the
/// rows, outermost first.
void CProjectTree::setBoldRows(const std::vector<TreeItem*>& rows) {
    const auto before = std::exchange(boldRows_, {});
    for (TreeItem* const row : rows)
        boldRows_.emplace(row, boldRows_.size());
    std::vector<std::pair<std::size_t, TreeItem*>> left;
    for (const auto& [row, number] : before)
        if (!boldRows_.contains(row))
            left.emplace_back(number, row);
    std::sort(left.begin(), left.end());
    for (const auto& [number, row] : left)
        setBold(*row, false);
    for (TreeItem* const row : rows)
        setBold(*row, true);
}

void CProjectTree::UnboldSubfAndDwgItemText(TreeItem& projectItem) {
    for (TreeItem* item = projectItem.firstChild(); item; item = nextInTree(*item, &projectItem))
        setBold(*item, false);
    std::erase_if(boldRows_, [](const auto& each) { return !each.first->bold(); });
}

void CProjectTree::onDeleteItem(TreeItem& item) {
    rowsInWork_.erase(&item);
    bareProjects_.erase(&item);
    boldRows_.erase(&item);
    if (rejectedItem_ == &item)
        rejectedItem_ = nullptr;
}

/// The active project, then the others by their names.
void CProjectTree::sortProjectItems() {
    const TreeItem* const active = GetActiveProjItem();
    std::vector<TreeItem*> order;
    for (TreeItem* item = child(nullptr, 0); item; item = item->next())
        order.push_back(item);
    std::stable_sort(order.begin(), order.end(), [active](const TreeItem* a, const TreeItem* b) {
        if (a == active || b == active)
            return a == active && b != active;
        return compareNoCase(a->label(), b->label()) < 0;
    });
    for (std::size_t row = 0; row < order.size(); ++row)
        if (child(nullptr, row) != order[row])
            move(*order[row], nullptr, row);
}

void CProjectTree::boldActiveProject() {
    const TreeItem* const active = GetActiveProjItem();
    for (TreeItem* item = child(nullptr, 0); item; item = item->next())
        setBold(*item, item == active);
}

} // namespace ryv
