#include "ui/dialogs/sheets/settings_page.h"

#include "resources/messages.h"

namespace ryv {

PropertySheet::Page SettingsPage::content() const {
    PropertySheet::Page page{CString(messageText(title_)), CString(name_), {}};
    for (const auto& panel : panels_)
        page.panels.push_back(panel.get());
    return page;
}

} // namespace ryv
