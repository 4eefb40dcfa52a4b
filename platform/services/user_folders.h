// The package's folders for the user, as its utility and global-settings libraries tell them.
#pragma once

#include "base/strings.h"

namespace ryv {

/// Names are joined to these folders as they stand: each ends with the separator it needs.
class UserFolders {
public:
    virtual ~UserFolders() = default;

    /// The folder that the user has chosen for project databases; empty when there is none.
    virtual CString GetUserDirectory() = 0;

    /// The user's settings folder of the package; empty when it cannot be told.
    virtual CString GblPm_GetDefaultKqUserValue() = 0;
};

/// The user has no folders.
class NullUserFolders final : public UserFolders {
public:
    CString GetUserDirectory() override { return {}; }
    CString GblPm_GetDefaultKqUserValue() override { return {}; }
};

} // namespace ryv
