// Commands of the project tree on drawings: opening, closing, replacing and copying them.

#include "base/fold.h"
#include "base/format.h"
#include "base/paths.h"
#include "bridge/command_strings.h"
#include "bridge/platform.h"
#include "resources/message_numbers.h"
#include "resources/messages.h"
#include "resources/task_buttons.h"
#include "ui/tree/document_needed.h"
#include "ui/tree/new_to_project.h"
#include "ui/tree/open_documents.h"
#include "ui/tree/opening_problem.h"
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

bool isListed(const CString& drawing) {
    const RyvPrmProjectManager* const manager = GetProjectManager();
    for (int index = 0; manager && index < manager->getProjectCount(); ++index)
        if (manager->isFileInProject(drawing, manager->getProject(index)->getProjectID()))
            return true;
    return false;
}

/// What is in front goes on as its replacement, if that can be opened.
void closeReplaced(const CString& drawing, const CString& replacement) {
    HostDocuments& documents = *platform().host.documents;
    const DocumentId document = documents.documentOfFile(drawing);
    if (document == DocumentId::none || isListed(drawing))
        return;
    if (document == documents.currentDocument() && !openDrawing(replacement))
        return;
    documents.sendStringToExecute(document, closeCommand, {});
}

bool replaceEntry(ProjectWork& work, const CString& drawing, const CString& replacement) {
    if (!work.lock())
        return false;
    if (!work.project()->isFileInProject(drawing)) {
        work.tellGone();
        return false;
    }
    return isNewToProject(*work.project(), replacement) &&
           (work.settle(GetProjectManager()->replaceFileInProject(drawing, replacement, work.projectId())) ||
               work.wasWritten());
}

} // namespace

void CProjectTree::DrawingMenuOpen() {
    CStringArray failed = selectedDrawings(*this);
    std::erase_if(failed, openDrawing);
    if (failed.empty())
        return;
    const CString problem = failed.size() == 1 ? problemOfOpening(failed.front()) : CString();
    notice().tell(
        problem.empty() ? format(messageText(message::drawingsNotOpened), {failed.size()}) : problem);
}

/// The host asks about changes that are not saved.
void CProjectTree::DrawingMenuClose() {
    const CStringArray paths = selectedDrawings(*this);
    platform().host.documents->executeInApplicationContext([paths] { closeDrawings(paths); });
}

void CProjectTree::DrawingMenuReplace() {
    const RowName row = rowNameOf(contextRow(*this));
    if (row.type != TreeItemType::drawing)
        return;
    const CString chosen = chooseReplacement(row.key);
    if (chosen.empty() || equalNoCase(chosen, row.key))
        return;
    ProjectWork work(*this, row.projectId);
    const auto project = work.project();
    if (project && project->isLinked() && askTask(u"RyvPageMan.ReplaceDrawingLinkBreak") != task_button::yes)
        return;
    // Locking runs LISP in a document, which is busy then until the host is idle.
    HostDocuments& documents = *platform().host.documents;
    const DocumentId document = documents.documentOfFile(row.key);
    const bool isBusy = document != DocumentId::none && !documents.isQuiescent(document);
    if (!replaceEntry(work, row.key, chosen))
        return;
    if (!isBusy)
        documents.executeInApplicationContext([row, chosen] { closeReplaced(row.key, chosen); });
    else if (!isListed(row.key))
        notice().tell(format(messageText(message::replacedStaysOpen), {paths::findFileName(row.key)}));
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
