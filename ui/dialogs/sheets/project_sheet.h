// The properties of a project: what all its drawings begin with, and what is its own.
#pragma once

#include "ui/dialogs/sheets/common_pages.h"
#include "ui/dialogs/sheets/properties_sheet.h"
#include "ui/dialogs/sheets/sheet_panels.h"
#include "ui/dialogs/sheets/value_sources.h"

namespace ryv {

class CRyvCfgProjPropSettingsPage final : public PageOf<LibrariesPanel, ProjectDescriptionsPanel,
                                              ReferenceDefaultsPanel, OtherProjectSettingsPanel> {
public:
    CRyvCfgProjPropSettingsPage() : PageOf(message::pageSettings, u"settings") {}
};
class CRyvCfgProjPropComponentsPage final : public ComponentsPage {};
class CRyvCfgProjPropWireNumberPage final : public WireNumberPage {};
class CRyvCfgProjPropCrossReferencePage final : public CrossReferencePage {};
class CRyvCfgProjPropStylePage final : public StylePage {};
class CRyvCfgProjPropDrawingFormatPage final : public DrawingFormatPage {};

/// OK has the package forget which symbol menu was chosen last, since the project's may be another now.
class CRyvCfgProjPropSheet final : public CRyvCfgPropSheet {
public:
    CRyvCfgProjPropSheet(CString title, const ProjectValues& values);

    /// The given values with what the user has changed, and settings of cross-references that follow the
    /// project's defaults for them.
    ProjectValues values() const;

protected:
    bool onOk() override;

private:
    const ProjectValues given_;
    ProjectValues values_; // what the panels' buttons have made of it
    ProjectValueSource source_{values_};
};

} // namespace ryv
