#include "host/commands.h"

#include "bridge/command_strings.h"
#include "bridge/platform.h"
#include "host/nav_manager.h"
#include "host/palette.h"
#include "manager/pending_new_drawing.h"
#include "manager/project_manager.h"
#include "resources/message_numbers.h"
#include "resources/messages.h"
#include "ui/dialogs/creation/new_drawing.h"
#include "ui/dialogs/creation/new_project.h"
#include "ui/dialogs/work/drawing_properties.h"
#include "ui/dialogs/work/project_properties.h"
#include "ui/dialogs/work/settings_work.h"
#include "ui/tree/item_selection.h"

#include <utility>

namespace ryv::commands {

namespace {

constexpr CStringView testScript = u"C:\\Temp\\myscript.scr";

bool isYes(int question) {
    MessageBoxRequest request;
    request.message = question;
    request.text = messageText(question);
    request.icon = MessageIcon::question;
    request.buttons = MessageButtons::yesNo;
    return platform().ui->messageBox(request) == Answer::yes;
}

CString chooseDrawing() {
    FileRequest request;
    request.title = message::testChooseDrawingTitle;
    request.text = messageText(request.title);
    request.extension = u".dwg";
    const std::vector<CString> chosen = platform().ui->chooseFiles(request);
    return chosen.empty() ? CString() : chosen.front();
}

struct DrawingAtHand {
    CString path; ///< empty when there is none
    bool titled = true;
};

/// The drawing to work on: the one that the tree has handed over, which is taken, or the one of the current
/// document.
DrawingAtHand takePendingDrawing() {
    NavState* const state = navState();
    if (!state)
        return {};
    CString pending = std::exchange(state->pendingDrawing, {});
    state->pendingSecond.clear();
    HostDocuments& documents = *platform().host.documents;
    if (!pending.empty() || !documents.hasCurrentDocument())
        return {std::move(pending)};
    const DocumentId current = documents.currentDocument();
    return {documents.fileName(current), documents.isNamed(current)};
}

CProjectTree* treeOfPalette() {
    RyvPrmNavManager* const manager = GetNavManager();
    RyvPrmPalette* const palette = manager ? manager->firstPalette() : nullptr;
    return palette ? &palette->tree() : nullptr;
}

/// Unless the project does not list the drawing, or has been closed. The tree would notice by itself, later.
void showInTree(const CString& projectId, const CString& trace, const CString& drawing) {
    CProjectTree* const tree = treeOfPalette();
    if (!tree)
        return;
    tree->onProjectReRead(projectId);
    selectDrawings(*tree, projectId, trace, {drawing});
}

void showInTree(const CString& projectId) {
    CProjectTree* const tree = treeOfPalette();
    TreeItem* const row = tree ? tree->GetProjectItem(projectId) : nullptr;
    if (!row)
        return;
    if (!row->shown())
        tree->setFilter({});
    tree->ensureVisible(*row);
    tree->setSelection({row});
}

} // namespace

void lockActiveProject() {
    RyvPrmProjectManager* const manager = GetProjectManager();
    CString project;
    if (manager && manager->getActiveProjectID(project))
        manager->lockProjectFile(project);
}

/// The command has no work of its own; that it can be started at all is what it is for.
void doNothing() {}

void testModal() {
    const bool showsProperties = isYes(message::testRunDrawingProperties);
    const bool runsScript = isYes(message::testRunScript);
    const bool runsOwnScript = isYes(message::testRunOwnScript);
    if (runsScript)
        platform().host.commands->runCommand(
            {runsOwnScript ? u"_.RYV_SCRIPT" : u"_.SCRIPT", CString(testScript)});
    if (!showsProperties && !runsScript)
        return;
    const CString drawing = chooseDrawing();
    if (drawing.empty() || !navState())
        return;
    if (!showsProperties) {
        queueCommandString(CommandString::continueNewDrawing);
        return;
    }
    navState()->pendingDrawing = drawing;
    platform().host.commands->runCommand({u"_.RYVDRAWINGPROPS"});
}

void showPalettes() {
    RyvPrmNavManager* const manager = GetNavManager();
    if (manager && !manager->isPaletteSetVisible())
        manager->showPaletteSet(true);
}

void hidePalettes() {
    RyvPrmNavManager* const manager = GetNavManager();
    if (manager && manager->isPaletteSetVisible())
        manager->showPaletteSet(false);
}

void copyDrawingsTo() {
    RyvPrmNavManager* const manager = GetNavManager();
    if (RyvPrmPalette* const palette = manager ? manager->firstPalette() : nullptr)
        palette->tree().copySelectedDrawing();
}

void projectProperties() {
    const RyvPrmProjectManager* const manager = GetProjectManager();
    CString project;
    if (manager && manager->getActiveProjectID(project))
        showProjectProperties(project);
}

void newProject() {
    if (const CString project = makeNewProject(); !project.empty())
        showInTree(project);
}

void drawingProperties() {
    const DrawingAtHand drawing = takePendingDrawing();
    if (!drawing.path.empty())
        showDrawingProperties(drawing.path, drawing.titled);
}

void newDrawing() {
    startNewDrawing();
}

void continueNewDrawing() {
    const NavState* const state = navState();
    const PendingNewDrawing* const pending = state ? state->newDrawing.get() : nullptr;
    if (!pending)
        return;
    const CString project = pending->locks.projectId();
    const CString trace = pending->trace;
    const CString drawing(pending->details->getFileName());
    ryv::continueNewDrawing();
    showInTree(project, trace, drawing);
}

void compareDrawingToProject() {
    const DrawingAtHand drawing = takePendingDrawing();
    if (!drawing.path.empty())
        compareDrawing(drawing.path);
}

} // namespace ryv::commands
