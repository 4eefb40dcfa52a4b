// The panels of one dialog, which edit the same settings.
#pragma once

#include "ui/dialogs/settings/settings_panel.h"

namespace ryv {

/// The panels are not owned and live as long as the group.
class PanelGroup {
public:
    PanelGroup() = default;
    PanelGroup(const PanelGroup&) = delete;
    PanelGroup& operator=(const PanelGroup&) = delete;

    void add(SettingsPanel& panel);

    /// Shows the settings of a source, which outlives the group and is the one that perform() works on.
    void edit(SettingSource& source);

    /// Writes what the user has changed.
    void storeTo(SettingSource& source) const;

    /// What the control of a key shows on whichever panel it stands; nothing when it shows no value.
    std::optional<CString> shown(const SettingCondition& what) const;

    void refresh();

    /// Runs an action on the settings as the controls show them, and shows what it made of them.
    void perform(SettingAction action);

private:
    std::vector<SettingsPanel*> panels_;
    SettingSource* source_ = nullptr;
};

} // namespace ryv
