#include "ui/tree/other_projects.h"

#include "base/fold.h"
#include "base/format.h"
#include "base/paths.h"
#include "bridge/platform.h"
#include "resources/message_numbers.h"
#include "resources/messages.h"
#include "ui/tree/item_address.h"
#include "ui/tree/project_tree.h"
#include "ui/tree/project_work.h"

#include <utility>

namespace ryv {

namespace {

CStringArray othersListing(const CString& drawing, const CString& project) {
    const RyvPrmProjectManager* const manager = GetProjectManager();
    CStringArray ids;
    for (int index = 0; manager && index < manager->getProjectCount(); ++index)
        if (const CString id = manager->getProject(index)->getProjectID();
            !equalNoCase(id, project) && manager->isFileInProject(drawing, id))
            ids.push_back(id);
    return ids;
}

bool renameEntries(ProjectWork& work, const CString& from, const CString& to) {
    const auto project = work.project();
    if (project->isFileInProject(to))
        return false;
    renameRepeated(project->editProjectData(), from, to);
    RyvPrmProjectManager* const manager = GetProjectManager();
    const bool done = manager && manager->renameFileInProject(from, to, work.projectId());
    return work.settle(done) || work.wasWritten();
}

/// The database of each project follows files by their names on its own.
bool follow(CProjectTree& tree, const CString& projectId, const CString& from, const CString& to) {
    ProjectWork work(tree, projectId);
    if (!work.lock()) {
        if (work.project())
            return false;
        tree.notice().clear(); // that it was closed is no news
        return true;
    }
    const auto project = work.project();
    if (!project || !project->isFileInProject(from))
        return true;
    ProjectDatabase& database = *platform().services.projectDatabase;
    database.PmRenameStarted(projectId, from, project->GetFileId(from));
    const bool done = renameEntries(work, from, to);
    database.PmRenameCompleted(projectId, done ? CStringView(to) : CStringView());
    return done;
}

} // namespace

void renameRepeated(RyvPrmProjectData& project, CStringView from, CStringView to) {
    CArray<RyvPrmFileDetails*> drawings;
    project.generateFlatFileDetailsArray(drawings);
    const CString key = itemKey(false, from);
    bool isFirst = true;
    for (RyvPrmFileDetails* const drawing : drawings)
        if (itemKey(*drawing) == key && !std::exchange(isFirst, false))
            drawing->setFileName(to);
}

void renameInOtherProjects(
    CProjectTree& tree, const CString& renamedIn, const CString& from, const CString& to) {
    CString left;
    CString reason; // of the last one, if it was told
    for (const CString& id : othersListing(from, renamedIn)) {
        tree.notice().clear();
        if (follow(tree, id, from, to))
            continue;
        left.append(left.empty() ? u"" : u", ").append(paths::titleOf(id));
        reason = tree.notice().text();
    }
    if (!left.empty())
        tree.notice().tell(format(messageText(message::renamedNotEverywhere),
            {paths::findFileName(from), paths::findFileName(to), left, reason}));
}

} // namespace ryv
