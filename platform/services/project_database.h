// The sibling client module that keeps the projects' databases.
#pragma once

#include "base/strings.h"

#include <cstdint>

namespace ryv {

class ProjectDatabase {
public:
    virtual ~ProjectDatabase() = default;

    /// The path of the database of a project, which is named by its ID; the file need not exist. False,
    /// `path` left alone, when the service cannot tell it or it has 260 units or more.
    virtual bool PmGetProjectDb(CStringView projectId, CString& path) = 0;

    /// A drawing of the project is about to be renamed on disk; `fileId` is its number in the project.
    virtual void PmRenameStarted(CStringView projectId, CStringView oldPath, std::int32_t fileId) = 0;

    /// The rename that was announced last for the project is over; `newPath` is empty when it failed.
    virtual void PmRenameCompleted(CStringView projectId, CStringView newPath) = 0;

    /// True when this process is the package's helper, which works without a user.
    virtual bool PmIsHelperProcess() = 0;
};

/// No project has a database.
class NullProjectDatabase final : public ProjectDatabase {
public:
    bool PmGetProjectDb(CStringView, CString&) override { return false; }
    void PmRenameStarted(CStringView, CStringView, std::int32_t) override {}
    void PmRenameCompleted(CStringView, CStringView) override {}
    bool PmIsHelperProcess() override { return false; }
};

} // namespace ryv
