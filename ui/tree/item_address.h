// Drawings and subfolders of a project by name: what is kept of rows while the project may be read again.
#pragma once

#include "model/project_data.h"
#include "toolkit/tree_item.h"

#include <unordered_map>
#include <vector>

namespace ryv {

/// One item of a project. Names that differ in case only are equal; subfolders of one name in one place are
/// one item, as they are one row.
struct ItemAddress {
    CString folder; ///< trace of the subfolder that holds it; empty at the top level
    CString name;   ///< of a drawing its path, of a subfolder its name
    bool isSubfolder = false;
    std::size_t number = 0; ///< of a drawing, among equal ones in its folder
};

/// The subfolders of a trace, of which there may be several that differ in case; for the empty trace the top
/// level, unless the project is empty.
std::vector<RyvPrmSubfolder*> foldersOf(const RyvPrmProjectData& project, CStringView trace);

/// The trace of a subfolder that is in a project; empty for the top level.
CString traceOf(const RyvPrmSubfolder& folder);

/// What tells items of one folder apart.
CString itemKey(bool isSubfolder, CStringView name);
CString itemKey(const RyvPrmItem& item);
CString rowItemKey(const TreeItem& row); ///< empty for a row that is neither

/// Finds items in a project. Each folder is looked at once; the project must not change meanwhile.
class ItemFinder {
public:
    explicit ItemFinder(const RyvPrmProjectData& project) : project_(project) {}

    /// The drawing, or all subfolders of that name; none when it is not in its folder (any more).
    std::vector<RyvPrmItem*> find(const ItemAddress& address);

    /// What foldersOf() gives, for whoever asks for many.
    std::vector<RyvPrmSubfolder*> folders(CStringView trace);

private:
    using Items = std::unordered_map<CString, std::vector<RyvPrmItem*>>; // by key
    const std::vector<RyvPrmItem*>& equalItems(const RyvPrmSubfolder& folder, const CString& key);

    const RyvPrmProjectData& project_;
    std::unordered_map<const RyvPrmSubfolder*, Items> folders_;
};

/// The same for rows, each parent looked at once. The tree must not change meanwhile.
class RowFinder {
public:
    /// Of a drawing or subfolder.
    ItemAddress addressOf(const TreeItem& row);

    /// The rows with a key directly below a row, in order.
    const std::vector<TreeItem*>& find(const TreeItem& parent, const CString& key);

    /// The subfolder of a trace below a project's row; null when there is none, and for the empty trace.
    TreeItem* subfolder(const TreeItem& project, CStringView trace);

private:
    using Rows = std::unordered_map<CString, std::vector<TreeItem*>>;
    std::unordered_map<const TreeItem*, Rows> parents_;
};

} // namespace ryv
