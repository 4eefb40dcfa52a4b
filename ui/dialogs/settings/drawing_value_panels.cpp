#include "ui/dialogs/settings/drawing_value_panels.h"

namespace ryv {

namespace {

using namespace setting_rows;

constexpr SettingRow sheetRows[] = {
    text(13, u"sheet"),
    text(46, u"drawingNumber"),
};
constexpr SettingTable sheet = {message::panelSheetValues, sheetRows};

constexpr SettingRow codesRows[] = {
    text(51, u"projectCode"),
    text(52, u"installationCode"),
    text(53, u"locationCode"),
};
constexpr SettingTable codes = {message::panelCodes, codesRows, true};

} // namespace

CRyvCfgSheetValsCDlg::CRyvCfgSheetValsCDlg() : SettingsPanel(sheet) {}
CRyvCfgIECDesigCDlg::CRyvCfgIECDesigCDlg() : SettingsPanel(codes) {}

} // namespace ryv
