// What the rows of the project tree carry.
#include "ui/tree/project_tree.h"

#include "base/paths.h"

namespace ryv {

std::unique_ptr<_projdatastruct> CProjectTree::NewProjDataStruct() const {
    return std::make_unique<_projdatastruct>();
}

std::unique_ptr<_dwgdatastruct> CProjectTree::NewDwgDataStruct() const {
    return std::make_unique<_dwgdatastruct>();
}

std::unique_ptr<_subfolderdatastruct> CProjectTree::NewSubfolderDataStruct() const {
    return std::make_unique<_subfolderdatastruct>();
}

_itemdatastruct* CProjectTree::GetItemData(const TreeItem* item) noexcept {
    return item ? dynamic_cast<_itemdatastruct*>(item->data()) : nullptr;
}

TreeItemType CProjectTree::GetItemType(const TreeItem* item) noexcept {
    const _itemdatastruct* const record = GetItemData(item);
    return record ? record->type : TreeItemType::none;
}

void CProjectTree::onDataAttached(TreeItem& item) {
    if (_itemdatastruct* const record = GetItemData(&item))
        record->item = &item;
}

/// A drawing is found by all that its project says of it.
CString CProjectTree::searchText(const TreeItem& item) const {
    CString text = item.label();
    const auto* const record = dynamic_cast<const _dwgdatastruct*>(item.data());
    if (!record)
        return text;
    const auto add = [&text](CStringView line) { text.append(1, u'\n').append(line); };
    add(paths::findFileName(record->key));
    add(record->details.getDescription1());
    add(record->details.getDescription2());
    for (const CString* const value :
        {&record->sheet, &record->drawingNumber, &record->installation, &record->location})
        add(*value);
    for (const CStringView line : record->details.getDescriptions())
        add(line);
    return text;
}

} // namespace ryv
