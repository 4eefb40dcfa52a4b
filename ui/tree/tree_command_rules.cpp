#include "ui/tree/tree_command_rules.h"

#include "bridge/platform.h"
#include "ui/dialogs/work/settings_work.h"
#include "ui/tree/open_documents.h"
#include "ui/tree/row_name.h"

#include <algorithm>

namespace ryv::tree_rules {

namespace {

/// None also without a project manager, which all rules need.
TreeItemType contextType(const CProjectTree& tree) {
    return GetProjectManager() ? CProjectTree::GetItemType(contextRow(tree)) : TreeItemType::none;
}

bool isInActiveProject(const CProjectTree& tree) {
    const RyvPrmProjectManager* const manager = GetProjectManager();
    const CString id = CProjectTree::GetProjectOfItem(contextRow(tree));
    return manager && !id.empty() && manager->isActiveProject(id);
}

bool hasBelowContext(const CProjectTree& tree, TreeItemType type) {
    const TreeItem* const row = contextRow(tree);
    return row && hasBelow(*row, type);
}

/// Whether all selected rows pass a test and lie in one project.
template <class Test>
bool isEachSelected(const CProjectTree& tree, Test test) {
    const TreeItem* const project = CProjectTree::GetProjectItemFromItem(contextRow(tree));
    const std::vector<TreeItem*>& rows = tree.selection();
    return project && std::all_of(rows.begin(), rows.end(), [&](const TreeItem* row) {
        return CProjectTree::GetProjectItemFromItem(row) == project && test(CProjectTree::GetItemType(row));
    });
}

bool isContainerType(TreeItemType type) {
    return type == TreeItemType::project || type == TreeItemType::subfolder;
}

bool standsForDrawing(const TreeItem& row) {
    return CProjectTree::GetItemType(&row) == TreeItemType::drawing || hasBelow(row, TreeItemType::drawing);
}

bool isUsable(_lockStatus status) {
    return status != lockMissing && status != lockOther && status != lockUnreadable;
}

} // namespace

bool always(const CProjectTree&) {
    return true;
}

bool hasActiveProject(const CProjectTree&) {
    return GetActiveProject() != nullptr;
}

bool isProject(const CProjectTree& tree) {
    return contextType(tree) == TreeItemType::project;
}

bool isActiveProject(const CProjectTree& tree) {
    return isProject(tree) && isInActiveProject(tree);
}

bool isInactiveProject(const CProjectTree& tree) {
    return isProject(tree) && !isInActiveProject(tree);
}

bool isClosableProject(const CProjectTree& tree) {
    return isInactiveProject(tree) || (isProject(tree) && GetProjectManager()->getProjectCount() > 1);
}

bool isProjectWithDrawings(const CProjectTree& tree) {
    return isProject(tree) && hasBelowContext(tree, TreeItemType::drawing);
}

bool isProjectWithSubfolders(const CProjectTree& tree) {
    return isProject(tree) && hasBelowContext(tree, TreeItemType::subfolder);
}

bool isProjectWithTasks(const CProjectTree& tree) {
    return isActiveProject(tree) && GetProjectManager()->projectHasTasks();
}

bool isCurrentDrawingMissing(const CProjectTree& tree) {
    const CString drawing = currentDrawing();
    return isProject(tree) && !drawing.empty() &&
           !GetProjectManager()->isFileInProject(drawing, CProjectTree::GetProjectOfItem(contextRow(tree)));
}

bool isListOfActiveProject(const CProjectTree& tree) {
    const TreeItem* const project = CProjectTree::GetProjectItemFromItem(contextRow(tree));
    const std::vector<TreeItem*>& rows = tree.selection();
    return isInActiveProject(tree) && std::any_of(rows.begin(), rows.end(), [project](const TreeItem* row) {
        return CProjectTree::GetProjectItemFromItem(row) == project && standsForDrawing(*row);
    });
}

bool isSubfolder(const CProjectTree& tree) {
    return contextType(tree) == TreeItemType::subfolder;
}

bool isOneSubfolder(const CProjectTree& tree) {
    return isSubfolder(tree) && tree.selectionCount() == 1;
}

bool isSubfolderOfActiveProject(const CProjectTree& tree) {
    return isSubfolder(tree) && isInActiveProject(tree);
}

bool isSubfolderWithDrawings(const CProjectTree& tree) {
    return isSubfolder(tree) && hasBelowContext(tree, TreeItemType::drawing);
}

bool isContainer(const CProjectTree& tree) {
    return isProject(tree) || isSubfolder(tree);
}

bool isContainerWithDrawings(const CProjectTree& tree) {
    return isContainer(tree) && hasBelowContext(tree, TreeItemType::drawing);
}

bool areContainersWithDrawings(const CProjectTree& tree) {
    return isContainerWithDrawings(tree) && isEachSelected(tree, isContainerType);
}

bool areContainersWithItems(const CProjectTree& tree) {
    return isContainer(tree) && contextRow(tree)->firstChild() && isEachSelected(tree, isContainerType);
}

bool isOneDrawing(const CProjectTree& tree) {
    return contextType(tree) == TreeItemType::drawing && tree.selectionCount() == 1;
}

bool isUsableDrawing(const CProjectTree& tree) {
    const TreeItem* const row = contextRow(tree);
    if (contextType(tree) != TreeItemType::drawing)
        return false;
    return isUsable(GetProjectManager()->whoHasProjectFileLocked(
        CProjectTree::GetItemData(row)->key, nullptr, nullptr, nullptr));
}

bool isOneUsableDrawing(const CProjectTree& tree) {
    return isOneDrawing(tree) && isUsableDrawing(tree);
}

bool isUsableDrawingToPasteTo(const CProjectTree& tree) {
    return hasCopiedSettings() && isUsableDrawing(tree);
}

bool isOpenDrawing(const CProjectTree& tree) {
    const std::vector<TreeItem*>& rows = tree.selection();
    const OpenDocuments open;
    return std::any_of(rows.begin(), rows.end(), [&open](const TreeItem* row) {
        return CProjectTree::GetItemType(row) == TreeItemType::drawing &&
               open.find(CProjectTree::GetItemData(row)->key) != DocumentId::none;
    });
}

bool isRemovable(const CProjectTree& tree) {
    const std::vector<TreeItem*>& rows = tree.selection();
    return GetProjectManager() && !rows.empty() &&
           std::all_of(rows.begin(), rows.end(), [](const TreeItem* row) {
               const TreeItemType type = CProjectTree::GetItemType(row);
               return type == TreeItemType::drawing || type == TreeItemType::subfolder;
           });
}

} // namespace ryv::tree_rules
