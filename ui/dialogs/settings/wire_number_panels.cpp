#include "ui/dialogs/settings/wire_number_panels.h"

#include "ui/dialogs/settings/setting_dialogs.h"

namespace ryv {

namespace {

using namespace setting_rows;

constexpr ChoiceLayout modes[] = {{message::choiceByReference, u"R"}, {message::choiceSequential, u"S"}};
constexpr SettingCondition byReference = {drawingSetting(6), u"R"};
constexpr SettingCondition sequential = {drawingSetting(6), u"S"};
constexpr ChoiceLayout positions[] = {
    {message::choiceInLine, u"0"}, {message::choiceAboveWire, u"1"}, {message::choiceBelowWire, u"2"}};
constexpr ChoiceLayout leaders[] = {{message::choiceLeadersAsRequired, u"0"},
    {message::choiceLeadersAlways, u"1"}, {message::choiceLeadersNever, u"2"}};
constexpr SettingCondition inLine = {drawingSetting(75), u"0"};
constexpr SettingCondition besideWire = {drawingSetting(75), u"1,2"};

constexpr SettingRow numberTypeRows[] = {
    text(9, u"wireFormat", Rule::numberFormat).explained(message::explainNumberCodes),
    radio(6, u"wireMode", modes),
    text(7, u"wireStart", Rule::wholeNumber).onlyWhen(sequential),
    text(10, u"wireIncrement", Rule::wholeNumber).onlyWhen(sequential),
};
constexpr SettingTable numberType = {message::panelWireNumberType, numberTypeRows};

constexpr SettingRow placementRows[] = {
    radio(75, u"wireNumberPosition", positions),
    text(74, u"wireNumberOffset", Rule::number).onlyWhen(besideWire),
    text(76, u"wireNumberGap", Rule::threeNumbers).onlyWhen(inLine),
    button(76, u"setUpGap", message::setUpGap, setting_dialogs::setUpInlineGap).onlyWhen(inLine).beside(),
    radio(41, u"wireLeaders", leaders),
};
constexpr SettingTable placement = {message::panelWireNumberPlacement, placementRows};

constexpr SettingRow numberOptionsRows[] = {
    text(8, u"wireSuffixes").onlyWhen(byReference),
    button(8, u"editWireSuffixes", message::editList, setting_dialogs::editWireNumberSuffixes)
        .onlyWhen(byReference)
        .beside(),
    button(55, u"formatsByLayer", message::formatsByLayer, setting_dialogs::setUpFormatsByLayer),
};
constexpr SettingTable numberOptions = {message::panelWireNumberOptions, numberOptionsRows};

} // namespace

CRyvCfgWNumWNumTypeCDlg::CRyvCfgWNumWNumTypeCDlg() : SettingsPanel(numberType) {}
CRyvCfgWNumWNumPlcmtCDlg::CRyvCfgWNumWNumPlcmtCDlg() : SettingsPanel(placement) {}
CRyvCfgWNumWNumOptCDlg::CRyvCfgWNumWNumOptCDlg() : SettingsPanel(numberOptions) {}

} // namespace ryv
