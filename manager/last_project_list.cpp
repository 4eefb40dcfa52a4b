#include "manager/last_project_list.h"

#include "base/fold.h"
#include "base/text.h"
#include "bridge/platform.h"
#include "manager/last_project_lines.h"
#include "manager/nav_state.h"
#include "siblings/atomic_file.h"

#include <algorithm>
#include <utility>

namespace ryv {

namespace {

/// Empty when the user has no settings folder.
CString listPath() {
    const CString folder = platform().services.userFolders->GblPm_GetDefaultKqUserValue();
    return folder.empty() ? CString() : folder + u"LastProj.fil";
}

struct List {
    std::vector<LastProject> projects;
    bool isOld = false; ///< an old list's mark ends it
    Fingerprint fingerprint;
};

FileStatus readList(CStringView path, List& list) {
    list = {};
    ByteBuffer bytes;
    const FileStatus status = readWholeFile(*platform().os.files, path, bytes, list.fingerprint);
    if (status.ok())
        list.isOld = !readLastProjectLines(bytes.view(), list.projects);
    return status;
}

/// `id` with "/".
void change(std::vector<LastProject>& projects, const CString& id, CStringView code) {
    bool found = false;
    for (LastProject& project : projects) {
        if (code == last_project_code::active && project.code == last_project_code::active)
            project.code = last_project_code::open;
        if (equalNoCase(project.id, id)) {
            found = true;
            project.code = code;
        }
    }
    if (!found)
        projects.insert(projects.begin(), {id, CString(code)});
    std::erase_if(
        projects, [](const LastProject& project) { return project.code == last_project_code::removed; });
}

/// Another host may record at the same time: then its list is read and the change made in that.
bool changeList(const CString& path, const CString& id, CStringView code) {
    constexpr int attempts = 20;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        List list;
        const FileStatus read = readList(path, list);
        if (!read.ok() && read.error != FileError::missing)
            return false;
        change(list.projects, id, code);
        const std::string bytes = toLastProjectLines(list.projects);
        const SaveResult saved = saveAtomically(*platform().os.files, {path, bytes, list.fingerprint});
        if (saved.status.error != FileError::changedOutside)
            return saved.replaced;
    }
    return false;
}

CStringView codeOf(int state) {
    switch (state) {
    case last_project::closed:
        return last_project_code::closed;
    case last_project::open:
        return last_project_code::open;
    case last_project::active:
        return last_project_code::active;
    case last_project::removed:
        return last_project_code::removed;
    default:
        return {};
    }
}

} // namespace

bool recordProject(CStringView projectId, int state) {
    return recordProject(projectId, codeOf(state));
}

bool recordProject(CStringView projectId, CStringView code) {
    const CString path = listPath();
    if (path.empty() || projectId.empty() || !fitsInLastProjectLine(projectId) ||
        !fitsInLastProjectLine(code))
        return false;
    if (!changeList(path, replaceAll(projectId, u'\\', u'/'), code))
        return false;
    if (NavState* const state = navState())
        state->onListNeedsUpdate.fire();
    return true;
}

bool readLastProjects(RecentProjects& list) {
    list = {};
    const CString path = listPath();
    List read;
    if (path.empty() || !readList(path, read).ok())
        return false;
    for (LastProject& project : read.projects) {
        list.paths.push_back(std::move(project.id));
        list.flags.push_back(std::move(project.code));
    }
    return !read.isOld;
}

bool copyFromOlderList() {
    RecentProjects older;
    if (!readRecentProjects(older))
        return true; // there is nothing to copy
    bool all = true;
    for (const CString& path : older.paths)
        all = recordProject(path, last_project::closed) && all;
    return all;
}

} // namespace ryv
