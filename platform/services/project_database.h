// The sibling client module that keeps the projects' databases.
#pragma once

#include "base/strings.h"

#include <cstdint>
#include <memory>

namespace ryv {

/// One question to a database: a column of a table, of the rows that hold a key in another column.
struct DatabaseQuery {
    CString table;
    CString column;
    CString keyColumn;
    CString key; ///< compared without regard to case
};

/// A database that is open for reading only. What it holds is what it held when it was opened, or later, but
/// of one moment for each table: many questions to one table cost one scan.
class DatabaseRecordset {
public:
    virtual ~DatabaseRecordset() = default;

    /// `row` is the fields of the first row found, empty when there is none; a field without a value is an
    /// empty text. False, with the database's own words in `problem` and `row` left alone, when the database
    /// cannot be read, or has no such table or column.
    virtual bool query(const DatabaseQuery& query, CStringArray& row, CString& problem) = 0;
};

/// Hears of databases, on the main thread and from the message loop.
class ProjectDatabaseObserver {
public:
    /// Values of drawings of that project are others now than those read before.
    virtual void databaseChanged(CStringView projectId) = 0;

protected:
    ~ProjectDatabaseObserver() = default;
};

class ProjectDatabase {
public:
    virtual ~ProjectDatabase() = default;

    /// The path of the database of a project, which is named by its ID; the file need not exist. False,
    /// `path` left alone, when the service cannot tell it or it has 260 units or more.
    virtual bool PmGetProjectDb(CStringView projectId, CString& path) = 0;

    /// Opens the database file at a path for reading. Null, with the database's own words in `problem`, when
    /// that cannot be done.
    virtual std::unique_ptr<DatabaseRecordset> open(CStringView database, CString& problem) = 0;

    /// A drawing of the project is about to be renamed on disk; `fileId` is its number in the project.
    virtual void PmRenameStarted(CStringView projectId, CStringView oldPath, std::int32_t fileId) = 0;

    /// The rename that was announced last for the project is over; `newPath` is empty when it failed.
    virtual void PmRenameCompleted(CStringView projectId, CStringView newPath) = 0;

    /// True when this process is the package's helper, which works without a user.
    virtual bool PmIsHelperProcess() = 0;

    /// Observers are not owned, hear the newest first, and take themselves off before they end.
    virtual void add(ProjectDatabaseObserver& observer) = 0;
    virtual void remove(ProjectDatabaseObserver& observer) = 0;
};

/// No project has a database.
class NullProjectDatabase : public ProjectDatabase {
public:
    bool PmGetProjectDb(CStringView, CString&) override { return false; }
    std::unique_ptr<DatabaseRecordset> open(CStringView database, CString& problem) override {
        problem = CString(database) + u": there is no database service";
        return nullptr;
    }
    void PmRenameStarted(CStringView, CStringView, std::int32_t) override {}
    void PmRenameCompleted(CStringView, CStringView) override {}
    bool PmIsHelperProcess() override { return false; }
    void add(ProjectDatabaseObserver&) override {}
    void remove(ProjectDatabaseObserver&) override {}
};

} // namespace ryv
