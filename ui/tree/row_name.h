// Rows of the project tree by what they stand for: what is kept while the user is asked or LISP is called,
// since a re-read may replace every row meanwhile.
#pragma once

#include "manager/nav_state.h"
#include "ui/tree/project_tree.h"

namespace ryv {

struct RowName {
    CString projectId;
    TreeItemType type = TreeItemType::none;
    CString key; ///< of a drawing its path, of a subfolder its trace, of a project empty
    bool operator==(const RowName&) const = default;
};

/// Of null a name that no row has.
RowName rowNameOf(const TreeItem* item);
/// The row of that name now; null when there is none any more.
TreeItem* findRow(const CProjectTree& tree, const RowName& name);

/// Of a row that is no drawing one without a path.
ListedDrawing listedDrawingOf(const TreeItem* item);

/// The row that commands are about: the one with the focus when it is selected, else the one selected first;
/// null when none is.
TreeItem* contextRow(const CProjectTree& tree);

/// The selected rows of the project of the row that was selected first, without those below other selected
/// ones, in the order of the tree.
std::vector<TreeItem*> selectedRows(const CProjectTree& tree);

/// Whether a row of a kind stands somewhere below another one.
bool hasBelow(const TreeItem& item, TreeItemType type);

/// The subfolders below a project's row that are expanded, by trace, and expanding them again.
CStringArray expandedTraces(const CProjectTree& tree, CStringView projectId);
void expandTraces(CProjectTree& tree, CStringView projectId, const CStringArray& traces);

} // namespace ryv
