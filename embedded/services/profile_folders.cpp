#include "embedded/services/profile_folders.h"

namespace drafta {

namespace {

/// Names are joined to it as it stands. "/" separates too: the folder may have been written by hand.
ryv::CString withSeparator(ryv::CString folder) {
    if (!folder.empty() && folder.back() != u'\\' && folder.back() != u'/')
        folder += u'\\';
    return folder;
}

} // namespace

ryv::CString ProfileFolders::GetUserDirectory() {
    ryv::CString folder;
    settings_.RyvGetRegSetting(u"Folders", u"UserDirectory", folder);
    return withSeparator(std::move(folder));
}

ryv::CString ProfileFolders::GblPm_GetDefaultKqUserValue() {
    return withSeparator(profileFolder_);
}

} // namespace drafta
