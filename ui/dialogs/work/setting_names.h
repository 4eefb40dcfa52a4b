// What settings and their values are called on the pages of the properties sheets, for those who show them
// elsewhere.
#pragma once

#include "ui/dialogs/sheets/settings_page.h"

#include <map>

namespace ryv {

/// Made of the panels' own tables, in the language of the moment.
class SettingNames {
public:
    /// Asks LISP what the drawing settings are about that stand on no page.
    SettingNames();

    /// Page and label: "Wire Numbers: Increment". Of a drawing setting that stands on no page, what it is
    /// about. Empty when there is no such setting.
    CString name(SettingKey key) const;

    /// A code as the sheets spell it out: "Reference numbers" for "1". Any other value as it is.
    CString value(SettingKey key, const CString& stored) const;

private:
    struct Entry {
        CString name;
        const SettingRow* row = nullptr; ///< null without a page
    };

    void add(const SettingsPage& page);
    template <class... Pages>
    void addPages() {
        (add(Pages()), ...);
    }

    std::map<SettingKey, Entry> entries_;
};

} // namespace ryv
