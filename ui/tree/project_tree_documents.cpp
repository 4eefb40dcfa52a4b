// Commands of the project tree on drawings: opening, closing, replacing and copying them.

#include "base/fold.h"
#include "base/paths.h"
#include "bridge/command_strings.h"
#include "bridge/platform.h"
#include "manager/shown_messages.h"
#include "resources/message_numbers.h"
#include "resources/messages.h"
#include "resources/task_buttons.h"
#include "ui/tree/document_needed.h"
#include "ui/tree/open_documents.h"
#include "ui/tree/project_work.h"
#include "ui/tree/row_name.h"
#include "ui/tree/task_questions.h"

namespace ryv {

namespace {

constexpr CStringView closeCommand = u"_.close\r";

CStringArray selectedDrawings(const CProjectTree& tree) {
    CStringArray paths;
    for (const TreeItem* const row : tree.selection())
        if (CProjectTree::GetItemType(row) == TreeItemType::drawing)
            paths.push_back(CProjectTree::GetItemData(row)->key);
    return paths;
}

void closeDrawings(const CStringArray& paths) {
    const OpenDocuments open;
    for (const CString& path : paths)
        if (const DocumentId id = open.find(path); id != DocumentId::none)
            platform().host.documents->sendStringToExecute(id, closeCommand, {});
}

CString chooseReplacement(const CString& drawing) {
    FileRequest request;
    request.title = message::replaceDrawingTitle;
    request.text = format(messageText(request.title), {paths::findFileName(drawing)});
    request.folder = paths::folderOf(drawing);
    request.extension = u".dwg";
    const std::vector<CString> chosen = platform().ui->chooseFiles(request);
    return chosen.empty() ? CString() : chosen.front();
}

/// An open drawing would go on outside of the project, with all that is not saved in it.
bool isClosed(const CString& drawing) {
    if (OpenDocuments().find(drawing) == DocumentId::none)
        return true;
    showMessage({message::drawingIsOpen, message::commandRefusedTitle}, {paths::findFileName(drawing)});
    return false;
}

bool isNewToProject(const RyvPrmProject& project, const CString& drawing) {
    if (!project.isFileInProject(drawing))
        return true;
    showMessage({message::drawingIsListed, message::commandRefusedTitle},
        {paths::findFileName(drawing), paths::titleOf(project.getProjectID())});
    return false;
}

} // namespace

void CProjectTree::DrawingMenuOpen() {
    std::size_t failed = 0;
    for (const CString& path : selectedDrawings(*this))
        failed += openDrawing(path) ? 0u : 1u;
    if (failed > 0)
        notice().tell(format(messageText(message::drawingsNotOpened), {failed}));
}

/// The host asks about changes that are not saved.
void CProjectTree::DrawingMenuClose() {
    const CStringArray paths = selectedDrawings(*this);
    platform().host.documents->executeInApplicationContext([paths] { closeDrawings(paths); });
}

void CProjectTree::DrawingMenuReplace() {
    const RowName row = rowNameOf(contextRow(*this));
    if (row.type != TreeItemType::drawing || !isClosed(row.key))
        return;
    const CString chosen = chooseReplacement(row.key);
    if (chosen.empty() || equalNoCase(chosen, row.key))
        return;
    ProjectWork work(*this, row.projectId);
    const auto project = work.project();
    if (project && project->isOZMProject() &&
        askTask(u"RyvPageMan.ReplaceDrawingLinkBreak") != task_button::yes)
        return;
    if (!work.lock())
        return;
    if (!work.project()->isFileInProject(row.key))
        return work.tellGone();
    if (isNewToProject(*work.project(), chosen) && isClosed(row.key))
        work.settle(GetProjectManager()->replaceFileInProject(row.key, chosen, row.projectId));
}

/// The command runs later, when another row may be selected.
void CProjectTree::DrawingMenuCopyTo() {
    const ListedDrawing drawing = listedDrawingOf(contextRow(*this));
    NavState* const state = navState();
    if (!state || drawing.path.empty() || !hasDocumentOrTells(*this))
        return;
    state->drawingToCopy = drawing;
    runInApplicationContext(CommandString::copyDrawing);
}

void CProjectTree::DrawingAndSubfolderMenuRename() {
    if (TreeItem* const row = contextRow(*this))
        editLabel(*row);
}

} // namespace ryv
