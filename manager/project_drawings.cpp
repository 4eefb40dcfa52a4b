// Changes of an open project's drawings and subfolders. Each is made in memory, written, and then announced,
// unless the project was closed while it was written.

#include "base/fold.h"
#include "base/text.h"
#include "bridge/command_strings.h"
#include "manager/project_manager.h"
#include "manager/term_associations.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace ryv {

namespace {

template <class Paths>
CStringArray backslashed(const Paths& paths) {
    CStringArray result;
    for (const CString& path : paths)
        result.push_back(replaceAll(path, u'/', u'\\'));
    return result;
}

/// The drawing with "\\" in its path, as all paths are kept.
RyvPrmFileDetails withBackslashes(const RyvPrmFileDetails& drawing) {
    RyvPrmFileDetails result(drawing);
    const CStringView path = drawing.getFileName();
    if (findUnit(path, u'/') < path.size())
        result.setFileName(replaceAll(path, u'/', u'\\'));
    return result;
}

CArray<RyvPrmFileDetails> withBackslashes(const CArray<RyvPrmFileDetails>& drawings) {
    CArray<RyvPrmFileDetails> result;
    for (const RyvPrmFileDetails& drawing : drawings)
        result.push_back(withBackslashes(drawing));
    return result;
}

} // namespace

bool RyvPrmProjectManager::addFileToProject(
    std::unique_ptr<RyvPrmFileDetails> drawing, OptionalPath projectId, bool updateTerms, bool quiet) {
    const CString trace = std::exchange(newDrawingTrace_, {}); // forgotten whatever comes of it
    const Project project = find(projectId);
    if (drawing)
        *drawing = withBackslashes(*drawing);
    if (!project || !drawing || project->isFileInProject(drawing->getFileName()))
        return false;
    if (updateTerms)
        updateTermAssociations({*drawing}, project.get(), quiet);
    const CString path(drawing->getFileName());
    if (!isOpen(project) || project->isFileInProject(path)) // by what ran meanwhile
        return false;
    const RyvPrmFileDetails* const entry = drawing.get();
    if (!project->addFile(std::move(drawing), trace))
        return false;
    const RyvPrmFileDetails details(
        *entry); // with its identifier; LISP may remove the entry while it is written
    if (!project->writeProject())
        return false;
    if (isOpen(project))
        onProjectAddDrawing(CString(project->getProjectID()), details);
    return true;
}

bool RyvPrmProjectManager::addFilesToProject(const CArray<RyvPrmFileDetails>& drawings,
    std::vector<bool>& added, OptionalPath projectId, const CString& trace, bool updateTerms, bool quiet) {
    const CArray<RyvPrmFileDetails> kept = withBackslashes(drawings);
    const CString wantedTrace = trace;
    added.assign(kept.size(), false);
    const Project project = find(projectId);
    if (!project)
        return false;
    if (updateTerms)
        updateTermAssociations(kept, project.get(), quiet);
    if (!isOpen(project))
        return false;
    CArray<RyvPrmFileDetails> entered;
    for (std::size_t i = 0; i < kept.size(); ++i) {
        if (project->isFileInProject(kept[i].getFileName()))
            continue;
        auto entry = std::make_unique<RyvPrmFileDetails>(kept[i]);
        const RyvPrmFileDetails* const place = entry.get();
        added[i] = project->addFile(std::move(entry), wantedTrace);
        if (added[i])
            entered.push_back(*place);
    }
    if (entered.empty() || !project->writeProject())
        return false;
    if (isOpen(project))
        onProjectAddDrawings(CString(project->getProjectID()), entered);
    return true;
}

bool RyvPrmProjectManager::removeFileFromProject(CStringView drawing, OptionalPath projectId) {
    const Project project = find(projectId);
    const CString path = replaceAll(drawing, u'/', u'\\');
    bool isReferenceOnly = false;
    if (!project || !project->isFileInProject(path, &isReferenceOnly) || !project->removeFile(path) ||
        !project->writeProject())
        return false;
    if (isOpen(project))
        onProjectRemoveDrawing(CString(project->getProjectID()), path, isReferenceOnly);
    return true;
}

