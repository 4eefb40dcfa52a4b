#include "ui/dialogs/creation/drawing_maker.h"

#include "bridge/platform.h"
#include "manager/project_manager.h"
#include "manager/shown_messages.h"
#include "model/settings_block.h"
#include "resources/creation_message_numbers.h"
#include "resources/file_reasons.h"
#include "siblings/copy_file.h"
#include "ui/dialogs/work/drawing_access.h"

namespace ryv {

namespace {

using Values = NewDrawingValues;

struct OwnSetting {
    const char16_t* tag;
    Values::Index value;
};

/// The settings of the drawing itself that the user gives.
constexpr OwnSetting ownSettings[] = {{u"IEC_PROJ", Values::projectCode},
    {u"IEC_INST", Values::installationCode}, {u"IEC_LOC", Values::locationCode}, {u"SHEET", Values::sheet},
    {u"SHEETDWGNAME", Values::drawingNumber}};

bool tell(int text, std::initializer_list<FormatArgument> arguments) {
    showMessage({text, message::newDrawingTitle, MessageIcon::warning}, arguments);
    return false;
}

bool copyTemplate(const Values& values) {
    const FileStatus status = copyFile(*platform().os.files, values.templateFile, values.path);
    return status.ok() ||
           tell(message::newDrawingNotCopied,
               {shownPath(values.templateFile), shownPath(values.path), fileReason(status.error)});
}

bool userReplacesSettings(const CString& templateFile) {
    return showMessage({message::newDrawingReplaceSettings, message::newDrawingTitle, MessageIcon::question,
                           MessageButtons::yesNo},
               {shownPath(templateFile)}) == Answer::yes;
}

/// The block is looked up anew: what stands open now may be a ladder. What the block lacks is the project's,
/// whichever project is the active one by now.
bool setOwnSettings(RyvDbxBlockRef& accessor, const Values& values, const RyvCfgDrawingSettings& defaults) {
    RyvCfgDrawingSettings settings(defaults);
    if (!findSettingsBlock(accessor, settingsBlockName) || !readDrawingSettings(accessor, settings, false))
        return false;
    for (const OwnSetting& each : ownSettings)
        settings.setValue(RyvCfgDrawingSettings::getIndexForKQ_MTag(each.tag), &values[each.value]);
    return writeDrawingSettings(accessor, settings);
}

/// The project is looked up behind the question, which may outlast it.
bool writeSettings(RyvDbxBlockRef& accessor, const Values& values, const CString& projectId) {
    const bool replaces =
        !findSettingsBlock(accessor, settingsBlockName) || userReplacesSettings(values.templateFile);
    const RyvPrmProjectManager* const manager = GetProjectManager();
    const auto project = manager ? manager->holdProject(projectId) : nullptr;
    if (!project)
        return tell(message::newDrawingProjectClosed, {shownPath(values.path)});
    RyvCfgDrawingSettings defaults;
    defaults.fillWithDefaults(project.get(), false);
    const bool done = (!replaces || applySettingsToDrawing(accessor, defaults, true)) &&
                      setOwnSettings(accessor, values, defaults);
    return done || tell(message::newDrawingNotSet, {shownPath(values.path)});
}

/// What cannot be read is what was copied; the copy is gone when the user hears of it.
CString problemOfTemplate(const CString& problem, const Values& values) {
    if (!problem.starts_with(values.path))
        return shownProblem(problem, values.path);
    return shownPath(values.templateFile) + problem.substr(values.path.size());
}

bool setUp(const Values& values, const CString& projectId) {
    DrawingResult result;
    const std::unique_ptr<DrawingDatabase> drawing = platform().host.drawings->open(values.path, result);
    if (!drawing)
        return tell(message::newDrawingNotRead, {problemOfTemplate(result.problem, values)});
    RyvDbxBlockRef accessor(*drawing);
    if (!writeSettings(accessor, values, projectId))
        return false;
    result = drawing->save();
    return result.ok() || tell(message::newDrawingNotSaved, {shownProblem(result.problem, values.path)});
}

/// Lines keep their numbers, so an empty one in front of another counts.
CStringList descriptionsOf(const Values& values) {
    CStringList lines{
        values[Values::description1], values[Values::description2], values[Values::description3]};
    while (!lines.empty() && lines.back().empty())
        lines.pop_back();
    return lines;
}

void fill(RyvPrmFileDetails& details, const Values& values) {
    details.setFileName(values.path);
    details.setDescriptions(descriptionsOf(values));
    details.setDescription1(values[Values::section]);
    details.setDescription2(values[Values::subSection]);
    details.setReferenceOnly(values.isReferenceOnly);
}

} // namespace

void removeMadeDrawing(const CString& path) {
    if (platform().host.documents->documentOfFile(path) == DocumentId::none)
        static_cast<void>(platform().os.files->remove(path));
}

bool makeDrawing(const NewDrawingValues& values, const CString& projectId, RyvPrmFileDetails& details) {
    if (!copyTemplate(values))
        return false;
    if (!setUp(values, projectId)) {
        removeMadeDrawing(values.path);
        return false;
    }
    fill(details, values);
    return true;
}

} // namespace ryv
