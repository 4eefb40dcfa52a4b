#include "ui/tree/row_name.h"

#include "toolkit/tree_rows.h"

namespace ryv {

RowName rowNameOf(const TreeItem* item) {
    const _itemdatastruct* const record = CProjectTree::GetItemData(item);
    if (!record)
        return {};
    RowName name{CProjectTree::GetProjectOfItem(item), record->type, {}};
    if (record->type == TreeItemType::drawing)
        name.key = record->key;
    else if (record->type == TreeItemType::subfolder)
        name.key = CProjectTree::GetSubfolderTraceForItem(item);
    return name;
}

TreeItem* findRow(const CProjectTree& tree, const RowName& name) {
    TreeItem* const project = tree.GetProjectItem(name.projectId);
    if (!project || name.type == TreeItemType::project)
        return project;
    return name.type == TreeItemType::drawing ? tree.GetDrawingItem(name.key, project)
                                              : tree.GetTreeItemBySubfolderTrace(project, name.key);
}

ListedDrawing listedDrawingOf(const TreeItem* item) {
    const _itemdatastruct* const record = CProjectTree::GetItemData(item);
    if (!record || record->type != TreeItemType::drawing)
        return {};
    return {record->key, CProjectTree::GetProjectOfItem(item),
        CProjectTree::GetSubfolderTraceForItem(item->parent())};
}

TreeItem* contextRow(const CProjectTree& tree) {
    if (tree.focus() && tree.focus()->selected())
        return tree.focus();
    return tree.selection().empty() ? nullptr : tree.selection().front();
}

std::vector<TreeItem*> selectedRows(const CProjectTree& tree) {
    if (tree.selectionCount() <= 1)
        return tree.selection();
    TreeItem* const project = CProjectTree::GetProjectItemFromItem(tree.selection().front());
    std::vector<TreeItem*> rows;
    for (TreeItem* item = project; item;) {
        const bool chosen = item->selected();
        if (chosen)
            rows.push_back(item);
        item = chosen ? nextPast(*item, project) : nextInTree(*item, project);
    }
    return rows;
}

bool hasBelow(const TreeItem& item, TreeItemType type) {
    const TreeItem* below = nextInTree(item, &item);
    while (below && CProjectTree::GetItemType(below) != type)
        below = nextInTree(*below, &item);
    return below != nullptr;
}

CStringArray expandedTraces(const CProjectTree& tree, CStringView projectId) {
    CStringArray traces;
    const TreeItem* const project = tree.GetProjectItem(projectId);
    for (const TreeItem* item = project; item; item = nextInTree(*item, project))
        if (item->expanded() && CProjectTree::GetItemType(item) == TreeItemType::subfolder)
            traces.push_back(CProjectTree::GetSubfolderTraceForItem(item));
    return traces;
}

void expandTraces(CProjectTree& tree, CStringView projectId, const CStringArray& traces) {
    const TreeItem* const project = tree.GetProjectItem(projectId);
    RowFinder finder;
    std::vector<TreeItem*> rows;
    for (const CString& trace : traces)
        if (TreeItem* const row = project ? finder.subfolder(*project, trace) : nullptr)
            rows.push_back(row);
    for (TreeItem* const row : rows)
        tree.expand(*row, true);
}

} // namespace ryv
