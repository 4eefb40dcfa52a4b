#include "ui/dialogs/settings/cross_reference_panels.h"

#include "ui/dialogs/settings/setting_dialogs.h"

namespace ryv {

namespace {

using namespace setting_rows;

constexpr ChoiceLayout styles[] = {
    {message::choiceAsText, u"0"}, {message::choiceAsGraphics, u"1"}, {message::choiceAsTable, u"2"}};
constexpr ChoiceLayout graphics[] = {{message::choiceGraphicStyle, u"0"}, {message::choiceContactMap, u"1"}};
constexpr ChoiceLayout separators[] = {{message::choiceComma, u","}, {message::choiceCommaBlank, u", "}};
constexpr int fillBit = 1;
constexpr SettingCondition filled = {drawingSetting(61), u"1", fillBit};
constexpr SettingCondition asText = {drawingSetting(60), u"0"};
constexpr SettingCondition asGraphics = {drawingSetting(60), u"1"};
constexpr SettingCondition asTable = {drawingSetting(60), u"2"};
constexpr SettingCondition withContacts = {drawingSetting(60), u"1,2"};

constexpr SettingRow fillUnused() {
    SettingRow made = row(61, u"fillUnused", ControlKind::checkBox);
    made.label = message::fillUnused;
    made.bit = fillBit;
    return made;
}

constexpr SettingRow formatRows[] = {
    text(14, u"referenceFormat", Rule::numberFormat).explained(message::explainNumberCodes),
    text(47, u"otherReferenceFormat", Rule::numberFormat).explained(message::explainNumberCodes),
};
constexpr SettingTable format = {message::panelReferenceFormat, formatRows};

constexpr SettingRow optionsRows[] = {
    row(64, u"sortReferences", ControlKind::checkBox),
    fillUnused(),
    text(63, u"unusedText", Rule::notEmpty).onlyWhen(filled),
    text(62, u"unusedStyle", Rule::wholeNumber),
};
constexpr SettingTable options = {message::panelReferenceOptions, optionsRows, true};

constexpr SettingRow displayRows[] = {
    radio(60, u"referenceStyle", styles),
    openCombo(65, u"textBetween", separators, Rule::notEmpty).onlyWhen(asText),
    button(65, u"setUpText", message::setUpText, setting_dialogs::setUpReferenceText)
        .onlyWhen(asText)
        .beside(),
    radio(66, u"graphics", graphics).onlyWhen(asGraphics),
    button(66, u"setUpGraphics", message::setUpGraphics, setting_dialogs::setUpReferenceGraphics)
        .onlyWhen(asGraphics)
        .beside(),
    text(67, u"graphicStyle", Rule::wholeNumber).onlyWhen(asGraphics),
    text(68, u"contactMap", Rule::notEmpty).onlyWhen(withContacts),
    text(69, u"tableStyle", Rule::notEmpty).onlyWhen(asTable),
    button(69, u"setUpTable", message::setUpTable, setting_dialogs::setUpReferenceTable)
        .onlyWhen(asTable)
        .beside(),
    text(70, u"tableTitle").onlyWhen(asTable),
    text(71, u"tableColumns", Rule::wholeNumbers).onlyWhen(asTable),
    text(72, u"tableNames", Rule::notEmpty).onlyWhen(asTable),
    text(73, u"tableAlignment", Rule::notEmpty).onlyWhen(asTable),
};
constexpr SettingTable display = {message::panelReferenceDisplay, displayRows};

} // namespace

CRyvCfgCrossRefFormatCDlg::CRyvCfgCrossRefFormatCDlg() : SettingsPanel(format) {}
CRyvCfgCrossRefOptCDlg::CRyvCfgCrossRefOptCDlg() : SettingsPanel(options) {}
CRyvCfgCrossRefCompDispCDlg::CRyvCfgCrossRefCompDispCDlg() : SettingsPanel(display) {}

} // namespace ryv
