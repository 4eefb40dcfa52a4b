// Commands of the project tree that LISP, or a command of the host, does the work of.

#include "bridge/command_strings.h"
#include "bridge/lisp.h"
#include "bridge/platform.h"
#include "bridge/project_calls.h"
#include "manager/nav_state.h"
#include "resources/message_numbers.h"
#include "resources/messages.h"
#include "ui/tree/document_needed.h"
#include "ui/tree/project_work.h"
#include "ui/tree/row_name.h"

namespace ryv {

namespace {

/// The drawings that a list command works on, which are those of one project, are told to LISP when the
/// command is given, and it runs once the host is back in its own loop.
void runOnSelected(CProjectTree& tree, CommandString command) {
    const TreeItem* const project = CProjectTree::GetProjectItemFromItem(contextRow(tree));
    if (project && hasDocumentOrTells(tree) && setSelectedDrawings(tree.GetAllSelectedDwgs(project)))
        runInApplicationContext(command);
}

/// The command takes the drawing from there.
void runOnDrawing(CProjectTree& tree, CommandString command) {
    const _itemdatastruct* const record = CProjectTree::GetItemData(contextRow(tree));
    NavState* const state = navState();
    if (!record || record->type != TreeItemType::drawing || !state || !hasDocumentOrTells(tree))
        return;
    state->pendingDrawing = record->key;
    state->pendingSecond.clear();
    runInApplicationContext(command);
}

/// The new drawing comes to lie in the subfolder of `trace`, at the top level when that is empty.
void makeDrawing(CProjectTree& tree, CStringView trace) {
    RyvPrmProjectManager* const manager = GetProjectManager();
    if (!manager || !hasDocumentOrTells(tree))
        return;
    CString active;
    if (!manager->getActiveProjectID(active))
        return tree.notice().tell(CString(messageText(message::workNeedsProject)));
    manager->SetNewDwgSubfolderTrace(trace);
    runInApplicationContext(CommandString::newDrawing);
}

void run(CProjectTree& tree, CommandString command) {
    if (hasDocumentOrTells(tree))
        runInApplicationContext(command);
}

/// Of the active project LISP edits the lines that it knows and writes them itself; it knows none of another
/// one, whose lines it gets and gives back.
bool editLines(ProjectWork& work) {
    const RyvPrmProjectManager& manager = *GetProjectManager();
    CStringArray lines;
    if (manager.isActiveProject(work.projectId())) {
        lisp::editDescriptionLines(1, lines); // what it gives says less than the file: see reRead()
        return work.reRead();
    }
    const CStringList& present = work.project()->getProjectData().getProjDescriptions();
    CString name;
    manager.makeProjectPrettyNameFromID(work.projectId(), name);
    if (!lisp::editDescriptionLines(name, CStringArray(present.begin(), present.end()), lines))
        return false;
    while (!lines.empty() && lines.back().empty())
        lines.pop_back();
    const auto project = work.project();
    if (!project)
        return false;
    project->editProjectData().setProjDescriptions({lines.begin(), lines.end()});
    return work.write();
}

} // namespace

void CProjectTree::ProjectMenuDescriptions() {
    ProjectWork work(*this, GetProjectOfItem(contextRow(*this)));
    if (work.lock() && editLines(work))
        detailsChanged.fire();
}

void CProjectTree::ProjectMenuTitleBlockUpdate() {
    runOnSelected(*this, CommandString::updateTitleBlocks);
}

void CProjectTree::ProjectMenuDrawingListReport() {
    runOnSelected(*this, CommandString::reportDrawings);
}

void CProjectTree::ProjectMenuPubPlotMenuPlot() {
    runOnSelected(*this, CommandString::plotDrawings);
}

void CProjectTree::ProjectMenuPubPlotMenuPubFile() {
    runOnSelected(*this, CommandString::publishDrawings);
}

void CProjectTree::ProjectMenuPubPlotMenuZip() {
    runOnSelected(*this, CommandString::archiveProject);
}

void CProjectTree::ProjectMenuTaskList() {
    run(*this, CommandString::runPendingUpdates);
}

void CProjectTree::ProjectMenuSettings() {
    if (hasDocumentOrTells(*this))
        lisp::showProjectSettingsHelp();
}

void CProjectTree::ProjectMenuProperties() {
    run(*this, CommandString::projectProperties);
}

/// LISP asks which, and writes the file.
void CProjectTree::ProjectMenuRemoveDrawings() {
    ProjectWork work(*this, GetProjectOfItem(contextRow(*this)));
    if (!work.lock())
        return;
    const CStringArray expanded = expandedTraces(*this, work.projectId());
    lisp::removeDrawings(work.projectId());
    if (work.reRead())
        expandTraces(*this, work.projectId(), expanded);
}

void CProjectTree::DrawingMenuProperties() {
    runOnDrawing(*this, CommandString::drawingProperties);
}

void CProjectTree::DrawingPropsMenuDrawCompare() {
    runOnDrawing(*this, CommandString::compareDrawingToProject);
}

void CProjectTree::ProjectMenuNewDrawing() {
    makeDrawing(*this, {});
}

void CProjectTree::SubfolderMenuNewDrawing() {
    makeDrawing(*this, GetSubfolderTraceForItem(contextRow(*this)));
}

void CProjectTree::EmptySelectMenuNewDrawing() {
    makeDrawing(*this, {});
}

void CProjectTree::EmptySelectMenuNewProject() {
    run(*this, CommandString::newProject);
}

} // namespace ryv
