#include "ui/dialogs/work/report_dialog.h"

#include "base/join.h"
#include "bridge/platform.h"
#include "resources/messages.h"
#include "resources/setting_message_numbers.h"
#include "toolkit/text_field.h"

#include <array>

namespace ryv {

namespace {

using Dlg = SettingsReportDlg;

constexpr std::array<ControlLayout, 1> textPart = {
    {{ControlKind::text, Dlg::textId, u"report", u"", LayoutTraits::multiLine | LayoutTraits::readOnly}}};
constexpr std::array<PanelLayout, 1> panels = {{{u"", textPart}}};
constexpr std::array<ButtonLayout, 1> buttons = {{{Dialog::idCancel, u"close", message::reportClose}}};
constexpr DialogLayout layout = {u"SettingsReport", u"", panels, buttons, Dialog::idCancel};

} // namespace

SettingsReportDlg::SettingsReportDlg(CString title, const CStringArray& lines) : Dialog(layout, messageText) {
    setHelpTopic(u"settings_work");
    setTitle(std::move(title));
    control<TextField>(textId).setText(join(lines, u"\n"));
}

void showReport(CString title, const CStringArray& lines) {
    SettingsReportDlg dialog(std::move(title), lines);
    platform().ui->runModal(dialog);
}

void addGroup(CStringArray& report, CStringView heading, const CStringArray& lines) {
    if (lines.empty())
        return;
    if (!report.empty())
        report.emplace_back();
    if (!heading.empty())
        report.emplace_back(heading);
    report.insert(report.end(), lines.begin(), lines.end());
}

} // namespace ryv
