// The databases of projects, as this host has them.
#pragma once

#include "embedded/database/database_reader.h"
#include "embedded/database/drawing_updates.h"
#include "platform/os/system_paths.h"
#include "platform/services/user_folders.h"

namespace drafta {

/// All of it outlives the object.
struct ProjectDatabaseParts {
    ryv::SystemPaths* paths = nullptr;
    ryv::UserFolders* folders = nullptr;
    UpdateParts updates;
    DatabaseReaderOptions reader;
};

/// A project's database is PROJECT.mdb: a file of the project's own beside its project file where there is
/// one, else the one in the user's folder for databases, or in "databases" of the settings folder when the
/// user has chosen none. One that is missing there is made, and is the host's own: it is kept like the
/// drawings. All others are only read.
class HostProjectDatabase final : public ryv::ProjectDatabase {
public:
    explicit HostProjectDatabase(ProjectDatabaseParts parts);

    /// Also asks for an update of the project when the database is the host's own. False, too, when it is
    /// missing and cannot be made.
    bool PmGetProjectDb(ryv::CStringView projectId, ryv::CString& path) override;

    /// Jet databases and SQLite databases, whatever their names.
    std::unique_ptr<ryv::DatabaseRecordset> open(ryv::CStringView database, ryv::CString& problem) override;

    void PmRenameStarted(ryv::CStringView projectId, ryv::CStringView oldPath, std::int32_t fileId) override;
    void PmRenameCompleted(ryv::CStringView projectId, ryv::CStringView newPath) override;

    bool PmIsHelperProcess() override { return false; }
    void add(ryv::ProjectDatabaseObserver& observer) override { observers_.push_back(&observer); }
    void remove(ryv::ProjectDatabaseObserver& observer) override { std::erase(observers_, &observer); }

    /// For whoever shows values, and for whoever cannot wait.
    DrawingUpdates& updates() noexcept { return updates_; }

private:
    void tellChanged(ryv::CStringView projectId);

    struct Place {
        ryv::CString path;
        bool isUsers = false; ///< in a folder of the user's, not beside the project
    };

    Place placeOf(ryv::CStringView projectId);
    ryv::CString usersFolder();
    bool makeMissing(const std::string& native);

    ProjectDatabaseParts parts_;
    DatabaseReader reader_;
    DrawingUpdates updates_;
    std::vector<ryv::ProjectDatabaseObserver*> observers_;
    std::map<ryv::CString, ryv::CString> renames_; // old paths under way, by project in capitals
};

} // namespace drafta
