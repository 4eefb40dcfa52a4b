#include "ui/dialogs/settings/panel_group.h"

#include "model/drawing_settings.h"

namespace ryv {

void PanelGroup::add(SettingsPanel& panel) {
    panel.group_ = this;
    panels_.push_back(&panel);
}

void PanelGroup::edit(SettingSource& source) {
    source_ = &source;
    const auto usual = source.usualSettings();
    for (SettingsPanel* const panel : panels_)
        panel->loadFrom(source, usual.get());
    refresh();
}

void PanelGroup::storeTo(SettingSource& source) const {
    for (const SettingsPanel* const panel : panels_)
        panel->storeTo(source);
}

std::optional<CString> PanelGroup::shown(const SettingCondition& what) const {
    for (const SettingsPanel* const panel : panels_)
        if (std::optional<CString> value = panel->shown(what))
            return value;
    return std::nullopt;
}

void PanelGroup::refresh() {
    for (SettingsPanel* const panel : panels_)
        panel->refresh();
}

void PanelGroup::perform(SettingAction action) {
    if (!source_)
        return;
    storeTo(*source_);
    edit(*source_); // what is stored counts as loaded, however the action ends
    if (action(*source_))
        edit(*source_);
}

} // namespace ryv
