#include "ui/dialogs/creation/new_drawing_panels.h"

#include "base/format.h"
#include "base/text.h"
#include "bridge/settings_calls.h"
#include "model/setting_value.h"
#include "resources/creation_message_numbers.h"
#include "resources/messages.h"
#include "toolkit/combo_box.h"
#include "toolkit/text_field.h"

namespace ryv {

namespace {

using Codes = NewDrawingCodesPanel;
using Sheet = NewDrawingSheetPanel;
using Values = NewDrawingValues;

constexpr std::array<ControlLayout, 5> codesControls = {{{ControlKind::text, Codes::projectId, u"projectCode",
                                                             message::codesPanelProject},
    {ControlKind::combo, Codes::installationId, u"installation", message::codesPanelInstallation,
        LayoutTraits::editable},
    {ControlKind::combo, Codes::locationId, u"location", message::codesPanelLocation, LayoutTraits::editable},
    {ControlKind::button, Codes::lookUpId, u"lookUp", message::codesPanelLookUp},
    {ControlKind::label, Codes::foundId, u"found", u"", LayoutTraits::hidden}}};
constexpr PanelLayout codesLayout = {message::codesPanelTitle, codesControls};

constexpr std::array<ControlLayout, 4> sheetControls = {{{ControlKind::text, Sheet::sheetId, u"sheet",
                                                             message::sheetPanelSheet},
    {ControlKind::text, Sheet::drawingId, u"drawing", message::sheetPanelDrawing},
    {ControlKind::combo, Sheet::sectionId, u"section", message::sheetPanelSection, LayoutTraits::editable},
    {ControlKind::combo, Sheet::subSectionId, u"subSection", message::sheetPanelSubSection,
        LayoutTraits::editable}}};
constexpr PanelLayout sheetLayout = {message::sheetPanelTitle, sheetControls, true};

CString defaultOf(const RyvCfgDrawingSettings& settings, const char16_t* tag) {
    return valueOrEmpty(settings, RyvCfgDrawingSettings::getIndexForKQ_MTag(tag));
}

Choices choicesOf(const CStringArray& texts) {
    Choices choices;
    for (const CString& text : texts)
        if (!text.empty())
            choices.push_back({text});
    return choices;
}

CString fieldOf(const Panel& panel, int id) {
    return CString(trim(panel.control<TextField>(id).text()));
}

CString comboOf(const Panel& panel, int id) {
    return CString(trim(panel.control<ComboBox>(id).text()));
}

} // namespace

NewDrawingCodesPanel::NewDrawingCodesPanel() : Panel(codesLayout, messageText) {}

void NewDrawingCodesPanel::propose(const RyvCfgDrawingSettings& defaults) {
    control<TextField>(projectId).setText(defaultOf(defaults, u"IEC_PROJ"));
    control<ComboBox>(installationId).setText(defaultOf(defaults, u"IEC_INST"));
    control<ComboBox>(locationId).setText(defaultOf(defaults, u"IEC_LOC"));
}

void NewDrawingCodesPanel::lookUp() {
    CStringArray codes;
    if (lisp::installationsOfProject(codes))
        control<ComboBox>(installationId).setRows(choicesOf(codes));
    codes.clear();
    if (lisp::locationsOfProject(codes))
        control<ComboBox>(locationId).setRows(choicesOf(codes));
}

/// The lists open only when the user asks for them, so nothing else shows that they were filled.
void NewDrawingCodesPanel::onPress(int) {
    lookUp();
    Control& found = control<Control>(foundId);
    found.setLabel(format(messageText(message::codesPanelFound),
        {control<ComboBox>(installationId).rows().size(), control<ComboBox>(locationId).rows().size()}));
    found.setVisible(true);
}

void NewDrawingCodesPanel::store(NewDrawingValues& values) const {
    values.setValue(Values::projectCode, fieldOf(*this, projectId));
    values.setValue(Values::installationCode, comboOf(*this, installationId));
    values.setValue(Values::locationCode, comboOf(*this, locationId));
}

NewDrawingSheetPanel::NewDrawingSheetPanel() : Panel(sheetLayout, messageText) {}

void NewDrawingSheetPanel::offer(const UsedTexts& used) {
    control<ComboBox>(sectionId).setRows(used.sections);
    control<ComboBox>(subSectionId).setRows(used.subSections);
}

void NewDrawingSheetPanel::store(NewDrawingValues& values) const {
    values.setValue(Values::sheet, fieldOf(*this, sheetId));
    values.setValue(Values::drawingNumber, fieldOf(*this, drawingId));
    values.setValue(Values::section, comboOf(*this, sectionId));
    values.setValue(Values::subSection, comboOf(*this, subSectionId));
}

} // namespace ryv
