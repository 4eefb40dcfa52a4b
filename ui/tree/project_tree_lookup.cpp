// Finding rows of the project tree.
#include "ui/tree/project_tree.h"

#include "base/fold.h"
#include "base/text.h"
#include "model/trace.h"
#include "toolkit/tree_rows.h"

#include <algorithm>

namespace ryv {

namespace {

bool hasKey(const TreeItem& item, TreeItemType type, CStringView key) {
    const _itemdatastruct* const record = CProjectTree::GetItemData(&item);
    return record && record->type == type && equalNoCase(record->key, key);
}

TreeItem* childSubfolder(const TreeItem& parent, CStringView name) {
    TreeItem* child = parent.firstChild();
    while (child && (CProjectTree::GetItemType(child) != TreeItemType::subfolder ||
                        !equalNoCase(child->label(), name)))
        child = child->next();
    return child;
}

} // namespace

TreeItem* CProjectTree::GetProjectItem(CStringView projectId) const {
    const CString key = replaceAll(projectId, u'/', u'\\');
    TreeItem* item = key.empty() ? nullptr : child(nullptr, 0);
    while (item && !equalNoCase(projectOfRow(*item), key))
        item = item->next();
    return item;
}

/// A derived class may have given the row no record.
CString CProjectTree::projectOfRow(const TreeItem& projectItem) const {
    if (const auto bare = bareProjects_.find(&projectItem); bare != bareProjects_.end())
        return bare->second;
    return GetProjectOfItem(&projectItem);
}

TreeItem* CProjectTree::GetProjectItemFromItem(const TreeItem* item) noexcept {
    while (item && item->parent())
        item = item->parent();
    // Rows are the tree's own, whoever asks; const says only that the question changes nothing.
    return GetItemType(item) == TreeItemType::project ? const_cast<TreeItem*>(item) : nullptr;
}

_projdatastruct* CProjectTree::GetProjectDataForItem(const TreeItem* item) noexcept {
    return dynamic_cast<_projdatastruct*>(GetItemData(GetProjectItemFromItem(item)));
}

CString CProjectTree::GetProjectOfItem(const TreeItem* item) {
    const _projdatastruct* const record = GetProjectDataForItem(item);
    return record ? record->key : CString();
}

TreeItem* CProjectTree::GetActiveProjItem() const {
    const RyvPrmProjectManager* const manager = GetProjectManager();
    CString active;
    return manager && manager->getActiveProjectID(active) ? GetProjectItem(active) : nullptr;
}

TreeItem* CProjectTree::GetDrawingItem(CStringView drawing, const TreeItem* start) const {
    const CString key = replaceAll(drawing, u'/', u'\\');
    TreeItem* item = start ? start->firstChild() : child(nullptr, 0);
    while (item && !hasKey(*item, TreeItemType::drawing, key))
        item = nextInTree(*item, start);
    return item;
}

CString CProjectTree::GetSubfolderTraceForItem(const TreeItem* item, bool keyOfItem) {
    std::vector<CStringView> names;
    for (const TreeItem* at = item; GetItemType(at) == TreeItemType::subfolder; at = at->parent())
        names.push_back(at == item && keyOfItem ? GetItemData(at)->key : at->label());
    CString trace;
    std::for_each(names.rbegin(), names.rend(),
        [&](CStringView name) { trace.append(trace.empty() ? u"" : u"/").append(name); });
    return trace;
}

TreeItem* CProjectTree::GetTreeItemBySubfolderTrace(const TreeItem* project, CStringView trace) const {
    TreeItem* found = nullptr;
    const TreeItem* at = project;
    TraceComponents names(trace);
    for (CStringView name = names.next(); at && !name.empty(); name = names.next())
        at = found = childSubfolder(*at, name);
    return found;
}

} // namespace ryv
