#include "host/commands.h"

#include "bridge/command_strings.h"
#include "bridge/platform.h"
#include "host/missing_dialog.h"
#include "host/nav_manager.h"
#include "host/palette.h"
#include "manager/project_manager.h"
#include "resources/message_numbers.h"
#include "resources/messages.h"

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

/// Whether there is a drawing to work on: the one that the tree has handed over, which is taken, or the one
/// of the current document.
bool takePendingDrawing() {
    NavState* const state = navState();
    if (!state)
        return false;
    const CString pending = std::exchange(state->pendingDrawing, {});
    state->pendingSecond.clear();
    return !pending.empty() || platform().host.documents->hasCurrentDocument();
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
    if (GetActiveProject())
        tellDialogMissing(u"The properties sheet of projects");
}

void newProject() {
    RyvPrmProjectManager* const manager = GetProjectManager();
    if (manager && !manager->sendEventVetoCheck())
        tellDialogMissing(u"The dialog for new projects");
}

void drawingProperties() {
    if (takePendingDrawing())
        tellDialogMissing(u"The properties sheet of drawings");
}

/// Nothing comes of it, so the subfolder that the tree set for it must not get the next drawing.
void newDrawing() {
    if (GetActiveProject())
        tellDialogMissing(u"The dialog for new drawings");
    if (RyvPrmProjectManager* const manager = GetProjectManager())
        manager->SetNewDwgSubfolderTrace({});
}

void continueNewDrawing() {
    tellDialogMissing(u"The second half of making a drawing");
}

void compareDrawingToProject() {
    if (takePendingDrawing())
        tellDialogMissing(u"The comparison of a drawing's settings");
}

} // namespace ryv::commands
