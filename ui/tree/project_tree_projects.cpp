// Commands of the project tree on open projects as a whole.

#include "ui/tree/project_opening.h"
#include "ui/tree/row_name.h"

namespace ryv {

namespace {

/// The project below a row, or the one above the last; empty for the only one.
CString neighbourOf(const TreeItem& project) {
    const TreeItem* const neighbour = project.next() ? project.next() : project.previous();
    return neighbour ? CProjectTree::GetProjectOfItem(neighbour) : CString();
}

} // namespace

void CProjectTree::ProjectMenuActivate() {
    if (RyvPrmProjectManager* const manager = GetProjectManager())
        manager->setActiveProject(GetProjectOfItem(contextRow(*this)));
}

/// There is always an active project while one is open, so the only one stays.
void CProjectTree::ProjectMenuClose() {
    RyvPrmProjectManager* const manager = GetProjectManager();
    const TreeItem* const row = contextRow(*this);
    if (!manager || GetItemType(row) != TreeItemType::project)
        return;
    const CString id = GetProjectOfItem(row);
    if (!manager->isActiveProject(id)) {
        manager->closeProject(id, false);
        return;
    }
    const CString next = neighbourOf(*row);
    if (next.empty() || manager->sendEventVetoCheck() || !manager->setActiveProject(next))
        return;
    if (TreeItem* const item = GetProjectItem(next))
        setSelection({item});
    manager->closeProject(id, false);
}

void CProjectTree::EmptySelectMenuOpenProject() {
    RyvPrmProjectManager* const manager = GetProjectManager();
    if (!manager || manager->sendEventVetoCheck())
        return;
    const CString id = chooseProjectFile();
    if (!id.empty())
        openOrReplaceProject(id);
}

void CProjectTree::MenuExpandAll() {
    for (TreeItem* const row : selectedRows(*this))
        expandAll(row, true);
}

void CProjectTree::MenuCollapseAll() {
    for (TreeItem* const row : selectedRows(*this))
        expandAll(row, false);
}

} // namespace ryv
