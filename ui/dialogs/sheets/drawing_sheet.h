// The properties of a drawing: its settings, and its entry in the project.
#pragma once

#include "ui/dialogs/settings/drawing_value_panels.h"
#include "ui/dialogs/sheets/common_pages.h"
#include "ui/dialogs/sheets/properties_sheet.h"
#include "ui/dialogs/sheets/sheet_panels.h"
#include "ui/dialogs/sheets/value_sources.h"

namespace ryv {

class CRyvCfgDrawingPropSettingsPage final
    : public PageOf<DrawingPanel, CRyvCfgSheetValsCDlg, CRyvCfgIECDesigCDlg, DrawingEntryPanel> {
public:
    CRyvCfgDrawingPropSettingsPage() : PageOf(message::pageSettings, u"settings") {}
};
class CRyvCfgDrawingPropComponentsPage final : public ComponentsPage {};
class CRyvCfgDrawingPropWireNumberPage final : public WireNumberPage {};
class CRyvCfgDrawingPropCrossReferencePage final : public CrossReferencePage {};
class CRyvCfgDrawingPropStylePage final : public StylePage {};
class CRyvCfgDrawingPropDrawingFormatPage final : public DrawingFormatPage {};

/// The fields of the entry are hidden when the drawing has none. So is what changes the current drawing at
/// once when that is the one whose properties are edited: the sheet would be at odds with itself.
class CRyvCfgDrawingPropSheet final : public CRyvCfgPropSheet {
public:
    CRyvCfgDrawingPropSheet(CString title, const DrawingValues& values);

    /// The given values with what the user has changed.
    DrawingValues values() const;

private:
    void hideEntry();
    void hideCurrentDrawingWork();

    DrawingValues values_;
    DrawingValueSource source_{values_};
};

} // namespace ryv
