#include "ui/dialogs/creation/new_project_dialog.h"

#include "base/file_names.h"
#include "base/join.h"
#include "base/paths.h"
#include "base/text.h"
#include "bridge/environment.h"
#include "bridge/platform.h"
#include "bridge/project_calls.h"
#include "manager/existing_files.h"
#include "manager/nav_state.h"
#include "manager/project_manager.h"
#include "manager/shown_messages.h"
#include "resources/creation_message_numbers.h"
#include "resources/message_numbers.h"
#include "resources/messages.h"
#include "toolkit/check_box.h"
#include "toolkit/text_field.h"
#include "ui/dialogs/creation/file_fields.h"

#include <array>

namespace ryv {

namespace {

using Dlg = CRyvCfgProjNewDlg;
using namespace LayoutTraits;

constexpr CStringView registryKey = u"ProjNewDlg";
constexpr CStringView registryName = u"SettingsFile";
constexpr CStringView defaultSettings = u"default.kqp";
constexpr CStringView projectEnd = u".kqp";

constexpr std::array<ControlLayout, 5> placePart = {
    {{ControlKind::text, Dlg::nameId, u"name", message::newProjectName},
        {ControlKind::text, Dlg::folderId, u"folder", message::newProjectFolder},
        {ControlKind::button, Dlg::browseFolderId, u"browseFolder", message::newProjectBrowseFolder, sameRow},
        {ControlKind::checkBox, Dlg::ownFolderId, u"ownFolder", message::newProjectOwnFolder},
        {ControlKind::text, Dlg::pathId, u"path", message::newProjectPath, readOnly}}};
constexpr std::array<ControlLayout, 6> contentPart = {
    {{ControlKind::text, Dlg::settingsId, u"settings", message::newProjectSettings},
        {ControlKind::button, Dlg::browseSettingsId, u"browseSettings", message::newProjectBrowseSettings,
            sameRow},
        {ControlKind::text, Dlg::linesId, u"lines", message::newProjectLines, multiLine | readOnly | hidden},
        {ControlKind::button, Dlg::editLinesId, u"editLines", message::newProjectEditLines},
        {ControlKind::text, Dlg::value9Id, u"value9", message::newProjectValue9},
        {ControlKind::checkBox, Dlg::propertiesId, u"properties", message::newProjectProperties}}};
constexpr std::array<PanelLayout, 2> panels = {{{u"", placePart}, {u"", contentPart}}};
constexpr DialogLayout layout = {u"NewProject", message::newProjectTitle, panels, {}};

/// The active project's file; empty when none is open.
CString activeProjectFile() {
    const RyvPrmProjectManager* const manager = GetProjectManager();
    const RyvPrmProject* const project = manager ? manager->getActiveProject() : nullptr;
    return project ? project->getProjectID() : CString();
}

CString firstSettingsFile() {
    const CString remembered = rememberedFile(registryKey, registryName);
    if (!remembered.empty() || !activeProjectFile().empty())
        return remembered;
    const CString shipped = pathIn(platform().host.profile->templateFolder(), defaultSettings);
    return isFile(shipped) ? shipped : CString();
}

/// Where the package makes projects; the current folder when it names none.
CString usualFolder() {
    CString folder;
    if (!readEnvironment(u"KQ_PROJ", folder) || folder.empty())
        return platform().os.paths->currentFolder();
    return replaceAll(folder, u'/', u'\\');
}

} // namespace

CRyvCfgProjNewDlg::CRyvCfgProjNewDlg(Maker maker) : Dialog(layout, messageText), maker_(std::move(maker)) {
    setHelpTopic(u"new_project");
    control<TextField>(settingsId).setPlaceholder(CString(messageText(message::newProjectSettingsHint)));
    control<TextField>(value9Id).setTooltip(CString(messageText(message::newProjectValue9Hint)));
}

bool CRyvCfgProjNewDlg::onInit() {
    if (isFresh_) {
        defaultFolder_ = usualFolder();
        setPath(folderId, defaultFolder_);
        setPath(settingsId, firstSettingsFile());
        isFresh_ = false;
    }
    control<CheckBox>(ownFolderId).setChecked(navState() && navState()->newProjectInOwnFolder);
    setFocus(nameId);
    showPath();
    return true;
}

CString CRyvCfgProjNewDlg::textOf(int id) const {
    return CString(trim(control<TextField>(id).text()));
}

void CRyvCfgProjNewDlg::setPath(int id, CStringView path) {
    control<TextField>(id).setText(path.empty() ? CString() : shownPath(path));
}

CString CRyvCfgProjNewDlg::folder() const {
    const CString typed = typedPath(textOf(folderId));
    return typed.empty() ? defaultFolder_ : typed;
}

CString CRyvCfgProjNewDlg::name() const {
    return paths::removeExtension(textOf(nameId));
}

CString CRyvCfgProjNewDlg::composedPath() const {
    const CString title = name();
    const bool isOwn = control<CheckBox>(ownFolderId).isChecked();
    const CString place = isOwn ? pathIn(folder(), title) : folder();
    return title.empty() ? place : pathIn(place, title + CString(projectEnd));
}

void CRyvCfgProjNewDlg::showPath() {
    setPath(pathId, name().empty() ? CString() : composedPath());
}

void CRyvCfgProjNewDlg::onChange(Control&) {
    showPath();
}

void CRyvCfgProjNewDlg::onPress(int id) {
    if (id == editLinesId)
        return editLines();
    const bool isFolder = id == browseFolderId;
    const CString chosen =
        isFolder ? chooseFolder(message::newProjectChooseFolder, folder())
                 : chooseFile(message::newProjectChooseSettings, projectEnd, typedPath(textOf(settingsId)));
    if (chosen.empty())
        return;
    setPath(isFolder ? folderId : settingsId, chosen);
    showPath();
}

void CRyvCfgProjNewDlg::editLines() {
    CStringArray edited;
    if (!lisp::editDescriptionLines(name(), lines_, edited))
        return;
    while (!edited.empty() && edited.back().empty())
        edited.pop_back();
    lines_ = edited;
    control<TextField>(linesId).setText(join(lines_, u"\n"));
    control<TextField>(linesId).setVisible(!lines_.empty());
}

bool CRyvCfgProjNewDlg::refuse(int focus, int text, CStringView argument) {
    setFocus(focus);
    showMessage({text, message::newProjectTitle, MessageIcon::warning}, {argument});
    return false;
}

bool CRyvCfgProjNewDlg::isPathFree(const CString& path) {
    const bool isNamed = !name().empty();
    if (isNamed && !path.empty() && exists(path))
        return refuse(nameId, message::newProjectExists, shownPath(path));
    if (!isQualified(path))
        return refuse(folderId, message::newProjectPlaceInvalid,
            textOf(folderId).empty() ? shownPath(folder()) : textOf(folderId));
    if (!isNamed)
        return refuse(nameId, message::newProjectNameMissing);
    return isFileName(name()) || refuse(nameId, message::nameForbidden, forbiddenInFileNames);
}

bool CRyvCfgProjNewDlg::hasSource(CString& source) {
    source = typedPath(textOf(settingsId));
    if (!source.empty())
        return isFile(source) || refuse(settingsId, message::newProjectSettingsMissing, shownPath(source));
    source = activeProjectFile();
    return !source.empty() || refuse(settingsId, message::newProjectNoSource);
}

bool CRyvCfgProjNewDlg::onOk() {
    NewProjectValues values;
    values.path = composedPath();
    if (!isPathFree(values.path) || !hasSource(values.source))
        return false;
    values.descriptions = lines_;
    if (CString value = textOf(value9Id); !value.empty())
        values.setting9 = std::move(value);
    values.showsProperties = control<CheckBox>(propertiesId).isChecked();
    rememberFile(registryKey, registryName, typedPath(textOf(settingsId)));
    if (!maker_(values))
        return false;
    values_ = values;
    keepOwnFolder();
    return true;
}

void CRyvCfgProjNewDlg::onCancel() {
    keepOwnFolder();
}

void CRyvCfgProjNewDlg::keepOwnFolder() const {
    if (NavState* const state = navState())
        state->newProjectInOwnFolder = control<CheckBox>(ownFolderId).isChecked();
}

} // namespace ryv
