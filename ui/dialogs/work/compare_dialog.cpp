#include "ui/dialogs/work/compare_dialog.h"

#include "base/format.h"
#include "resources/messages.h"
#include "resources/setting_message_numbers.h"
#include "toolkit/check_box.h"
#include "toolkit/label.h"
#include "toolkit/text_field.h"

#include <array>

namespace ryv {

namespace {

using Dlg = CRyvCfgDwgSettingsCompareDlg;

constexpr std::array<ControlLayout, 2> choosingPart = {
    {{ControlKind::text, Dlg::searchId, u"search", message::compareSearch},
        {ControlKind::checkBox, Dlg::differencesOnlyId, u"differencesOnly", message::compareDifferencesOnly,
            LayoutTraits::sameRow}}};
constexpr std::array<PanelLayout, 1> panels = {{{u"", choosingPart}}};
constexpr std::array<ButtonLayout, 1> buttons = {{{Dialog::idCancel, u"close", message::reportClose}}};
constexpr DialogLayout layout = {u"CompareSettings", u"", panels, buttons, Dialog::idCancel};

} // namespace

CRyvCfgDwgSettingsCompareDlg::CRyvCfgDwgSettingsCompareDlg(const CString& drawingName,
    const CString& projectName, const RyvCfgDrawingSettings& drawing, const RyvCfgDrawingSettings& project)
    : Dialog(layout, messageText), rows_(PanelLayout{}) {
    setTitle(format(messageText(message::compareTitle), {drawingName, projectName}));
    setHelpTopic(u"settings_work");
    CRyvCfgDwgSetGrid& grid = rows_.add(std::make_unique<CRyvCfgDwgSetGrid>(gridId));
    grid.setName(u"settings");
    grid.setSearchedByDialog(true);
    grid.fill(drawing, project);
    Label& count = rows_.add(std::make_unique<Label>(countId));
    count.setLabel(format(messageText(message::compareCount), {grid.differenceCount(), grid.settingCount()}));
    addPanel(rows_);
}

void CRyvCfgDwgSettingsCompareDlg::onChange(Control&) {
    grid().show(control<CheckBox>(differencesOnlyId).isChecked(), control<TextField>(searchId).text());
}

} // namespace ryv
