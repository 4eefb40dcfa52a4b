// Drawing file names to lower or upper case.

#include "base/fold.h"
#include "base/format.h"
#include "base/paths.h"
#include "bridge/platform.h"
#include "manager/shown_messages.h"
#include "resources/file_reasons.h"
#include "resources/message_numbers.h"
#include "resources/messages.h"
#include "resources/setting_message_numbers.h"
#include "ui/dialogs/work/report_dialog.h"
#include "ui/tree/project_work.h"
#include "ui/tree/row_name.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <unordered_set>

namespace ryv {

namespace {

using Fold = CString (*)(CStringView);

struct Rename {
    CString from;
    CString to;
};

/// Those below the rows whose names are different then, each file once.
std::vector<Rename> renamesBelow(const std::vector<TreeItem*>& rows, Fold fold) {
    std::vector<Rename> renames;
    std::unordered_set<CString> known;
    for (const TreeItem* const row : rows)
        for (const CString& path : CProjectTree::GenerateDwgListUnderItem(*row)) {
            const CStringView name = paths::findFileName(path);
            CString to = path.substr(0, path.size() - name.size()) + fold(name);
            if (to != path && known.insert(toUpper(path)).second)
                renames.push_back({path, std::move(to)});
        }
    return renames;
}

/// What came of the work, drawing by drawing.
struct Report {
    CStringArray changed;
    CStringArray skipped; ///< with the reason
    bool cancelled = false;

