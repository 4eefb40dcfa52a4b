// Single rows of the project tree.
#include "ui/tree/project_tree.h"

#include "base/fold.h"
#include "base/text.h"

namespace ryv {

/// Null when a derived class wants none.
std::unique_ptr<_dwgdatastruct> CProjectTree::drawingRecord(const RyvPrmFileDetails& details) const {
    auto record = NewDwgDataStruct();
    if (record) {
        record->type = TreeItemType::drawing;
        record->key = replaceAll(details.getFileName(), u'/', u'\\');
        record->details = details;
    }
    return record;
}

TreeRow CProjectTree::drawingRow(
    const RyvPrmFileDetails& details, CString label, std::unique_ptr<_dwgdatastruct> record) {
    TreeRow row{std::move(label), details.isReferenceOnly() ? referenceImage : drawingImage};
    row.data = std::move(record);
    return row;
}

TreeRow CProjectTree::subfolderRow(CStringView name) const {
    TreeRow row{CString(name), subfolderImage};
    if (auto record = NewSubfolderDataStruct()) {
        record->type = TreeItemType::subfolder;
        record->key = name;
        record->subfolder.setName(CString(name));
        row.data = std::move(record);
    }
    return row;
}

TreeItem* CProjectTree::InsertProjectItem(CStringView projectId) {
    const RyvPrmProjectManager* const manager = GetProjectManager();
    TreeRow row{{}, projectImage};
    if (manager) {
        manager->makeProjectPrettyNameFromID(projectId, row.label);
        row.bold = manager->isActiveProject(projectId);
    }
    if (auto record = NewProjDataStruct()) {
        record->type = TreeItemType::project;
        record->key = replaceAll(projectId, u'/', u'\\');
        row.data = std::move(record);
    }
    const bool isBare = !row.data;
    TreeItem& item = insert(nullptr, atEnd, std::move(row));
    if (isBare)
        bareProjects_.emplace(&item, replaceAll(projectId, u'/', u'\\'));
    return &item;
}

TreeItem* CProjectTree::InsertSubfolderItem(
    CStringView name, TreeItem& parent, bool& alreadyExists, std::size_t row, bool mustBeNew) {
    alreadyExists = false;
    for (TreeItem* item = parent.firstChild(); item; item = item->next())
        if (GetItemType(item) == TreeItemType::subfolder && equalNoCase(item->label(), name)) {
            alreadyExists = true;
            return mustBeNew ? nullptr : item;
        }
    return &insert(&parent, row, subfolderRow(name));
}

TreeItem* CProjectTree::InsertDwgItem(
    const RyvPrmFileDetails& details, CString label, CString sheet, TreeItem& parent, std::size_t row) {
    auto record = drawingRecord(details);
    if (record)
        record->sheet = std::move(sheet);
    return &insert(&parent, row, drawingRow(details, std::move(label), std::move(record)));
}

TreeItem* CProjectTree::InsertNewItem(std::vector<TreeItem*>& homeless, TreeItem& parent) {
    for (std::size_t left = homeless.size(); left-- > 0;) {
        TreeItem* const item = homeless[left];
        if (!move(*item, &parent, atEnd))
            continue;
        homeless.erase(homeless.begin() + static_cast<std::ptrdiff_t>(left));
        return item;
    }
    return nullptr;
}

} // namespace ryv
