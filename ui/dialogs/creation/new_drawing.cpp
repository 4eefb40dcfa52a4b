#include "ui/dialogs/creation/new_drawing.h"

#include "base/text.h"
#include "bridge/platform.h"
#include "bridge/project_calls.h"
#include "manager/nav_state.h"
#include "manager/pending_new_drawing.h"
#include "manager/project_manager.h"
#include "manager/shown_messages.h"
#include "model/settings_block.h"
#include "resources/creation_message_numbers.h"
#include "resources/file_reasons.h"
#include "ui/dialogs/creation/drawing_maker.h"
#include "ui/dialogs/creation/new_drawing_dialog.h"
#include "ui/dialogs/work/drawing_properties.h"

namespace ryv {

namespace {

using Pending = std::unique_ptr<PendingNewDrawing>;

constexpr CStringView scriptFormat = u"_.open\n\"%s\"\n_ryvcontinuenewdrawing\n";

bool tell(int text, std::initializer_list<FormatArgument> arguments) {
    showMessage({text, message::newDrawingTitle, MessageIcon::warning}, arguments);
    return false;
}

CString pathOf(const PendingNewDrawing& pending) {
    return CString(pending.details->getFileName());
}

/// Takes what was set for the drawing in any case, so that the next one does not get it.
Pending begin() {
    NavState* const state = navState();
    RyvPrmProjectManager* const manager = GetProjectManager();
    if (!state || !manager)
        return nullptr;
    const CString trace = manager->takeNewDwgSubfolderTrace();
    state->newDrawing.reset();
    CString projectId;
    return manager->getActiveProjectID(projectId) ? std::make_unique<PendingNewDrawing>(projectId, trace)
                                                  : nullptr;
}

/// From the dialog to the file; false when the user cancels or something fails, which is told.
bool make(PendingNewDrawing& pending) {
    if (!pending.locks.lockProject())
        return tell(message::newDrawingNotLocked, {pending.locks.refusal()});
    CRyvCfgDrawingNewDlg dialog(pending.locks.projectId(), [&pending](const NewDrawingValues& values) {
        return makeDrawing(values, pending.locks.projectId(), *pending.details);
    });
    if (platform().ui->runModal(dialog) != Dialog::idOk)
        return false;
    pending.showsProperties = dialog.values().showsProperties;
    return true;
}

/// What the second half has not taken when the script is over goes, with its locks.
void openWithScript(Pending pending, const CString& script) {
    NavState& state = *navState();
    const CString path = pathOf(*pending);
    const PendingNewDrawing* const own = pending.get();
    state.newDrawing = std::move(pending);
    const auto forget = [own] {
        const bool isWaiting = navState() && navState()->newDrawing.get() == own;
        if (isWaiting)
            navState()->newDrawing.reset();
        return isWaiting;
    };
    try {
        platform().host.commands->runCommand({u"_.RYV_SCRIPT", script});
    } catch (...) { // broken off
        forget();
        throw;
    }
    if (forget())
        tell(message::newDrawingNotOpened, {shownPath(path)});
}

void open(Pending pending) {
    const CString path = pathOf(*pending);
    CString script;
    if (!writeTempScript(format(scriptFormat, {trimRight(path)}), script)) {
        pending.reset();
        tell(message::newDrawingNotOpened, {shownPath(path)});
    } else if (!pending->locks.lock({path})) {
        const CString refusal = pending->locks.refusal();
        pending.reset();
        removeMadeDrawing(path);
        tell(message::newDrawingNotLocked, {refusal});
    } else if (navState()) {
        openWithScript(std::move(pending), script);
    }
}

/// Whoever opens another drawing than the one that was made must not have that one's properties shown, nor
/// its own title block changed.
bool isCurrentDrawing(const CString& path) {
    HostDocuments& documents = *platform().host.documents;
    const DocumentId opened = documents.documentOfFile(path);
    return opened != DocumentId::none && opened == documents.currentDocument();
}

bool tellNotAdded(const CString& path, const CString& projectId) {
    CString name;
    if (const RyvPrmProjectManager* const manager = GetProjectManager())
        manager->makeProjectPrettyNameFromID(projectId, name);
    return tell(message::newDrawingNotAdded, {shownPath(path), name});
}

/// A change that cannot be written must not stay in memory either.
bool tellNotWritten(const CString& path, RyvPrmProject& project) {
    const CString projectId = project.getProjectID();
    const CString file = project.lastFile().empty() ? projectId : project.lastFile();
    const CString reason = fileReason(project.lastStatus().error);
    RyvPrmProjectManager* const manager = GetProjectManager();
    if (!manager || !manager->reReadProject(projectId))
        project.removeFile(path);
    return tell(message::newDrawingNotWritten, {shownPath(path), shownPath(file), reason});
}

bool addToProject(PendingNewDrawing& pending) {
    const CString path = pathOf(pending);
    const CString projectId = pending.locks.projectId();
    RyvPrmProjectManager* manager = GetProjectManager();
    const auto project = manager ? manager->holdProject(projectId) : nullptr;
    if (project && !project->isFileUntouched()) { // what others have written is not read yet
        manager->reReadProject(projectId);
        manager = GetProjectManager();
    }
    if (project && manager) {
        project->forgetLastError();
        manager->SetNewDwgSubfolderTrace(pending.trace);
        if (manager->addFileToProject(std::move(pending.details), projectId))
            return true;
    }
    pending.locks.unlock();
    if (project && project->getLastError() != RyvPmUtilsKQPFiler::noError)
        return tellNotWritten(path, *project);
    return tellNotAdded(path, projectId);
}

/// Whoever asks where it is has it brought up to date.
void updateDatabase(const CString& projectId) {
    CString database;
    if (const RyvPrmProjectManager* const manager = GetProjectManager())
        manager->getProjectDbFullPath(projectId, database);
}

} // namespace

void startNewDrawing() {
    Pending pending = begin();
    if (pending && make(*pending))
        open(std::move(pending));
}

void continueNewDrawing() {
    NavState* const state = navState();
    const Pending pending = state ? std::move(state->newDrawing) : nullptr;
    if (!pending)
        return;
    const CString path = pathOf(*pending);
    if (!isCurrentDrawing(path)) {
        pending->locks.unlock();
        tell(message::newDrawingNotOpened, {shownPath(path)});
        return;
    }
    if (!addToProject(*pending))
        return;
    pending->locks.unlock();
    updateDatabase(pending->locks.projectId());
    if (pending->showsProperties)
        showDrawingProperties(path, true);
    lisp::updateTitleBlock();
    lisp::updateLadderReferences();
}

} // namespace ryv
