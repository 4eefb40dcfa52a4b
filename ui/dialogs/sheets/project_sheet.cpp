#include "ui/dialogs/sheets/project_sheet.h"

#include "bridge/command_strings.h"

namespace ryv {

namespace {

constexpr DialogLayout layout = {u"ProjectProperties", message::propertiesProject, {}, {}};
constexpr int firstDerived = 60;
constexpr int lastDerived = 67;

/// Settings of cross-references are made of miscellaneous ones; files hold both. Those that still are what
/// was made of the old ones follow a change, unless the user has set them here.
void followMisc(const ProjectValues& before, ProjectValues& edited) {
    if (edited.misc == before.misc)
        return;
    RyvCfgDrawingSettings old;
    old.fillWithDefaults(before.misc);
    RyvCfgDrawingSettings derived;
    derived.fillWithDefaults(edited.misc);
    for (int index = firstDerived; index <= lastDerived; ++index) {
        const CString* const value = edited.settings.find(index);
        const CString* const kept = before.settings.find(index);
        if (value && kept && *value == *kept && *value == *old.find(index))
            edited.settings.setValue(index, derived.find(index));
    }
}

} // namespace

CRyvCfgProjPropSheet::CRyvCfgProjPropSheet(CString title, const ProjectValues& values)
    : CRyvCfgPropSheet(layout, std::move(title)), given_(values), values_(values) {
    addPages<CRyvCfgProjPropSettingsPage, CRyvCfgProjPropComponentsPage, CRyvCfgProjPropWireNumberPage,
        CRyvCfgProjPropCrossReferencePage, CRyvCfgProjPropStylePage, CRyvCfgProjPropDrawingFormatPage>();
    group().edit(source_);
}

ProjectValues CRyvCfgProjPropSheet::values() const {
    ProjectValues edited(values_);
    ProjectValueSource target(edited);
    group().storeTo(target);
    followMisc(given_, edited);
    return edited;
}

bool CRyvCfgProjPropSheet::onOk() {
    runInApplicationContext(CommandString::clearMenuChoice);
    return true;
}

} // namespace ryv
