// Choosing the libraries of a project instead of typing their paths.
#pragma once

#include "ui/dialogs/settings/setting_source.h"

namespace ryv::library_paths {

/// Ask for a folder, which is added to those that the miscellaneous setting names, or for the file that it
/// names. False when the user cancels, or has chosen what is there already.
bool addFolder(SettingSource& settings, int index);
bool chooseMenuFile(SettingSource& settings, int index);

} // namespace ryv::library_paths