bool RyvPrmProjectManager::removeFilesFromProject(const CStringArray& drawings, OptionalPath projectId) {
    if (drawings.empty())
        return true;
    const Project project = find(projectId);
    if (!project)
        return false;
    const CStringArray paths = backslashed(drawings);
    CArray<RyvPrmFileDetails> removed;
    project->getDetailsForFiles(paths, removed);
    if (!project->removeFiles(paths) || !project->writeProject())
        return false;
    if (isOpen(project))
        onProjectRemoveDrawings(CString(project->getProjectID()), removed);
    return true;
}

bool RyvPrmProjectManager::removeSubfoldersFromProject(const CStringArray& traces, OptionalPath projectId) {
    if (traces.empty())
        return true;
    const Project project = find(projectId);
    if (!project)
        return false;
    const bool removed = project->removeSubfolders(traces);
    return project->writeProject() && removed; // those that were found are gone in any case
}

bool RyvPrmProjectManager::replaceFileInProject(
    CStringView oldPath, CStringView newPath, OptionalPath projectId) {
    return replaceOrRename(oldPath, newPath, projectId, false);
}

bool RyvPrmProjectManager::renameFileInProject(
    CStringView oldPath, CStringView newPath, OptionalPath projectId) {
    return replaceOrRename(oldPath, newPath, projectId, true);
}

/// Deliberate: a rename fires no event. Whoever renames a drawing knows the new name, and subscribers of the
/// event take it for another drawing.
bool RyvPrmProjectManager::replaceOrRename(
    CStringView oldPath, CStringView newPath, OptionalPath projectId, bool rename) {
    const Project project = find(projectId);
    if (!project)
        return false;
    const CString from = replaceAll(oldPath, u'/', u'\\');
    const CString to = replaceAll(newPath, u'/', u'\\');
    bool isReferenceOnly = false;
    project->isFileInProject(from, &isReferenceOnly);
    const std::int32_t oldId = project->GetFileId(from);
    if (!project->replaceFile(from, to, rename) || !project->writeProject())
        return false;
    if (!rename && isOpen(project))
        onProjectReplaceDrawing(
            CString(project->getProjectID()), from, oldId, to, project->GetFileId(to), isReferenceOnly);
    return true;
}

bool RyvPrmProjectManager::modifyDetailsForFileInProject(
    const RyvPrmFileDetails& details, OptionalPath projectId) {
    const Project project = find(projectId);
    if (!project)
        return false;
    const RyvPrmFileDetails wanted = withBackslashes(details);
    onPreProjectDrawingDetailsModify(CString(project->getProjectID()), wanted);
    if (!isOpen(project)) // a handler may close it
        return false;
    const bool modified = project->modifyDetailsForFile(wanted);
    project->writeProject(); // whatever the result, which is that of the change in memory
    return modified;
}

bool RyvPrmProjectManager::setMiscProjSettingsInProject(
    const RyvPmMiscProjSettings& settings, OptionalPath projectId) {
    const Project project = find(projectId);
    if (!project)
        return false;
    const RyvPmMiscProjSettings wanted = settings;
    onPreProjectSetMiscProjectSettings(CString(project->getProjectID()), wanted);
    return isOpen(project) && project->setMiscProjSettings(wanted);
}

void RyvPrmProjectManager::setDrawingsNeedKQ_MUpdate(const CStringList& drawings, bool append) {
    if (!append)
        needKQ_MUpdate_.clear();
    std::unordered_set<CString> listed(needKQ_MUpdate_.begin(), needKQ_MUpdate_.end());
    for (const CString& path : backslashed(drawings))
        if (listed.insert(path).second)
            needKQ_MUpdate_.push_back(path);
}

bool RyvPrmProjectManager::notifyLispKQ_MAndRemove(OptionalPath drawing) {
    if (!drawing)
        return false;
    const CString path = replaceAll(*drawing, u'/', u'\\');
    const auto hit = std::find_if(needKQ_MUpdate_.begin(), needKQ_MUpdate_.end(),
        [&path](const CString& each) { return equalNoCase(each, path); });
    if (hit == needKQ_MUpdate_.end())
        return false;
    needKQ_MUpdate_.erase(hit);
    runInApplicationContext(CommandString::rereadDrawingParameters);
    return true;
}

} // namespace ryv
