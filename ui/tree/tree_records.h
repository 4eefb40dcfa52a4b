// What the project tree attaches to its rows.
#pragma once

#include "base/export.h"
#include "model/file_details.h"
#include "model/subfolder.h"
#include "toolkit/tree_item.h"

#include <cstdint>

namespace ryv {

/// What a row of the project tree stands for; the numbers are part of the interface for derived trees.
enum class TreeItemType : std::int32_t { none = 0, project = 1, drawing = 2, subfolder = 3 };

// The names are those by which the package's other modules know them.
// NOLINTBEGIN(bugprone-reserved-identifier)

/// The root of the family.
class RYV_EXPORT _basestruct : public TreeItemData {};

/// What all rows have.
class RYV_EXPORT _itemdatastruct : public _basestruct {
public:
    TreeItem* item = nullptr; ///< the row; null until it is in the tree
    TreeItemType type = TreeItemType::none;
    /// Of a project its ID, of a drawing its full path with "\", of a subfolder its name.
    CString key;
};

class RYV_EXPORT _projdatastruct : public _itemdatastruct {};

class RYV_EXPORT _subfolderdatastruct : public _itemdatastruct {
public:
    RyvPrmSubfolder subfolder; ///< its name alone: copies of subfolders have no items
};

class RYV_EXPORT _dwgdatastruct : public _itemdatastruct {
public:
    RyvPrmFileDetails details;
    // From the project's database; empty when that cannot be asked.
    CString sheet;
    CString drawingNumber;
    CString installation;
    CString location;
};

// NOLINTEND(bugprone-reserved-identifier)

} // namespace ryv
