// The sibling client module that keeps the projects' databases.
#pragma once

#include "base/strings.h"

#include <cstdint>

namespace ryv {

/// One question to a database: a column of a table, of the rows that meet a condition such as
/// `DWGNAME = "C:/PROJ/A.DWG"`.
struct DatabaseQuery {
    CString database; ///< path of the file
    CString table;
    CString column;
    CString condition;
};

class ProjectDatabase {
public:
    virtual ~ProjectDatabase() = default;

    /// The path of the database of a project, which is named by its ID; the file need not exist. False,
    /// `path` left alone, when the service cannot tell it or it has 260 units or more.
    virtual bool PmGetProjectDb(CStringView projectId, CString& path) = 0;

    /// Asks a database that is opened for reading only. `row` is the fields of the first row found, empty
    /// when there is none; a field without a value is an empty text. False, with the database's own words in
    /// `problem` and `row` left alone, when it cannot be opened or does not understand the question.
    virtual bool query(const DatabaseQuery& query, CStringArray& row, CString& problem) = 0;

    /// A drawing of the project is about to be renamed on disk; `fileId` is its number in the project.
    virtual void PmRenameStarted(CStringView projectId, CStringView oldPath, std::int32_t fileId) = 0;

    /// The rename that was announced last for the project is over; `newPath` is empty when it failed.
    virtual void PmRenameCompleted(CStringView projectId, CStringView newPath) = 0;

    /// True when this process is the package's helper, which works without a user.
    virtual bool PmIsHelperProcess() = 0;
};

/// No project has a database.
class NullProjectDatabase : public ProjectDatabase {
public:
    bool PmGetProjectDb(CStringView, CString&) override { return false; }
    bool query(const DatabaseQuery& query, CStringArray&, CString& problem) override {
        problem = query.database + u": there is no database service";
        return false;
    }
    void PmRenameStarted(CStringView, CStringView, std::int32_t) override {}
    void PmRenameCompleted(CStringView, CStringView) override {}
    bool PmIsHelperProcess() override { return false; }
};

} // namespace ryv
