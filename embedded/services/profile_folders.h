// The user's folders of the package, in the host's profile.
#pragma once

#include "platform/services/package_settings.h"
#include "platform/services/user_folders.h"

namespace drafta {

/// The settings folder is the profile folder. The folder for project databases is the package's setting
/// "Folders", "UserDirectory".
class ProfileFolders final : public ryv::UserFolders {
public:
    /// `settings` outlives the object; `profileFolder` is module text.
    ProfileFolders(ryv::PackageSettings& settings, ryv::CString profileFolder)
        : settings_(settings), profileFolder_(std::move(profileFolder)) {}

    ryv::CString GetUserDirectory() override;
    ryv::CString GblPm_GetDefaultKqUserValue() override;

private:
    ryv::PackageSettings& settings_;
    ryv::CString profileFolder_;
};

} // namespace drafta
