#include "embedded/database/host_project_database.h"

#include "base/fold.h"
#include "base/paths.h"
#include "base/text.h"
#include "siblings/ut_file.h"

#include <algorithm>
#include <utility>

namespace drafta {

namespace {

bool isOwn(const std::string& native) {
    DatabaseFile file;
    ryv::CString ignored;
    return openDatabaseFile(native, file, ignored) && file.isOwn;
}

} // namespace

HostProjectDatabase::HostProjectDatabase(ProjectDatabaseParts parts)
    : parts_(std::move(parts)), reader_(parts_.reader), updates_(parts_.updates) {
    updates_.setChanged([this](ryv::CStringView projectId) { tellChanged(projectId); });
}

/// An observer may take itself or others off.
void HostProjectDatabase::tellChanged(ryv::CStringView projectId) {
    const std::vector<ryv::ProjectDatabaseObserver*> told = observers_;
    for (auto observer = told.rbegin(); observer != told.rend(); ++observer)
        if (std::find(observers_.begin(), observers_.end(), *observer) != observers_.end())
            (*observer)->databaseChanged(projectId);
}

/// The folder with its separator. The settings folder's own is made when it is needed; when that fails, so
/// does making the database, which is what the user hears of.
ryv::CString HostProjectDatabase::usersFolder() {
    ryv::CString folder = parts_.folders->GetUserDirectory();
    if (!folder.empty())
        return folder;
    folder = parts_.folders->GblPm_GetDefaultKqUserValue() + u"databases";
    static_cast<void>(parts_.updates.files->createFolder(folder));
    return folder + u"\\";
}

HostProjectDatabase::Place HostProjectDatabase::placeOf(ryv::CStringView projectId) {
    const ryv::CString project = ryv::replaceAll(projectId, u'/', u'\\');
    const ryv::CString name = ryv::RyvUtFile::ProjectNameOf(project) + u".mdb";
    const ryv::CString users = usersFolder() + name;
    const std::optional<ryv::CString> beside = ryv::paths::combine(ryv::paths::folderOf(project), name);
    ryv::FileInformation file;
    if (beside && !ryv::equalNoCase(*beside, ryv::replaceAll(users, u'/', u'\\')) &&
        parts_.updates.files->information(*beside, file).ok() && file.isRegular)
        return {*beside, false};
    return {users, true};
}

/// A failure is told, and told once; labels go without then.
bool HostProjectDatabase::makeMissing(const std::string& native) {
    ryv::CString problem;
    const bool made = DrawingTable(native).make(problem) == TableResult::good;
    if (!made)
        updates_.tell(native, problem);
    return made;
}

bool HostProjectDatabase::PmGetProjectDb(ryv::CStringView projectId, ryv::CString& path) {
    const Place place = placeOf(projectId);
    if (place.path.size() > ryv::paths::maxLength)
        return false;
    if (place.isUsers) {
        const std::string native = parts_.paths->toNative(place.path);
        if (!makeMissing(native))
            return false;
        if (isOwn(native))
            updates_.request(projectId, native);
    }
    path = place.path;
    return true;
}

std::unique_ptr<ryv::DatabaseRecordset> HostProjectDatabase::open(
    ryv::CStringView database, ryv::CString& problem) {
    return reader_.open(parts_.paths->toNative(database), problem);
}

void HostProjectDatabase::PmRenameStarted(
    ryv::CStringView projectId, ryv::CStringView oldPath, std::int32_t) {
    renames_[ryv::toUpper(projectId)] = oldPath;
}

/// The row goes along, so that the drawing is not read again. Without it, it is: a failure costs no more.
void HostProjectDatabase::PmRenameCompleted(ryv::CStringView projectId, ryv::CStringView newPath) {
    const auto node = renames_.extract(ryv::toUpper(projectId));
    if (node.empty() || newPath.empty())
        return;
    const Place place = placeOf(projectId);
    const std::string native = parts_.paths->toNative(place.path);
    ryv::CString ignored;
    if (place.isUsers && isOwn(native))
        static_cast<void>(
            DrawingTable(native).rename(databaseKey(node.mapped()), databaseKey(newPath), ignored));
}

} // namespace drafta
