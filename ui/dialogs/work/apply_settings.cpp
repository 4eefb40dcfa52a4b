// Settings for many drawings: a project's defaults, or those that were copied from another drawing.

#include "base/format.h"
#include "base/paths.h"
#include "bridge/platform.h"
#include "manager/file_locks.h"
#include "manager/nav_state.h"
#include "manager/project_manager.h"
#include "manager/shown_messages.h"
#include "model/settings_block.h"
#include "resources/messages.h"
#include "resources/setting_message_numbers.h"
#include "ui/dialogs/work/drawing_access.h"
#include "ui/dialogs/work/report_dialog.h"
#include "ui/dialogs/work/settings_work.h"
#include "ui/dialogs/work/told_refusal.h"

namespace ryv {

namespace {

struct Work {
    CStringArray drawings; ///< each once
    const RyvCfgDrawingSettings& source;
    int progressTitle;
    int reportTitle;
};

/// One drawing is soon put right again. `from`: whose settings these are.
bool userAgrees(int question, int title, CStringView from, std::size_t drawings) {
    return drawings < 2 || showMessage({question, title, MessageIcon::question, MessageButtons::yesNo},
                               {from, drawings}) == Answer::yes;
}

struct Outcome {
    CStringArray saved;   ///< drawings
    CStringArray inHost;  ///< drawings that are changed in their windows
    CStringArray skipped; ///< reasons
    CStringList reread;   ///< drawings whose settings may be others now
    std::size_t done() const noexcept { return saved.size() + inHost.size() + skipped.size(); }
};

DocumentId documentOf(const CString& drawing) {
    return platform().host.documents->documentOfFile(drawing);
}

/// Empty when it is done, else why not. The document that a drawing is open in is changed and not saved,
/// since whatever else the user has changed in it would be saved, too. Writing calls LISP, so the drawing may
/// come to be open, or closed, in between: what is written then is not what the user sees.
CString changeDrawing(const CString& drawing, const RyvCfgDrawingSettings& source, DocumentId document) {
    CString problem;
    const auto view = openDrawing(drawing, problem);
    if (!view)
        return problem;
    RyvDbxBlockRef accessor(*view);
    const bool isWritten = applySettingsToDrawing(accessor, source, false);
    if (documentOf(drawing) != document)
        return format(messageText(message::drawingOpenedOrClosed), {shownPath(drawing)});
    if (!isWritten)
        return format(messageText(message::settingsNotWritten), {shownPath(drawing)});
    const DrawingResult saved = document != DocumentId::none ? DrawingResult() : view->save();
    return saved.ok() ? CString() : shownProblem(saved.problem, drawing);
}

/// One drawing at a time is locked, since a lock is an open file. A document that could not be changed as a
/// whole may be changed in part.
void changeLocked(FileLocks& locks, const CString& drawing, const Work& work, Outcome& outcome) {
    if (!locks.lock({drawing})) {
        outcome.skipped.push_back(locks.listedRefusal());
        return;
    }
    const DocumentId document = documentOf(drawing);
    const bool isOpen = document != DocumentId::none;
    CString problem = changeDrawing(drawing, work.source, document);
    locks.unlock(drawing);
    if (problem.empty() || isOpen)
        outcome.reread.push_back(drawing);
    if (problem.empty())
        (isOpen ? outcome.inHost : outcome.saved).push_back(shownPath(drawing));
    else
        outcome.skipped.push_back(std::move(problem));
}

Outcome changeAll(FileLocks& locks, const Work& work) {
    Outcome outcome;
    const auto progress = platform().ui->beginProgress(work.progressTitle, work.drawings.size());
    for (const CString& drawing : work.drawings) {
        if (!progress->step(outcome.done(), paths::findFileName(drawing)))
            break;
        changeLocked(locks, drawing, work, outcome);
    }
    return outcome;
}

CString summaryOf(const Outcome& outcome, std::size_t count) {
    CString summary = format(messageText(message::settingsSummary),
        {outcome.saved.size() + outcome.inHost.size(), outcome.skipped.size()});
    if (outcome.done() < count)
        summary += u" " + format(messageText(message::settingsCancelled), {outcome.done(), count});
    return summary;
}

/// What went well is the longest list, and what the user has to know least.
CStringArray reportOf(const Outcome& outcome, std::size_t count) {
    CStringArray report;
    addGroup(report, {}, {summaryOf(outcome, count)});
    addGroup(report, messageText(message::settingsSkipped), outcome.skipped);
    addGroup(report, messageText(message::settingsInOpenDrawings), outcome.inHost);
    addGroup(report, messageText(message::settingsApplied), outcome.saved);
    return report;
}

/// Nothing is begun while somebody works on any of the files.
void applyTo(FileLocks& locks, const Work& work) {
    CStringList files(work.drawings.begin(), work.drawings.end());
    if (!locks.projectId().empty())
        files.insert(files.begin(), locks.projectId());
    if (!locks.check(files)) {
        tellRefusal(locks);
        return;
    }
    const Outcome outcome = changeAll(locks, work);
    locks.unlock();
    rereadInLisp(outcome.reread);
    showReport(CString(messageText(work.reportTitle)), reportOf(outcome, work.drawings.size()));
}

} // namespace

void applyProjectDefaults(CStringView projectId, const CStringArray& drawings) {
    const CString id(projectId);
    if (!holdProject(id) || drawings.empty())
        return;
    const CString name = nameOfProject(id);
    const CStringArray each = eachOnce(drawings);
    if (!userAgrees(message::settingsAskApply, message::settingsAskApplyTitle, name, each.size()))
        return;
    const auto project = holdProject(id);
    if (!project) {
        showMessage(
            {message::settingsProjectClosed, message::settingsAskApplyTitle, MessageIcon::warning}, {name});
        return;
    }
    const RyvCfgDrawingSettings source = defaultsOf(project.get());
    FileLocks locks(project->getProjectID());
    applyTo(locks, {each, source, message::applyingSettings, message::settingsAppliedTitle});
}

bool copySettings(CStringView drawing) {
    RyvCfgDrawingSettings settings = defaultsOf(holdProject(projectOf(drawing)).get());
    CString problem;
    NavState* const state = navState();
    if (!state)
        return false;
    if (!readDrawing(drawing, settings, problem)) {
        tellNotRead(problem);
        return false;
    }
    state->copiedSettings.emplace(settings); // not assigned, which would merge
    state->copiedFrom = drawing;
    return true;
}

bool hasCopiedSettings() {
    const NavState* const state = navState();
    return state && state->copiedSettings;
}

void pasteSettings(const CStringArray& drawings) {
    if (!hasCopiedSettings() || drawings.empty())
        return;
    const RyvCfgDrawingSettings source(*navState()->copiedSettings); // others may be copied meanwhile
    const CStringArray each = eachOnce(drawings);
    if (!userAgrees(message::settingsAskPaste, message::settingsAskPasteTitle,
            paths::findFileName(navState()->copiedFrom), each.size()))
        return;
    FileLocks locks;
    applyTo(locks, {each, source, message::pastingSettings, message::settingsPastedTitle});
}

} // namespace ryv
