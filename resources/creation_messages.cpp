#include "resources/creation_message_numbers.h"

#include "resources/catalogue.h"

namespace ryv::english {

namespace {

// clang-format off
constexpr Message texts[] = {
    {message::newProjectTitle, u"New Project"},
    {message::newProjectName, u"&Name"},
    {message::newProjectFolder, u"&Folder"},
    {message::newProjectBrowseFolder, u"B&rowse..."},
    {message::newProjectOwnFolder, u"&Put it into a folder of its name"},
    {message::newProjectSettings, u"Copy settings fro&m"},
    {message::newProjectBrowseSettings, u"Bro&wse..."},
    {message::newProjectLines, u"Description"},
    {message::newProjectEditLines, u"&Description lines..."},
    {message::newProjectProperties, u"&Show the project's properties afterwards"},
    {message::newProjectPath, u"Project file"},
    {message::newProjectChooseFolder, u"Folder of the New Project"},
    {message::newProjectChooseSettings, u"Project to Copy the Settings From"},
    {message::newProjectSettingsHint, u"Empty: those of the active project"},
    {message::newProjectValue9, u"&Value 9"},
    {message::newProjectValue9Hint,
        u"Miscellaneous setting 9, kept for the package. Empty: that of the copied settings"},
    {message::newProjectNameMissing, u"Enter a name for the new project."},
    {message::newProjectExists,
        u"There is a file or folder of that name already:\n%s\n\nChoose another name."},
    {message::newProjectPlaceInvalid,
        u"The project cannot be made in this location:\n%s\n\n"
        u"Enter the full path of a folder, without characters that names of files cannot have."},
    {message::newProjectSettingsMissing,
        u"There is no project file to copy the settings from:\n%s\n\n"
        u"Choose another one, or empty the field to take the active project."},
    {message::newProjectNoSource,
        u"No project is active. Enter the project file that the settings are to be copied from."},
    {message::newProjectFolderNotMade, u"The folder\n%s\ncannot be made: %s."},
    {message::newProjectNotRead, u"The settings cannot be copied. The project file\n%s\ncannot be read: %s."},
    {message::newProjectNotWritten, u"The project file\n%s\ncannot be written: %s."},
    {message::newProjectNotOpened, u"The new project was made, but it cannot be opened:\n%s."},
    {message::newDrawingTitle, u"New Drawing"},
    {message::newDrawingName, u"File &name"},
    {message::newDrawingFolder, u"&Folder"},
    {message::newDrawingBrowseFolder, u"B&rowse..."},
    {message::newDrawingTemplate, u"&Template"},
    {message::newDrawingBrowseTemplate, u"Bro&wse..."},
    {message::newDrawingDescription1, u"Description &1"},
    {message::newDrawingDescription2, u"Description &2"},
    {message::newDrawingDescription3, u"Description &3"},
    {message::newDrawingReferenceOnly, u"For r&eference only"},
    {message::newDrawingProperties, u"Show the drawing's properties &afterwards"},
    {message::newDrawingPath, u"Drawing file"},
    {message::newDrawingChooseFolder, u"Folder of the New Drawing"},
    {message::newDrawingChooseTemplate, u"Template of the New Drawing"},
    {message::newDrawingTemplateHint, u"Empty: the host's usual template"},
    {message::codesPanelTitle, u"Codes"},
    {message::codesPanelProject, u"&Project code"},
    {message::codesPanelInstallation, u"&Installation code"},
    {message::codesPanelLocation, u"&Location code"},
    {message::codesPanelLookUp, u"Look &up codes in use"},
    {message::codesPanelFound, u"Installations: %d, locations: %d"},
    {message::sheetPanelTitle, u"Sheet"},
    {message::sheetPanelSheet, u"&Sheet"},
    {message::sheetPanelDrawing, u"&Drawing number"},
    {message::sheetPanelSection, u"Se&ction"},
    {message::sheetPanelSubSection, u"Su&b-section"},
    {message::newDrawingNameMissing, u"Enter a file name for the new drawing."},
    {message::newDrawingExists,
        u"There is a file or folder of that name already:\n%s\n\nChoose another name."},
    {message::newDrawingPlaceInvalid,
        u"The drawing cannot be made in this location:\n%s\n\n"
        u"Enter the full path of a folder, without characters that names of files cannot have."},
    {message::newDrawingTemplateMissing, u"There is no template of this name:\n%s\n\nChoose another one."},
    {message::newDrawingFolderMissing, u"There is no folder of this name:\n%s\n\nChoose another one, or make it first."},
    {message::newDrawingNotLocked, u"%s\n\nA new drawing cannot be added to the project now."},
    {message::newDrawingProjectClosed,
        u"The project was closed meanwhile, so the drawing was not made:\n%s\n\n"
        u"Open the project and try again."},
    {message::newDrawingNotCopied, u"The template\n%s\ncannot be copied to\n%s\n\nThe reason: %s."},
    {message::newDrawingNotRead, u"The copy of the template cannot be read.\n%s."},
    {message::newDrawingReplaceSettings,
        u"The template has drawing settings of its own:\n%s\n\n"
        u"Do you want to replace them by the project's defaults?"},
    {message::newDrawingNotSet,
        u"The project's settings cannot be written into the new drawing:\n%s\n\n"
        u"The drawing was not made."},
    {message::newDrawingNotSaved, u"The new drawing cannot be saved.\n%s."},
    {message::newDrawingNotOpened,
        u"The new drawing was made, but it was not opened, and it is not in the project:\n%s\n\n"
        u"It can be added to the project as it is."},
    {message::newDrawingNotAdded,
        u"The new drawing\n%s\ncannot be added to project %s: the project is not open any more, or has it "
        u"already."},
    {message::newDrawingNotWritten,
        u"The new drawing\n%s\nwas not added to the project. The file\n%s\ncannot be written: %s."},
};
// clang-format on

static_assert(isAscending(texts));

} // namespace

std::span<const Message> creationMessages() noexcept {
    return texts;
}

} // namespace ryv::english
