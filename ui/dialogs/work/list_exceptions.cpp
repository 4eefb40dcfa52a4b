// Which drawings of a project have settings of their own.

#include "base/format.h"
#include "base/paths.h"
#include "bridge/platform.h"
#include "manager/project_manager.h"
#include "manager/shown_messages.h"
#include "model/setting_value.h"
#include "resources/messages.h"
#include "resources/setting_message_numbers.h"
#include "ui/dialogs/work/compare_grid.h"
#include "ui/dialogs/work/drawing_access.h"
#include "ui/dialogs/work/report_dialog.h"
#include "ui/dialogs/work/setting_names.h"
#include "ui/dialogs/work/settings_work.h"

namespace ryv {

namespace {

struct Findings {
    CStringArray different; ///< lines: drawings, each with the settings that differ below
    std::size_t differing = 0;
    CStringArray skipped;    ///< reasons
    std::size_t checked = 0; ///< those that were skipped among them
};

/// Each once, in the order of the tree.
CStringArray drawingsOf(const CString& projectId) {
    CStringArray all;
    if (const RyvPrmProjectManager* const manager = GetProjectManager())
        manager->getProjectDependents(all, projectId);
    return eachOnce(all);
}

CString shownValue(const RyvCfgDrawingSettings& settings, int index, const SettingNames& names) {
    CString value = names.value(drawingSetting(index), valueOrEmpty(settings, index));
    return value.empty() ? CString(messageText(message::exceptionsEmpty)) : value;
}

void addDifferences(const RyvCfgDrawingSettings& settings, const RyvCfgDrawingSettings& ofProject,
    const SettingNames& names, CStringArray& lines) {
    for (int index = 0; index <= RyvCfgDrawingSettings::getMaxBracketIndex(); ++index) {
        if (RyvCfgDrawingSettings::isDrawingSpecific(index) || !differs(settings, ofProject, index))
            continue;
        lines.push_back(format(messageText(message::exceptionsSetting),
            {names.name(drawingSetting(index)), shownValue(settings, index, names),
                shownValue(ofProject, index, names)}));
    }
}

void check(const CString& drawing, const RyvCfgDrawingSettings& ofProject, const SettingNames& names,
    Findings& findings) {
    CString problem;
    RyvCfgDrawingSettings settings(ofProject); // a setting that the drawing lacks is the project's
    if (!readDrawing(drawing, settings, problem)) {
        findings.skipped.push_back(problem);
        return;
    }
    if (settings.CompareNonDrawingSpecificValues(ofProject))
        return;
    findings.different.push_back(shownPath(drawing));
    ++findings.differing;
    addDifferences(settings, ofProject, names, findings.different);
}

Findings checkAll(
    const CStringArray& drawings, const RyvCfgDrawingSettings& ofProject, const SettingNames& names) {
    Findings findings;
    const auto progress = platform().ui->beginProgress(message::checkingSettings, drawings.size());
    for (const CString& drawing : drawings) {
        if (!progress->step(findings.checked, paths::findFileName(drawing)))
            break;
        check(drawing, ofProject, names, findings);
        ++findings.checked;
    }
    return findings;
}

/// What is said where no drawing differs.
int verdictOf(const Findings& findings, std::size_t count) {
    if (count == 0)
        return message::settingsNoDrawings;
    const bool all = findings.checked == count && findings.skipped.empty();
    return all ? message::exceptionsNone : message::exceptionsOthersSame;
}

CString summaryOf(const Findings& findings, std::size_t count) {
    const std::size_t read = findings.checked - findings.skipped.size();
    CString summary = findings.differing == 0 && (count == 0 || read > 0)
                          ? CString(messageText(verdictOf(findings, count)))
                          : format(messageText(message::exceptionsSummary),
                                {findings.differing, read - findings.differing, findings.skipped.size()});
    if (findings.checked < count)
        summary += u" " + format(messageText(message::settingsCancelled), {findings.checked, count});
    return summary;
}

CStringArray reportOf(const Findings& findings, std::size_t count) {
    CStringArray report;
    addGroup(report, {}, {summaryOf(findings, count)});
    addGroup(report, messageText(message::exceptionsNotChecked), findings.skipped);
    addGroup(report, messageText(message::exceptionsDiffer), findings.different);
    return report;
}

} // namespace

void listExceptions(CStringView projectId) {
    const auto project = holdProject(projectId);
    if (!project)
        return;
    const CString id = project->getProjectID();
    const CString name = nameOfProject(id);
    const CStringArray drawings = drawingsOf(id);
    const RyvCfgDrawingSettings ofProject = defaultsOf(project.get());
    const Findings findings = checkAll(drawings, ofProject, SettingNames());
    showReport(name, reportOf(findings, drawings.size()));
}

} // namespace ryv
