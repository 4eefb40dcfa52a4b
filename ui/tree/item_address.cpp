#include "ui/tree/item_address.h"

#include "base/fold.h"
#include "base/text.h"
#include "model/trace.h"
#include "ui/tree/project_tree.h"

#include <algorithm>

namespace ryv {

std::vector<RyvPrmSubfolder*> foldersOf(const RyvPrmProjectData& project, CStringView trace) {
    std::vector<RyvPrmSubfolder*> level;
    if (!project.getProjFileDetails().empty())
        level.push_back(project.getProjFileDetails().front()->parent());
    TraceComponents names(trace);
    for (CStringView name = names.next(); !name.empty(); name = names.next()) {
        std::vector<RyvPrmSubfolder*> below;
        for (const RyvPrmSubfolder* const folder : level)
            for (const auto& item : folder->getItems())
                if (RyvPrmSubfolder* const subfolder = asSubfolder(item.get());
                    subfolder && equalNoCase(subfolder->getName(), name))
                    below.push_back(subfolder);
        level = std::move(below);
    }
    return level;
}

CString traceOf(const RyvPrmSubfolder& folder) {
    std::vector<const CString*> names;
    for (const RyvPrmSubfolder* at = &folder; at->parent(); at = at->parent())
        names.push_back(&at->getName());
    CString trace;
    std::for_each(names.rbegin(), names.rend(),
        [&trace](const CString* name) { trace.append(trace.empty() ? u"" : u"/").append(*name); });
    return trace;
}

CString itemKey(bool isSubfolder, CStringView name) {
    return isSubfolder ? u"S" + toUpper(name) : u"D" + toUpper(replaceAll(name, u'/', u'\\'));
}

CString itemKey(const RyvPrmItem& item) {
    if (const RyvPrmSubfolder* const subfolder = asSubfolder(&item))
        return itemKey(true, subfolder->getName());
    const RyvPrmFileDetails* const drawing = asFileDetails(&item);
    return drawing ? itemKey(false, drawing->getFileName()) : CString();
}

CString rowItemKey(const TreeItem& row) {
    const _itemdatastruct* const record = CProjectTree::GetItemData(&row);
    if (!record || record->type == TreeItemType::project || record->type == TreeItemType::none)
        return {};
    return itemKey(record->type == TreeItemType::subfolder, record->key);
}

const std::vector<RyvPrmItem*>& ItemFinder::equalItems(const RyvPrmSubfolder& folder, const CString& key) {
    const auto [place, isNew] = folders_.try_emplace(&folder);
    if (isNew)
        for (const auto& item : folder.getItems())
            place->second[itemKey(*item)].push_back(item.get());
    return place->second[key];
}

std::vector<RyvPrmSubfolder*> ItemFinder::folders(CStringView trace) {
    std::vector<RyvPrmSubfolder*> level = foldersOf(project_, {});
    TraceComponents names(trace);
    for (CStringView name = names.next(); !name.empty(); name = names.next()) {
        const CString key = itemKey(true, name);
        std::vector<RyvPrmSubfolder*> below;
        for (const RyvPrmSubfolder* const folder : level)
            for (RyvPrmItem* const item : equalItems(*folder, key))
                below.push_back(asSubfolder(item));
        level = std::move(below);
    }
    return level;
}

std::vector<RyvPrmItem*> ItemFinder::find(const ItemAddress& address) {
    const CString key = itemKey(address.isSubfolder, address.name);
    std::vector<RyvPrmItem*> found;
    std::size_t passed = 0;
    for (const RyvPrmSubfolder* const folder : folders(address.folder)) {
        const std::vector<RyvPrmItem*>& equal = equalItems(*folder, key);
        if (address.isSubfolder)
            found.insert(found.end(), equal.begin(), equal.end());
        else if (!equal.empty() && passed <= address.number)
            found = {equal[std::min(address.number - passed, equal.size() - 1)]};
        passed += equal.size();
    }
    return found;
}

ItemAddress RowFinder::addressOf(const TreeItem& row) {
    const _itemdatastruct& record = *CProjectTree::GetItemData(&row);
    ItemAddress address{CProjectTree::GetSubfolderTraceForItem(row.parent(), false), record.key,
        record.type == TreeItemType::subfolder};
    const std::vector<TreeItem*>& equal = find(*row.parent(), rowItemKey(row));
    address.number = static_cast<std::size_t>(std::find(equal.begin(), equal.end(), &row) - equal.begin());
    return address;
}

const std::vector<TreeItem*>& RowFinder::find(const TreeItem& parent, const CString& key) {
    const auto [place, isNew] = parents_.try_emplace(&parent);
    if (isNew)
        for (TreeItem* row = parent.firstChild(); row; row = row->next())
            place->second[rowItemKey(*row)].push_back(row);
    return place->second[key];
}

TreeItem* RowFinder::subfolder(const TreeItem& project, CStringView trace) {
    TreeItem* found = nullptr;
    TraceComponents names(trace);
    for (CStringView name = names.next(); !name.empty(); name = names.next()) {
        const std::vector<TreeItem*>& rows = find(found ? *found : project, itemKey(true, name));
        if (rows.empty())
            return nullptr;
        found = rows.front();
    }
    return found;
}

} // namespace ryv
