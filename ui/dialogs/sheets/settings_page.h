// A page of a properties sheet: a title and the panels that stand on it.
#pragma once

#include "toolkit/property_sheet.h"
#include "ui/dialogs/settings/panel_group.h"

namespace ryv {

class SettingsPage {
public:
    virtual ~SettingsPage() = default;
    SettingsPage(const SettingsPage&) = delete;
    SettingsPage& operator=(const SettingsPage&) = delete;

    const std::vector<std::unique_ptr<SettingsPanel>>& panels() const noexcept { return panels_; }

    /// As a property sheet takes it; the panels stay the page's.
    PropertySheet::Page content() const;

protected:
    /// `title` is the number of the text, `name` is for scripts.
    SettingsPage(int title, CStringView name) : title_(title), name_(name) {}

    template <class P>
    void add() {
        panels_.push_back(std::make_unique<P>());
    }

private:
    int title_;
    CStringView name_;
    std::vector<std::unique_ptr<SettingsPanel>> panels_;
};

/// A page of some classes of panels, in their order.
template <class... Panels>
class PageOf : public SettingsPage {
protected:
    PageOf(int title, CStringView name) : SettingsPage(title, name) { (add<Panels>(), ...); }
};

} // namespace ryv
