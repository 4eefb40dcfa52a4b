#include "embedded/palettes/palette_framework.h"

#include "base/fold.h"

#include <algorithm>

namespace drafta {

std::unique_ptr<ryv::HostPaletteSet> PaletteFramework::newPaletteSet(ryv::PaletteSetClient& client) {
    return std::make_unique<PaletteSet>(*this, client);
}

void PaletteFramework::enter(PaletteSet& set) {
    sets_.push_back(&set);
    setsChanged.fire();
}

void PaletteFramework::leave(PaletteSet& set) {
    std::erase(sets_, &set);
    setsChanged.fire();
}

void PaletteFramework::registerTool(const ryv::HostTool& tool) {
    const auto old = std::find_if(tools_.begin(), tools_.end(),
        [&tool](const ryv::HostTool& each) { return ryv::equalNoCase(each.id, tool.id); });
    if (old == tools_.end())
        tools_.push_back(tool);
    else
        *old = tool;
}

bool PaletteFramework::isThere(const PaletteSet* set) const noexcept {
    return std::find(sets_.begin(), sets_.end(), set) != sets_.end();
}

void PaletteFramework::expectLayout(PaletteSet& set) {
    parts_.loop.call([this, expected = &set, window = set.window()] {
        if (isThere(expected) && expected->window() == window)
            expected->applySavedLayout();
    });
}

bool PaletteFramework::applyLayout(PaletteSet& set) {
    const std::shared_ptr<const ryv::WorkspaceNode> layout = parts_.workspace.find(set.toolId());
    if (!layout || set.client().loadLayout(*layout))
        return true;
    parts_.warn(set.name() + u": the saved layout makes no sense");
    return false;
}

bool PaletteFramework::saveLayouts() {
    bool saved = true;
    std::vector<std::shared_ptr<const ryv::WorkspaceNode>> layouts;
    for (PaletteSet* const set : std::vector(sets_)) {
        if (!isThere(set) || set->window() == ryv::WindowHandle::none || !set->wasShown())
            continue;
        auto layout = Workspace::newLayout(set->toolId());
        if (set->client().saveLayout(*layout)) {
            layouts.push_back(std::move(layout));
        } else {
            parts_.warn(set->name() + u": the layout cannot be saved");
            saved = false;
        }
    }
    return parts_.workspace.save(std::move(layouts)) && saved;
}

bool PaletteFramework::loadLayouts() {
    bool loaded = parts_.workspace.load();
    for (PaletteSet* const set : std::vector(sets_))
        if (isThere(set) && set->window() != ryv::WindowHandle::none)
            loaded = applyLayout(*set) && loaded;
    return loaded;
}

} // namespace drafta
