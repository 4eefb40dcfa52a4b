// Names of projects and of the files that belong to them.

#include "base/fold.h"
#include "base/paths.h"
#include "base/text.h"
#include "bridge/platform.h"
#include "manager/existing_files.h"
#include "manager/project_manager.h"
#include "siblings/ut_file.h"

namespace ryv {

namespace {

constexpr CStringView taskFileEnd = u"_update.mdb";
constexpr CStringView taskFileMark = u"_UPDATE.MDB";
constexpr CStringView projectExtension = u".kqp";

CString inFolder(const CString& folder, CStringView name) {
    if (folder.empty())
        return CString(name);
    return folder + (folder.ends_with(u'\\') ? u"" : u"\\") + CString(name);
}

} // namespace

bool RyvPrmProjectManager::getProjectFullPath(CStringView name, CString& projectId) const {
    for (const Project& project : projects_)
        if (equalNoCase(paths::titleOf(project->getProjectID()), name)) {
            projectId = project->getProjectID();
            return true;
        }
    return false;
}

bool RyvPrmProjectManager::getProjNameFromID(CStringView projectId, CString& name) const {
    name = RyvUtFile::ProjectNameOf(replaceAll(projectId, u'/', u'\\'));
    return true;
}

bool RyvPrmProjectManager::makeProjectPrettyNameFromID(OptionalPath projectId, CString& name) const {
    CString active;
    if (!projectId)
        getActiveProjectID(active);
    return getProjNameFromID(projectId ? *projectId : CStringView(active), name);
}

bool RyvPrmProjectManager::isProjectSameNameAsExisting(CStringView projectId, CString* existing) const {
    CString wanted;
    getProjNameFromID(projectId, wanted);
    for (const Project& project : projects_) {
        CString name;
        getProjNameFromID(project->getProjectID(), name);
        if (!equalNoCase(name, wanted))
            continue;
        if (existing)
            *existing = project->getProjectID();
        return true;
    }
    return false;
}

bool RyvPrmProjectManager::generateTaskFileNameForProject(CStringView projectId, CString& taskFile) const {
    const CString path = replaceAll(projectId, u'/', u'\\');
    taskFile = inFolder(paths::folderOf(path), RyvUtFile::ProjectNameOf(path) + CString(taskFileEnd));
    return true;
}

bool RyvPrmProjectManager::generateProjectFileNameFromTaskName(
    CStringView taskFile, CString& projectId) const {
    const CString path = replaceAll(taskFile, u'/', u'\\');
    const CString folder = paths::folderOf(path);
    const CString name =
        toUpper(path.substr(folder.size() + (folder.empty() || folder.ends_with(u'\\') ? 0 : 1)));
    const std::size_t end = name.find(taskFileMark);
    if (end == CString::npos)
        return false;
    projectId = inFolder(folder, name.substr(0, end) + CString(projectExtension));
    return true;
}

bool RyvPrmProjectManager::projectHasTasks(OptionalPath projectId) const {
    const Project project = find(projectId);
    CString taskFile;
    return project && generateTaskFileNameForProject(project->getProjectID(), taskFile) && exists(taskFile);
}

bool RyvPrmProjectManager::getProjectDbFullPath(OptionalPath projectId, CString& path) const {
    if (!projectId)
        return false;
    const CString folder = platform().services.userFolders->GetUserDirectory();
    if (folder.empty())
        return platform().services.projectDatabase->PmGetProjectDb(replaceAll(*projectId, u'/', u'\\'), path);
    CString name;
    makeProjectPrettyNameFromID(projectId, name);
    path = folder + name + u".mdb";
    return true;
}

} // namespace ryv
