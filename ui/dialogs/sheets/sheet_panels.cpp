#include "ui/dialogs/sheets/sheet_panels.h"

#include "ui/dialogs/sheets/library_paths.h"

#include <array>

namespace ryv {

namespace {

constexpr int graphicalBit = 8;

constexpr SettingRow library(int index, CStringView name, ValueRule rule, int explanation) {
    SettingRow row;
    row.key = miscSetting(index);
    row.name = name;
    row.label = message::librarySchematic - 1 + index;
    row.rule = rule;
    row.explanation = explanation;
    return row;
}

template <int index, bool (*choose)(SettingSource&, int)>
constexpr SettingRow browse(CStringView name) {
    SettingRow row;
    row.key = miscSetting(index);
    row.name = name;
    row.label = message::libraryBrowse;
    row.kind = ControlKind::button;
    row.traits = LayoutTraits::sameRow;
    row.action = [](SettingSource& settings) { return choose(settings, index); };
    return row;
}

constexpr SettingRow libraryRows[] = {
    library(1, u"schematicLibraries", ValueRule::folders, message::explainFolders),
    browse<1, library_paths::addFolder>(u"browseSchematic"),
    library(2, u"otherLibraries", ValueRule::folders, message::explainFolders),
    browse<2, library_paths::addFolder>(u"browseOther"),
    library(3, u"panelLibraries", ValueRule::folders, message::explainFolders),
    browse<3, library_paths::addFolder>(u"browsePanel"),
    library(4, u"menuFile", ValueRule::file, message::explainMenuFile),
    browse<4, library_paths::chooseMenuFile>(u"browseMenuFile"),
};

constexpr SettingRow descriptionRows[] = {{.key = projectField(ProjectField::descriptions),
    .name = u"descriptions",
    .label = message::projectDescriptions,
    .traits = LayoutTraits::multiLine}};

constexpr ChoiceLayout separators[] = {{message::choiceComma, u"0"}, {message::choiceCommaBlank, u"1"}};

constexpr SettingRow referenceRows[] = {
    {.key = miscSetting(5),
        .name = u"defaultGraphics",
        .label = message::graphicalReferences,
        .kind = ControlKind::checkBox,
        .bit = graphicalBit,
        .explanation = message::explainDefaults},
    {.key = miscSetting(28),
        .name = u"defaultSort",
        .label = message::sortReferences,
        .kind = ControlKind::checkBox,
        .explanation = message::explainDefaults},
    {.key = miscSetting(7),
        .name = u"defaultUnusedText",
        .label = message::fillText,
        .explanation = message::explainDefaults},
    {.key = miscSetting(8),
        .name = u"defaultSeparator",
        .label = message::referenceSeparator,
        .kind = ControlKind::radio,
        .choices = separators,
        .explanation = message::explainDefaults,
        .absent = u"0"},
};

constexpr SettingRow otherRows[] = {
    {.key = miscSetting(9),
        .name = u"value9",
        .label = message::projectValue,
        .explanation = message::explainProjectValue},
    {.key = miscSetting(39),
        .name = u"link",
        .label = message::projectLink,
        .traits = LayoutTraits::readOnly,
        .explanation = message::explainLink},
};

constexpr SettingRow entryRow(EntryField field, CStringView name, int label, unsigned traits = 0) {
    SettingRow row;
    row.key = entryField(field);
    row.name = name;
    row.label = label;
    row.traits = traits;
    return row;
}

constexpr SettingRow drawingRows[] = {
    entryRow(EntryField::file, u"file", message::entryFile, LayoutTraits::readOnly),
    entryRow(EntryField::project, u"project", message::entryProject, LayoutTraits::readOnly),
};

constexpr SettingRow referenceOnly() {
    SettingRow row = entryRow(EntryField::referenceOnly, u"referenceOnly", message::entryReferenceOnly);
    row.kind = ControlKind::checkBox;
    return row;
}

constexpr SettingRow entryRows[] = {
    entryRow(EntryField::section, u"section", message::entrySection),
    entryRow(EntryField::subSection, u"subSection", message::entrySubSection),
    referenceOnly(),
    entryRow(EntryField::descriptions, u"descriptions", message::entryDescriptions, LayoutTraits::multiLine),
};

} // namespace

LibrariesPanel::LibrariesPanel() : SettingsPanel({message::panelLibraries, libraryRows}) {}

ProjectDescriptionsPanel::ProjectDescriptionsPanel()
    : SettingsPanel({message::panelProjectDescriptions, descriptionRows}) {}

ReferenceDefaultsPanel::ReferenceDefaultsPanel()
    : SettingsPanel({message::panelReferenceDefaults, referenceRows}) {}

OtherProjectSettingsPanel::OtherProjectSettingsPanel()
    : SettingsPanel({message::panelOtherProjectSettings, otherRows, true}) {}

DrawingPanel::DrawingPanel() : SettingsPanel({message::panelDrawing, drawingRows}) {}

DrawingEntryPanel::DrawingEntryPanel() : SettingsPanel({message::panelEntry, entryRows}) {}

} // namespace ryv
