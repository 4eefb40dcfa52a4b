#include "ui/dialogs/sheets/drawing_sheet.h"

#include "base/fold.h"
#include "bridge/platform.h"
#include "ui/dialogs/settings/setting_dialogs.h"

namespace ryv {

namespace {

constexpr DialogLayout layout = {u"DrawingProperties", message::propertiesDrawing, {}, {}};

/// A drawing without a file is named as its document is.
bool isCurrentDrawing(CStringView file) {
    HostDocuments& documents = *platform().host.documents;
    const DocumentId current = documents.currentDocument();
    return current != DocumentId::none &&
           (documents.documentOfFile(file) == current || equalNoCase(documents.fileName(current), file));
}

} // namespace

CRyvCfgDrawingPropSheet::CRyvCfgDrawingPropSheet(CString title, const DrawingValues& values)
    : CRyvCfgPropSheet(layout, std::move(title)), values_(values) {
    addPages<CRyvCfgDrawingPropSettingsPage, CRyvCfgDrawingPropComponentsPage,
        CRyvCfgDrawingPropWireNumberPage, CRyvCfgDrawingPropCrossReferencePage, CRyvCfgDrawingPropStylePage,
        CRyvCfgDrawingPropDrawingFormatPage>();
    group().edit(source_);
    if (!values_.inProject)
        hideEntry();
    if (isCurrentDrawing(values_.details.getFileName()))
        hideCurrentDrawingWork();
}

void CRyvCfgDrawingPropSheet::hideCurrentDrawingWork() {
    for (const auto& page : settingsPages())
        for (const auto& panel : page->panels())
            for (const SettingRow& row : panel->rows())
                if (row.action == setting_dialogs::setUpWireLayers)
                    panel->control<Control>(controlIdOf(row)).setVisible(false);
}

void CRyvCfgDrawingPropSheet::hideEntry() {
    for (const auto& panel : settingsPages().front()->panels())
        for (const SettingRow& row : panel->rows())
            if (row.key.area == SettingArea::entry && row.key != entryField(EntryField::file))
                panel->control<Control>(controlIdOf(row)).setVisible(false);
}

DrawingValues CRyvCfgDrawingPropSheet::values() const {
    DrawingValues edited(values_);
    DrawingValueSource target(edited);
    group().storeTo(target);
    return edited;
}

} // namespace ryv
