#include "ui/dialogs/creation/new_drawing_dialog.h"

#include "base/file_names.h"
#include "base/fold.h"
#include "base/paths.h"
#include "base/text.h"
#include "bridge/platform.h"
#include "manager/existing_files.h"
#include "manager/project_manager.h"
#include "manager/shown_messages.h"
#include "resources/creation_message_numbers.h"
#include "resources/message_numbers.h"
#include "resources/messages.h"
#include "toolkit/check_box.h"
#include "toolkit/combo_box.h"
#include "toolkit/text_field.h"
#include "ui/dialogs/creation/file_fields.h"

#include <array>
#include <utility>

namespace ryv {

namespace {

using Dlg = CRyvCfgDrawingNewDlg;
using namespace LayoutTraits;

constexpr CStringView registryKey = u"DrawingNewDlg";
constexpr CStringView registryName = u"TemplateFile";
constexpr CStringView usualTemplate = u"qdra.dwt";
constexpr CStringView templateEnd = u".dwt";
constexpr CStringView drawingEnd = u".dwg";
constexpr int descriptionCount = 3;

constexpr std::array<ControlLayout, 6> placePart = {
    {{ControlKind::text, Dlg::nameId, u"name", message::newDrawingName},
        {ControlKind::text, Dlg::folderId, u"folder", message::newDrawingFolder},
        {ControlKind::button, Dlg::browseFolderId, u"browseFolder", message::newDrawingBrowseFolder, sameRow},
        {ControlKind::text, Dlg::pathId, u"path", message::newDrawingPath, readOnly},
        {ControlKind::text, Dlg::templateId, u"template", message::newDrawingTemplate},
        {ControlKind::button, Dlg::browseTemplateId, u"browseTemplate", message::newDrawingBrowseTemplate,
            sameRow}}};
constexpr std::array<ControlLayout, 5> contentPart = {
    {{ControlKind::combo, Dlg::description1Id, u"description1", message::newDrawingDescription1, editable,
         Dlg::longestDescription},
        {ControlKind::combo, Dlg::description1Id + 1, u"description2", message::newDrawingDescription2,
            editable, Dlg::longestDescription},
        {ControlKind::combo, Dlg::description1Id + 2, u"description3", message::newDrawingDescription3,
            editable, Dlg::longestDescription},
        {ControlKind::checkBox, Dlg::referenceId, u"reference", message::newDrawingReferenceOnly},
        {ControlKind::checkBox, Dlg::propertiesId, u"properties", message::newDrawingProperties}}};
constexpr std::array<PanelLayout, 2> panels = {{{u"", placePart}, {u"", contentPart}}};
constexpr DialogLayout layout = {u"NewDrawing", message::newDrawingTitle, panels, {}};

bool endsNoCase(CStringView text, CStringView end) {
    return text.size() >= end.size() && equalNoCase(text.substr(text.size() - end.size()), end);
}

/// The host takes the path between double quotes on its command line.
bool breaksOutOfQuotes(CStringView path) {
    return holdsControls(path) || path.find(u'"') != CStringView::npos;
}

} // namespace

CRyvCfgDrawingNewDlg::CRyvCfgDrawingNewDlg(CStringView projectId, Maker maker)
    : Dialog(layout, messageText), projectId_(projectId), maker_(std::move(maker)) {
    setHelpTopic(u"new_drawing");
    control<TextField>(templateId).setPlaceholder(CString(messageText(message::newDrawingTemplateHint)));
    addPanel(codes_);
    addPanel(sheet_);
}

bool CRyvCfgDrawingNewDlg::onInit() {
    const RyvPrmProjectManager* const manager = GetProjectManager();
    const RyvPrmProject* const project = manager ? manager->getProject(projectId_) : nullptr;
    if (!project)
        return false;
    const RyvPrmProjectData& data = project->getProjectData();
    const UsedTexts used = usedTextsOf(data);
    offer(used);
    codes_.propose(data.getProjDefKQMVals());
    setPath(folderId, paths::folderOf(projectId_));
    setPath(templateId, rememberedFile(registryKey, registryName));
    setFocus(nameId);
    showPath();
    if (used.drawings <= mostDrawingsRead)
        codes_.lookUp();
    return true;
}

void CRyvCfgDrawingNewDlg::offer(const UsedTexts& used) {
    for (int i = 0; i < descriptionCount; ++i)
        control<ComboBox>(description1Id + i).setRows(used.descriptions);
    sheet_.offer(used);
}

CString CRyvCfgDrawingNewDlg::textOf(int id) const {
    return CString(trim(control<TextField>(id).text()));
}

void CRyvCfgDrawingNewDlg::setPath(int id, CStringView path) {
    control<TextField>(id).setText(path.empty() ? CString() : shownPath(path));
}

/// A name may hold full stops: all that ends in another extension gets ".dwg" behind it.
CString CRyvCfgDrawingNewDlg::composedPath() const {
    const CString name = textOf(nameId);
    const bool hasEnd = name.empty() || endsNoCase(name, drawingEnd);
    return pathIn(typedPath(textOf(folderId)), hasEnd ? name : name + CString(drawingEnd));
}

CString CRyvCfgDrawingNewDlg::templateFile() const {
    const CString typed = typedPath(textOf(templateId));
    return typed.empty() ? pathIn(platform().host.profile->templateFolder(), usualTemplate) : typed;
}

void CRyvCfgDrawingNewDlg::showPath() {
    setPath(pathId, textOf(nameId).empty() ? CString() : composedPath());
}

void CRyvCfgDrawingNewDlg::onChange(Control&) {
    showPath();
}

void CRyvCfgDrawingNewDlg::onPress(int id) {
    if (id == browseFolderId || id == browseTemplateId)
        browse(id == browseFolderId);
}

void CRyvCfgDrawingNewDlg::browse(bool forFolder) {
    const CString chosen = forFolder
                               ? chooseFolder(message::newDrawingChooseFolder, typedPath(textOf(folderId)))
                               : chooseFile(message::newDrawingChooseTemplate, templateEnd, templateFile());
    if (chosen.empty())
        return;
    setPath(forFolder ? folderId : templateId, chosen);
    showPath();
}

bool CRyvCfgDrawingNewDlg::refuse(int focus, int text, CStringView argument) {
    setFocus(focus);
    showMessage({text, message::newDrawingTitle, MessageIcon::warning}, {argument});
    return false;
}

bool CRyvCfgDrawingNewDlg::isPathFree(const CString& path) {
    const bool isNamed = !textOf(nameId).empty();
    if (isNamed && exists(path))
        return refuse(nameId, message::newDrawingExists, shownPath(path));
    if (!isQualified(path) || breaksOutOfQuotes(paths::folderOf(path))) {
        const CString folder = textOf(folderId);
        return refuse(folderId, message::newDrawingPlaceInvalid, folder.empty() ? shownPath(path) : folder);
    }
    if (!isNamed)
        return refuse(nameId, message::newDrawingNameMissing);
    if (!isFileName(textOf(nameId)))
        return refuse(nameId, message::nameForbidden, forbiddenInFileNames);
    const CString folder = paths::folderOf(path);
    return exists(folder) || refuse(folderId, message::newDrawingFolderMissing, shownPath(folder));
}

void CRyvCfgDrawingNewDlg::store(NewDrawingValues& values) const {
    for (int i = 0; i < descriptionCount; ++i)
        values.setValue(NewDrawingValues::description1 + i, control<ComboBox>(description1Id + i).text());
    codes_.store(values);
    sheet_.store(values);
    values.isReferenceOnly = control<CheckBox>(referenceId).isChecked();
    values.showsProperties = control<CheckBox>(propertiesId).isChecked();
}

bool CRyvCfgDrawingNewDlg::onOk() {
    NewDrawingValues values;
    values.path = composedPath();
    if (!isPathFree(values.path))
        return false;
    values.templateFile = templateFile();
    if (!isFile(values.templateFile))
        return refuse(templateId, message::newDrawingTemplateMissing, shownPath(values.templateFile));
    store(values);
    rememberFile(registryKey, registryName, typedPath(textOf(templateId)));
    if (!maker_(values))
        return false;
    values_ = values;
    return true;
}

} // namespace ryv
