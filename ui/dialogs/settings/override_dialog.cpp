#include "ui/dialogs/settings/override_dialog.h"

#include "resources/messages.h"

#include <array>

namespace ryv {

namespace {

constexpr std::array<int, CRyvCfgCrossRefCompOverrideDlg::valueCount> indexes = {
    14, 47, 60, 61, 62, 63, 64, 65, 66, 67, 68, 69, 70, 71, 72, 73};
constexpr DialogLayout layout = {u"OverrideReferences", message::overrideReferences, {}, {}};

} // namespace

CRyvCfgCrossRefCompOverrideDlg::CRyvCfgCrossRefCompOverrideDlg(const CStringArray& values)
    : Dialog(layout, messageText) {
    const CString none;
    for (std::size_t i = 0; i < indexes.size(); ++i)
        settings_.setValue(indexes[i], i < values.size() ? &values[i] : &none);
    for (SettingsPanel* const panel : {static_cast<SettingsPanel*>(&format_),
             static_cast<SettingsPanel*>(&options_), static_cast<SettingsPanel*>(&display_)}) {
        addPanel(*panel);
        group_.add(*panel);
    }
    group_.edit(source_);
}

CStringArray CRyvCfgCrossRefCompOverrideDlg::values() const {
    RyvCfgDrawingSettings edited(settings_);
    DrawingSettingSource target(edited);
    group_.storeTo(target);
    CStringArray values;
    for (const int index : indexes)
        values.push_back(*edited.find(index));
    return values;
}

} // namespace ryv
