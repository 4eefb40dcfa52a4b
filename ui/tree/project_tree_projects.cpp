// Commands of the project tree on open projects as a whole.

#include "base/fold.h"
#include "bridge/environment.h"
#include "bridge/platform.h"
#include "manager/shown_messages.h"
#include "resources/message_numbers.h"
#include "resources/messages.h"
#include "ui/tree/row_name.h"

namespace ryv {

namespace {

/// The project below a row, or the one above the last; empty for the only one.
CString neighbourOf(const TreeItem& project) {
    const TreeItem* const neighbour = project.next() ? project.next() : project.previous();
    return neighbour ? CProjectTree::GetProjectOfItem(neighbour) : CString();
}

CString chooseProject() {
    FileRequest request;
    request.title = message::openProjectTitle;
    request.text = messageText(request.title);
    request.extension = u".kqp";
    readEnvironment(u"KQ_PICKPRJDLG", request.folder);
    const std::vector<CString> chosen = platform().ui->chooseFiles(request);
    return chosen.empty() ? CString() : chosen.front();
}

/// One of the same name gives way, if the user agrees; the same one only becomes active.
void openOrReplace(RyvPrmProjectManager& manager, const CString& id) {
    CString existing;
    const bool sameName = manager.isProjectSameNameAsExisting(id, &existing);
    if (sameName && !equalNoCase(existing, id)) {
        manager.replaceOpenProjectWithPrompt(existing, id, true);
        return;
    }
    if (!manager.openProject(id, true))
        showMessage({message::projectNotOpened, message::projectNotOpenedTitle}, {shownPath(id)});
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
    const CString id = chooseProject();
    if (!id.empty() && GetProjectManager())
        openOrReplace(*GetProjectManager(), id);
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
