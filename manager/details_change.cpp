#include "manager/details_change.h"

#include "manager/project_manager.h"

namespace ryv {

bool changeDetailsInMemory(const RyvPrmFileDetails& details, const CString& projectId) {
    RyvPrmProjectManager* const manager = GetProjectManager();
    const auto project = manager ? manager->holdProject(projectId) : nullptr;
    if (!project)
        return false;
    const RyvPrmFileDetails wanted = details; // handlers may drop what it was taken from
    manager->onPreProjectDrawingDetailsModify(CString(project->getProjectID()), wanted);
    return GetProjectManager() == manager && manager->holdProject(projectId) == project &&
           project->modifyDetailsForFile(wanted);
}

} // namespace ryv
