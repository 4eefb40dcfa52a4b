#include "ui/tree/item_selection.h"

#include "ui/tree/project_tree.h"

#include <algorithm>
#include <unordered_set>

namespace ryv {

namespace {

std::vector<TreeItem*> rowsOf(const CProjectTree& tree, const CString& projectId, const CString& folder,
    const std::vector<ItemAddress>& items) {
    const TreeItem* const project = tree.GetProjectItem(projectId);
    const TreeItem* const parent =
        folder.empty() ? project : tree.GetTreeItemBySubfolderTrace(project, folder);
    std::vector<TreeItem*> rows;
    if (!parent)
        return rows;
    RowFinder finder;
    std::unordered_set<CString> known;
    for (const ItemAddress& item : items)
        if (const CString key = itemKey(item.isSubfolder, item.name); known.insert(key).second) {
            const std::vector<TreeItem*>& equal = finder.find(*parent, key);
            rows.insert(rows.end(), equal.begin(), equal.end());
        }
    return rows;
}

bool isShown(const TreeItem* row) {
    return row->shown();
}

} // namespace

void selectItems(CProjectTree& tree, const CString& projectId, const CString& folder,
    const std::vector<ItemAddress>& items) {
    std::vector<TreeItem*> rows = rowsOf(tree, projectId, folder, items);
    if (!rows.empty() && std::none_of(rows.begin(), rows.end(), isShown)) {
        tree.setFilter({});
        rows = rowsOf(tree, projectId, folder, items);
    }
    const auto first = std::find_if(rows.begin(), rows.end(), isShown);
    if (first == rows.end())
        return;
    tree.ensureVisible(**first);
    tree.setSelection(rows);
}

void selectDrawings(
    CProjectTree& tree, const CString& projectId, const CString& folder, const std::vector<CString>& paths) {
    std::vector<ItemAddress> items;
    for (const CString& path : paths)
        items.push_back({folder, path});
    selectItems(tree, projectId, folder, items);
}

} // namespace ryv
