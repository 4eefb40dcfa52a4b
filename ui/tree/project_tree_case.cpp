// Drawing file names to lower or upper case.

#include "base/fold.h"
#include "base/format.h"
#include "base/paths.h"
#include "bridge/platform.h"
#include "resources/message_numbers.h"
#include "resources/messages.h"
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

bool renameOnDisk(CProjectTree& tree, ProjectWork& work, const Rename& rename) {
    const auto project = work.project(); // null when files get their old names back after it was closed
    if (!work.lockDrawing(rename.from))
        return false;
    ProjectDatabase& database = *platform().services.projectDatabase;
    database.PmRenameStarted(work.projectId(), rename.from, project ? project->GetFileId(rename.from) : 0);
    const bool renamed = tree.DoActualFileRename(rename.from, rename.to, true);
    database.PmRenameCompleted(work.projectId(), renamed ? CStringView(rename.to) : CStringView());
    work.unlockDrawing(rename.from);
    return renamed;
}

bool isListed(const ProjectWork& work, const Rename& rename) {
    const auto project = work.project();
    return project && project->isFileInProject(rename.from);
}

/// How many files have to keep their new names.
std::size_t putBack(CProjectTree& tree, ProjectWork& work, const std::vector<Rename>& renames) {
    return static_cast<std::size_t>(
        std::count_if(renames.rbegin(), renames.rend(), [&](const Rename& rename) {
            return !renameOnDisk(tree, work, {rename.to, rename.from});
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

void FlipFileNameCase(CProjectTree& tree, ProjectWork& work, const std::vector<Rename>& wanted) {
    std::vector<Rename> done;
    std::size_t failed = 0;
    {
        const auto progress = platform().ui->beginProgress(message::changingFileNames, wanted.size());
        for (std::size_t i = 0; i < wanted.size(); ++i) {
            if (!work.project() || !progress->step(i, paths::findFileName(wanted[i].from)))
                break;
            if (isListed(work, wanted[i]) && renameOnDisk(tree, work, wanted[i]))
                done.push_back(wanted[i]);
            else
                ++failed;
        }
    }
    const std::vector<Rename> unlisted = takeUnlisted(work, done);
    std::size_t stuck = putBack(tree, work, unlisted);
    const bool written = renameInProject(work, done) || work.wasWritten();
    if (!written)
        stuck += putBack(tree, work, unwritten(work, done));
    failed += unlisted.size();
    if (stuck > 0)
        tree.notice().tell(format(messageText(message::fileNamesNotPutBack), {stuck}));
    else if (written && failed > 0)
        tree.notice().tell(format(messageText(message::fileNamesNotChanged), {done.size(), failed}));
}

void StartFlipFileNameCase(CProjectTree& tree, Fold fold) {
    const std::vector<TreeItem*> rows = selectedRows(tree);
    const std::vector<Rename> renames = renamesBelow(rows, fold);
    if (renames.empty())
        return;
    ProjectWork work(tree, CProjectTree::GetProjectOfItem(rows.front()));
    if (work.lock())
        FlipFileNameCase(tree, work, renames);
}

} // namespace

void CProjectTree::ProjectMenuFlipFileNameLowerCase() {
    StartFlipFileNameCase(*this, toLower);
}

void CProjectTree::ProjectMenuFlipFileNameUpperCase() {
    StartFlipFileNameCase(*this, toUpper);
}

} // namespace ryv
