#include "ui/dialogs/work/setting_names.h"

#include "base/format.h"
#include "model/drawing_settings.h"
#include "resources/messages.h"
#include "toolkit/plain_text.h"
#include "ui/dialogs/settings/setting_description.h"
#include "ui/dialogs/sheets/drawing_sheet.h"
#include "ui/dialogs/sheets/project_sheet.h"

namespace ryv {

namespace {

/// A number with more bits than the box shows stays: two that differ would look the same.
CString checkBoxValue(const CString& stored) {
    if (stored == u"0" || stored == u"1")
        return CString(messageText(stored == u"1" ? message::settingYes : message::settingNo));
    return stored;
}

} // namespace

SettingNames::SettingNames() {
    addPages<CRyvCfgProjPropSettingsPage, CRyvCfgDrawingPropSettingsPage, CRyvCfgDrawingPropComponentsPage,
        CRyvCfgDrawingPropWireNumberPage, CRyvCfgDrawingPropCrossReferencePage, CRyvCfgDrawingPropStylePage,
        CRyvCfgDrawingPropDrawingFormatPage>();
    for (int index = 0; index <= RyvCfgDrawingSettings::getMaxBracketIndex(); ++index)
        if (Entry& entry = entries_[drawingSetting(index)]; !entry.row)
            entry.name = settingDescription(index);
}

/// The rows are constant data, which outlast the page. A button beside a field is no setting of its own.
void SettingNames::add(const SettingsPage& page) {
    const CString title = page.content().title;
    for (const auto& panel : page.panels())
        for (const SettingRow& row : panel->rows())
            if (row.kind != ControlKind::button)
                entries_[row.key] = {format(messageText(message::settingOnPage),
                                         {title, withoutMarks(messageText(row.label))}),
                    &row};
}

CString SettingNames::name(SettingKey key) const {
    const auto hit = entries_.find(key);
    return hit == entries_.end() ? CString() : hit->second.name;
}

CString SettingNames::value(SettingKey key, const CString& stored) const {
    const auto hit = entries_.find(key);
    const SettingRow* const row = hit == entries_.end() ? nullptr : hit->second.row;
    if (!row)
        return stored;
    if (row->kind == ControlKind::checkBox)
        return checkBoxValue(stored);
    const ChoiceLayout* const choice = choiceOf(*row, stored);
    return choice ? resolve(choice->text, messageText) : stored;
}

} // namespace ryv
