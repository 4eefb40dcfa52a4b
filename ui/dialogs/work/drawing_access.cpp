#include "ui/dialogs/work/drawing_access.h"

#include "base/fold.h"
#include "base/format.h"
#include "base/paths.h"
#include "bridge/command_strings.h"
#include "bridge/platform.h"
#include "manager/project_manager.h"
#include "manager/shown_messages.h"
#include "model/setting_value.h"
#include "model/settings_block.h"
#include "resources/messages.h"
#include "resources/setting_message_numbers.h"

#include <unordered_set>

namespace ryv {

namespace {

CString wireFormatOf(const RyvCfgDrawingSettings& settings) {
    return valueOrEmpty(settings, RyvCfgDrawingSettings::getIndexForKQ_MTag(u"WIREFMT"));
}

} // namespace

std::unique_ptr<DrawingDatabase> openDrawing(CStringView drawing, CString& problem) {
    DrawingResult result;
    auto view = platform().host.drawings->open(drawing, result);
    if (!view)
        problem = result.problem.empty() ? shownPath(drawing) : shownProblem(result.problem, drawing);
    return view;
}

bool readSettings(DrawingDatabase& drawing, RyvCfgDrawingSettings& settings) {
    RyvDbxBlockRef accessor(drawing);
    return readDrawingSettings(accessor, settings, false);
}

bool readDrawing(CStringView drawing, RyvCfgDrawingSettings& settings, CString& problem) {
    const auto view = openDrawing(drawing, problem);
    if (!view)
        return false;
    const bool hasBlock = readSettings(*view, settings);
    if (!hasBlock)
        problem = format(messageText(message::drawingWithoutSettings), {shownPath(drawing)});
    return hasBlock;
}

bool writeSettings(
    DrawingDatabase& drawing, const RyvCfgDrawingSettings& present, const RyvCfgDrawingSettings& settings) {
    RyvDbxBlockRef accessor(drawing);
    if (!ensureSettingsBlock(accessor, true) || !writeDrawingSettings(accessor, settings))
        return false;
    replaceLadderWireFormat(accessor, wireFormatOf(present), wireFormatOf(settings));
    return true;
}

RyvCfgDrawingSettings defaultsOf(const RyvPrmProject* project) {
    RyvCfgDrawingSettings settings;
    settings.fillWithDefaults(project, true);
    return settings;
}

/// A file that could not be saved may be one beside the drawing, so it is the folder that counts.
CString shownProblem(const CString& problem, CStringView drawing) {
    const std::size_t name = paths::findFileName(drawing).size();
    const CStringView folder = drawing.substr(0, drawing.size() - name);
    const CString shown = shownPath(drawing);
    if (!problem.starts_with(folder) || shown.size() < name)
        return problem;
    return shown.substr(0, shown.size() - name) + problem.substr(folder.size());
}

CString projectOf(CStringView drawing) {
    CString projectId;
    const RyvPrmProjectManager* const manager = GetProjectManager();
    if (manager)
        manager->findMatchingProject(drawing, projectId);
    return projectId;
}

std::shared_ptr<RyvPrmProject> holdProject(CStringView projectId) {
    const RyvPrmProjectManager* const manager = GetProjectManager();
    return manager && !projectId.empty() ? manager->holdProject(projectId) : nullptr;
}

CString nameOfProject(CStringView projectId) {
    CString name;
    if (const RyvPrmProjectManager* const manager = GetProjectManager())
        manager->makeProjectPrettyNameFromID(projectId, name);
    return name;
}

bool isOpenInHost(CStringView drawing) {
    return platform().host.documents->documentOfFile(drawing) != DocumentId::none;
}

CStringArray eachOnce(const CStringArray& drawings) {
    CStringArray each;
    std::unordered_set<CString> known;
    for (const CString& drawing : drawings)
        if (known.insert(toUpper(drawing)).second)
            each.push_back(drawing);
    return each;
}

void rereadInLisp(const CStringList& drawings) {
    RyvPrmProjectManager* const manager = GetProjectManager();
    if (drawings.empty() || !manager)
        return;
    manager->setDrawingsNeedKQ_MUpdate(drawings, true);
    runInApplicationContext(CommandString::rereadDrawingParameters);
}

} // namespace ryv
