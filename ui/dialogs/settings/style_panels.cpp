#include "ui/dialogs/settings/style_panels.h"

namespace ryv {

namespace {

using namespace setting_rows;

constexpr ChoiceLayout crossings[] = {
    {message::choiceGap, u"0"}, {message::choiceLoop, u"1"}, {message::choiceNoGap, u"2"}};

constexpr SettingRow wiresRows[] = {
    radio(49, u"crossings", crossings),
};
constexpr SettingTable wires = {message::panelWireStyle, wiresRows};

constexpr SettingRow othersRows[] = {
    text(43, u"arrowStyle", Rule::wholeNumber),
    text(42, u"controllerStyle", Rule::wholeNumber),
};
constexpr SettingTable others = {message::panelOtherStyles, othersRows};

constexpr SettingRow fansRows[] = {
    text(57, u"fanStyle", Rule::wholeNumber),
    text(56, u"fanLayers", Rule::layers),
};
constexpr SettingTable fans = {message::panelFanStyle, fansRows};

} // namespace

CRyvCfgStyleWireCDlg::CRyvCfgStyleWireCDlg() : SettingsPanel(wires) {}
CRyvCfgStyleGenericCDlg::CRyvCfgStyleGenericCDlg() : SettingsPanel(others) {}
CRyvCfgStyleFanCDlg::CRyvCfgStyleFanCDlg() : SettingsPanel(fans) {}

} // namespace ryv
