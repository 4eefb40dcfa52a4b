#include "ui/dialogs/sheets/library_paths.h"

#include "base/fold.h"
#include "base/text.h"
#include "manager/shown_messages.h"
#include "resources/setting_message_numbers.h"
#include "ui/dialogs/creation/file_fields.h"

#include <algorithm>

namespace ryv::library_paths {

namespace {

constexpr CStringView menuFileEnd = u".dat";

int labelOf(int index) {
    return message::librarySchematic - 1 + index;
}

} // namespace

/// The one that was named last is where the user looks first.
bool addFolder(SettingSource& settings, int index) {
    const CString present = textOf(settings, miscSetting(index));
    const CStringArray folders = split(present, u';');
    const CString chosen = chooseFolder(labelOf(index), typedPath(folders.back()));
    const auto isChosen = [&chosen](const CString& folder) { return equalNoCase(typedPath(folder), chosen); };
    if (chosen.empty() || std::any_of(folders.begin(), folders.end(), isChosen))
        return false;
    const CString shown = shownPath(chosen);
    settings.setValue(miscSetting(index), trim(present).empty() ? shown : present + u';' + shown);
    return true;
}

bool chooseMenuFile(SettingSource& settings, int index) {
    const CString present = textOf(settings, miscSetting(index));
    const CString chosen = chooseFile(labelOf(index), menuFileEnd, typedPath(present));
    if (chosen.empty() || equalNoCase(typedPath(present), chosen))
        return false;
    settings.setValue(miscSetting(index), shownPath(chosen));
    return true;
}

} // namespace ryv::library_paths
