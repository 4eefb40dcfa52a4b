#include "ui/dialogs/settings/component_panels.h"

#include "ui/dialogs/settings/setting_dialogs.h"

namespace ryv {

namespace {

using namespace setting_rows;

constexpr ChoiceLayout modes[] = {{message::choiceByReference, u"R"}, {message::choiceSequential, u"S"}};
constexpr SettingCondition byReference = {drawingSetting(2), u"R"};
constexpr SettingCondition sequential = {drawingSetting(2), u"S"};

constexpr SettingRow tagFormatRows[] = {
    text(5, u"tagFormat", Rule::numberFormat).explained(message::explainTagCodes),
    radio(2, u"tagMode", modes),
    text(3, u"tagStart", Rule::wholeNumber).onlyWhen(sequential),
};
constexpr SettingTable tagFormat = {message::panelTagFormat, tagFormatRows};

constexpr SettingRow tagOptionsRows[] = {
    text(4, u"tagSuffixes").onlyWhen(byReference),
    button(4, u"editTagSuffixes", message::editList, setting_dialogs::editComponentSuffixes)
        .onlyWhen(byReference)
        .beside(),
};
constexpr SettingTable tagOptions = {message::panelTagOptions, tagOptionsRows};

} // namespace

CRyvCfgCompTagFormatCDlg::CRyvCfgCompTagFormatCDlg() : SettingsPanel(tagFormat) {}
CRyvCfgCompTagOptCDlg::CRyvCfgCompTagOptCDlg() : SettingsPanel(tagOptions) {}

} // namespace ryv
