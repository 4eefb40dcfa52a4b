#include "ui/dialogs/sheets/properties_sheet.h"

#include "resources/messages.h"

namespace ryv {

CRyvCfgPropSheet::CRyvCfgPropSheet(const DialogLayout& layout, CString title)
    : PropertySheet(layout, messageText) {
    setTitle(std::move(title));
    setHelpTopic(u"properties");
}

void CRyvCfgPropSheet::addPage(std::unique_ptr<SettingsPage> page) {
    for (const auto& panel : page->panels())
        group_.add(*panel);
    PropertySheet::addPage(page->content());
    pages_.push_back(std::move(page));
}

} // namespace ryv
