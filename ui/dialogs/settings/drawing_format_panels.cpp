#include "ui/dialogs/settings/drawing_format_panels.h"

#include "ui/dialogs/settings/setting_dialogs.h"

namespace ryv {

namespace {

using namespace setting_rows;

constexpr ChoiceLayout units[] = {{message::choiceInches, u"1.0"}, {message::choiceMillimetres, u"25.4"}};
constexpr ChoiceLayout directions[] = {{message::choiceHorizontal, u"H"}, {message::choiceVertical, u"V"}};
constexpr ChoiceLayout rungs[] = {{message::choiceAllRungs, u"0"}, {message::choiceEveryOtherRung, u"1"}};
constexpr ChoiceLayout orders[] = {
    {message::choiceHorizontalFirst, u"1"}, {message::choiceVerticalFirst, u"0"}};
constexpr ChoiceLayout references[] = {{message::choiceReferences1, u"1"},
    {message::choiceReferences1 + 1, u"2"}, {message::choiceReferences1 + 2, u"3"},
    {message::choiceReferences1 + 3, u"4"}, {message::choiceReferences1 + 4, u"5"},
    {message::choiceReferences1 + 5, u"6"}, {message::choiceReferences1 + 6, u"7"},
    {message::choiceReferences1 + 7, u"8"}, {message::choiceReferences1 + 8, u"9"}};
constexpr ChoiceLayout sorting[] = {{message::choiceSort0, u"0"}, {message::choiceSort0 + 1, u"1"},
    {message::choiceSort0 + 2, u"2"}, {message::choiceSort0 + 3, u"3"}, {message::choiceSort0 + 4, u"4"},
    {message::choiceSort0 + 5, u"5"}, {message::choiceSort0 + 6, u"6"}, {message::choiceSort0 + 7, u"7"},
    {message::choiceSort0 + 8, u"8"}};
constexpr SettingCondition grid = {drawingSetting(1), u"4"};
constexpr SettingCondition gridOrZones = {drawingSetting(1), u"4,5"};

constexpr SettingRow scaleRows[] = {
    openCombo(30, u"unitScale", units, Rule::positive),
    text(31, u"featureScale", Rule::positive),
};
constexpr SettingTable scale = {message::panelScale, scaleRows};

constexpr SettingRow laddersRows[] = {
    combo(0, u"ladderDirection", directions),
    combo(16, u"rungs", rungs),
    text(11, u"rungSpacing", Rule::positive),
    text(12, u"ladderWidth", Rule::positive),
    text(17, u"phaseSpacing", Rule::positive),
    text(15, u"referenceIncrement", Rule::wholeNumber),
};
constexpr SettingTable ladders = {message::panelLadders, laddersRows};

constexpr SettingRow formatReferencesRows[] = {
    combo(1, u"lineReferences", references),
    text(18, u"xOrigin", Rule::number).onlyWhen(gridOrZones),
    text(19, u"yOrigin", Rule::number).onlyWhen(gridOrZones).beside(),
    text(20, u"xSpacing", Rule::positive).onlyWhen(gridOrZones),
    text(21, u"ySpacing", Rule::positive).onlyWhen(grid).beside(),
    text(22, u"xFirst", Rule::notEmpty).onlyWhen(gridOrZones),
    text(23, u"yFirst", Rule::notEmpty).onlyWhen(grid).beside(),
    combo(24, u"gridOrder", orders).onlyWhen(grid),
    text(25, u"gridDelimiter").onlyWhen(grid).beside(),
    button(1, u"chooseLineReferences", message::chooseKind, setting_dialogs::chooseLineReferences),
    button(18, u"setUpGrid", message::setUpGrid, setting_dialogs::setUpGridReferences)
        .onlyWhen(gridOrZones)
        .beside(),
};
constexpr SettingTable formatReferences = {message::panelFormatReferences, formatReferencesRows, true};

constexpr SettingRow numberingOrder() {
    SettingRow made = openCombo(59, u"numberingOrder", sorting);
    made.unset = message::numberingOrderUnset;
    return made;
}

constexpr SettingRow orderRows[] = {
    numberingOrder(),
};
constexpr SettingTable order = {message::panelOrder, orderRows, true};

constexpr SettingRow layersRows[] = {
    text(26, u"wireLayers", Rule::layers),
    button(26, u"makeWireLayers", message::setUpLayers, setting_dialogs::setUpWireLayers).beside(),
    text(27, u"wireNumberLayer", Rule::layer),
    text(28, u"wireCopyLayer", Rule::layer).beside(),
    text(29, u"wireFixedLayer", Rule::layer).beside(),
    text(54, u"signalNumberLayer", Rule::layer),
    text(35, u"terminalLayer", Rule::layer).beside(),
    text(39, u"positionLayer", Rule::layer).beside(),
    text(45, u"componentLayer", Rule::layer),
    text(44, u"linkLayer", Rule::layer).beside(),
    text(58, u"locationBoxLayer", Rule::layer).beside(),
    text(32, u"tagLayer", Rule::layer),
    text(48, u"tagFixedLayer", Rule::layer).beside(),
    text(38, u"locationLayer", Rule::layer).beside(),
    text(33, u"referenceLayer", Rule::layer),
    text(36, u"childReferenceLayer", Rule::layer).beside(),
    text(40, u"otherLayer", Rule::layer).beside(),
    text(34, u"descriptionLayer", Rule::layer),
    text(37, u"childDescriptionLayer", Rule::layer).beside(),
};
constexpr SettingTable layers = {message::panelLayers, layersRows};

} // namespace

CRyvCfgDFScaleCDlg::CRyvCfgDFScaleCDlg() : SettingsPanel(scale) {}
CRyvCfgDFLCfgCDlg::CRyvCfgDFLCfgCDlg() : SettingsPanel(ladders) {}
CRyvCfgDFFormatRefCDlg::CRyvCfgDFFormatRefCDlg() : SettingsPanel(formatReferences) {}
CRyvCfgDFTWNOrderCDlg::CRyvCfgDFTWNOrderCDlg() : SettingsPanel(order) {}
CRyvCfgDFLayerDefineCDlg::CRyvCfgDFLayerDefineCDlg() : SettingsPanel(layers) {}

} // namespace ryv
