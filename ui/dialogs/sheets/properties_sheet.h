// What the properties sheets of projects and of drawings have in common.
#pragma once

#include "ui/dialogs/sheets/settings_page.h"

namespace ryv {

/// Edits a copy of what it is given and touches no file. Warns of doubtful values, and forbids none.
class CRyvCfgPropSheet : public PropertySheet {
public:
    const std::vector<std::unique_ptr<SettingsPage>>& settingsPages() const noexcept { return pages_; }

protected:
    /// `title` is shown above the sheet.
    CRyvCfgPropSheet(const DialogLayout& layout, CString title);

    template <class... Pages>
    void addPages() {
        (addPage(std::make_unique<Pages>()), ...);
    }
    PanelGroup& group() noexcept { return group_; }
    const PanelGroup& group() const noexcept { return group_; }

private:
    void addPage(std::unique_ptr<SettingsPage> page);

    std::vector<std::unique_ptr<SettingsPage>> pages_;
    PanelGroup group_;
};

} // namespace ryv
