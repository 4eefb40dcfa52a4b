// The default values of drawing settings: fixed ones, and those that depend on the project and on the host.

#include "bridge/platform.h"
#include "bridge/settings_calls.h"
#include "model/drawing_settings.h"
#include "model/drawing_settings_table.h"
#include "model/open_projects.h"
#include "model/project.h"

namespace ryv {

namespace {

constexpr int firstDependent = 60;

/// The settings for which the package's LISP code may know better values while a document is open.
struct HostDefault {
    int index;
    bool (*ask)(CString& value);
};
constexpr std::array<HostDefault, 4> hostDefaults{{{71, lisp::referenceTableIndices},
    {72, lisp::referenceTableFieldNames}, {73, lisp::referenceTableAlignments}, {76, lisp::wireNumberGap}}};

} // namespace

void RyvCfgDrawingSettings::fillWithDefaults(const RyvPmMiscProjSettings& misc) {
    fillHCDefaults();
    fillDependantDefaultsUsingDependancy(misc);
}

void RyvCfgDrawingSettings::fillWithDefaults(const RyvPrmProject* project, bool useActiveProject) {
    if (!project && useActiveProject)
        project = activeProject();
    if (!project) {
        fillHCDefaults();
        fillDependantDefaultsUsingHCD();
        return;
    }
    // Copies: LISP is asked for some of the defaults and may close the project meanwhile.
    const RyvPmMiscProjSettings misc = project->getProjectData().getMiscProjSettings();
    const RyvCfgDrawingSettings ofProject = project->getProjectData().getProjDefKQMVals();
    fillWithDefaults(misc);
    *this = ofProject;
}

void RyvCfgDrawingSettings::fillHCDefaults() {
    for (int index = 0; index < firstDependent; ++index)
        set(index, detail::drawingSettings[static_cast<std::size_t>(index)].defaultValue);
}

void RyvCfgDrawingSettings::fillDependantDefaultsUsingHCD() {
    for (int index = firstDependent; index < 68; ++index)
        set(index, detail::drawingSettings[static_cast<std::size_t>(index)].defaultValue);
    fillCommonTail();
}

void RyvCfgDrawingSettings::fillDependantDefaultsUsingDependancy(const RyvPmMiscProjSettings& misc) {
    const bool graphical = (misc.getInteger(5) & 8) != 0;
    set(60, graphical ? u"1" : u"0");
    set(66, graphical ? u"0" : u"1");
    set(67, graphical ? u"1" : u"0");

    CString fillWith;
    misc.getValue(7, fillWith);
    set(61, fillWith.empty() ? u"0" : u"1");
    set(63, fillWith);

    set(64, misc.getInteger(28) == 1 ? u"1" : u"0");
    set(65, misc.getInteger(8) == 1 ? u", " : u",");
    set(62, u"0");
    fillCommonTail();
}

void RyvCfgDrawingSettings::fillCommonTail() {
    for (int index = 68; index <= getMaxBracketIndex(); ++index)
        set(index, detail::drawingSettings[static_cast<std::size_t>(index)].defaultValue);
    if (!platform().host.documents->hasCurrentDocument())
        return;
    for (const HostDefault& entry : hostDefaults) {
        CString value;
        if (entry.ask(value))
            set(entry.index, value);
    }
}

} // namespace ryv