    CStringArray lines(std::size_t wanted) const {
        CString summary = format(messageText(message::settingsSummary), {changed.size(), skipped.size()});
        if (cancelled)
            summary += u" " + format(messageText(message::settingsCancelled),
                                  {changed.size() + skipped.size(), wanted});
        CStringArray lines{summary};
        addGroup(lines, messageText(message::settingsSkipped), skipped);
        addGroup(lines, messageText(message::fileNamesChanged), changed);
        return lines;
    }
};

/// Why it was not done; empty when it was.
CString renameOnDisk(CProjectTree& tree, ProjectWork& work, const Rename& rename) {
    const auto project = work.project(); // null when files get their old names back after it was closed
    if (!work.lockDrawing(rename.from))
        return work.listedRefusal();
    ProjectDatabase& database = *platform().services.projectDatabase;
    database.PmRenameStarted(work.projectId(), rename.from, project ? project->GetFileId(rename.from) : 0);
    const bool renamed = tree.DoActualFileRename(rename.from, rename.to, true);
    database.PmRenameCompleted(work.projectId(), renamed ? CStringView(rename.to) : CStringView());
    work.unlockDrawing(rename.from);
    return renamed ? CString()
                   : format(messageText(message::workListedNotDone),
                         {shownPath(rename.from), fileReason(tree.lastRenameError())});
}

CString goneFrom(const Rename& rename) {
    return format(messageText(message::workListedGone), {shownPath(rename.from)});
}

bool isListed(const ProjectWork& work, const Rename& rename) {
    const auto project = work.project();
    return project && project->isFileInProject(rename.from);
}

/// How many files have to keep their new names.
std::size_t putBack(CProjectTree& tree, ProjectWork& work, const std::vector<Rename>& renames) {
    return static_cast<std::size_t>(
        std::count_if(renames.rbegin(), renames.rend(), [&](const Rename& rename) {
            return !renameOnDisk(tree, work, {rename.to, rename.from}).empty();
        }));
}

/// Drawings that left the project behind their rename, taken out of `renames`.
std::vector<Rename> takeUnlisted(const ProjectWork& work, std::vector<Rename>& renames) {
    const auto gone = std::stable_partition(renames.begin(), renames.end(),
        [&](const Rename& rename) { return !work.project() || isListed(work, rename); });
    std::vector<Rename> unlisted(gone, renames.end());
    renames.erase(gone, renames.end());
    return unlisted;
}

/// The project is changed when all files are: each of the renames may have it read again, and thousands of
/// drawings would be as many writes. A drawing may be listed more than once.
bool renameInProject(ProjectWork& work, const std::vector<Rename>& renames) {
    const auto project = work.project();
    if (!project || renames.empty())
        return work.settle(project != nullptr);
    std::unordered_map<CString, const CString*> names;
    for (const Rename& rename : renames) {
        project->replaceFile(rename.from, rename.to, true);
        names.emplace(toUpper(rename.from), &rename.to);
    }
    CArray<RyvPrmFileDetails*> drawings;
    project->getProjectData().generateFlatFileDetailsArray(drawings);
    for (RyvPrmFileDetails* const drawing : drawings)
        if (const auto hit = names.find(toUpper(drawing->getFileName())); hit != names.end())
            drawing->setFileName(*hit->second);
    return work.write();
}

/// A write that counts as failed may have reached the disk: what the file says is right.
std::vector<Rename> unwritten(const ProjectWork& work, const std::vector<Rename>& renames) {
    const auto file = readAside(work.projectId());
    std::vector<Rename> left;
    std::copy_if(renames.begin(), renames.end(), std::back_inserter(left), [&file](const Rename& rename) {
        const RyvPrmFileDetails* const entry = file ? file->getProjectData().findFile(rename.to) : nullptr;
        return !entry || entry->getFileName() != rename.to;
    });
    return left;
}

/// The files that have their new names now.
std::vector<Rename> renameAll(
    CProjectTree& tree, ProjectWork& work, const std::vector<Rename>& wanted, Report& report) {
    std::vector<Rename> done;
    const auto progress = platform().ui->beginProgress(message::changingFileNames, wanted.size());
    for (std::size_t i = 0; i < wanted.size() && !report.cancelled; ++i) {
        const Rename& each = wanted[i];
        if (!work.project() || !progress->step(i, paths::findFileName(each.from)))
            report.cancelled = true;
        else if (CString reason = isListed(work, each) ? renameOnDisk(tree, work, each) : goneFrom(each);
                 reason.empty())
            done.push_back(each);
        else
            report.skipped.push_back(std::move(reason));
    }
    return done;
}

/// Empty when the project cannot be written, which has been told then.
Report FlipFileNameCase(CProjectTree& tree, ProjectWork& work, const std::vector<Rename>& wanted) {
    Report report;
    std::vector<Rename> done = renameAll(tree, work, wanted, report);
    const std::vector<Rename> unlisted = takeUnlisted(work, done);
    std::size_t stuck = putBack(tree, work, unlisted);
    const bool written = renameInProject(work, done) || work.wasWritten();
    if (!written)
        stuck += putBack(tree, work, unwritten(work, done));
    if (stuck > 0)
        tree.notice().tell(format(messageText(message::fileNamesNotPutBack), {stuck}));
    if (!written)
        return {};
    std::transform(unlisted.begin(), unlisted.end(), std::back_inserter(report.skipped), goneFrom);
    for (const Rename& each : done)
        report.changed.push_back(shownPath(each.to));
    return report;
}

/// The rows show what was done; what was not is told.
void StartFlipFileNameCase(CProjectTree& tree, Fold fold) {
    const std::vector<TreeItem*> rows = selectedRows(tree);
    const std::vector<Rename> renames = renamesBelow(rows, fold);
    if (renames.empty())
        return;
    Report report;
    {
        ProjectWork work(tree, CProjectTree::GetProjectOfItem(rows.front()));
        if (work.lock())
            report = FlipFileNameCase(tree, work, renames);
    }
    if (report.cancelled || !report.skipped.empty())
        showReport(CString(messageText(message::fileNamesChangedTitle)), report.lines(renames.size()));
}

} // namespace

void CProjectTree::ProjectMenuFlipFileNameLowerCase() {
    StartFlipFileNameCase(*this, toLower);
}

void CProjectTree::ProjectMenuFlipFileNameUpperCase() {
    StartFlipFileNameCase(*this, toUpper);
}

} // namespace ryv
