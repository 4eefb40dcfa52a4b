#include "toolkit/property_sheet.h"

#include <algorithm>

namespace ryv {

namespace {
bool holds(const PropertySheet::Page& page, const Control& control) {
    return std::any_of(page.panels.begin(), page.panels.end(),
        [&](const Panel* panel) { return panel->find(control.id()) == &control; });
}
} // namespace

void PropertySheet::addPage(Page page) {
    for (Panel* const panel : page.panels)
        connect(*panel);
    pages_.push_back(std::move(page));
    if (active_ < 0)
        active_ = 0;
}

bool PropertySheet::turnTo(int page) {
    if (page < 0 || static_cast<std::size_t>(page) >= pages_.size())
        return false;
    if (page == active_)
        return true;
    active_ = page;
    rearranged.fire();
    onPage(page);
    return true;
}

void PropertySheet::reveal(const Control& control) {
    for (std::size_t i = 0; i < pages_.size(); ++i)
        if (holds(pages_[i], control))
            turnTo(static_cast<int>(i));
}

} // namespace ryv
