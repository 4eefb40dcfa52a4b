#include "embedded/palettes/dock.h"

#include "base/fold.h"

#include <array>

namespace drafta {

namespace {

struct Entry {
    Dock dock;
    ryv::CStringView name;
    std::uint32_t side;
};

constexpr std::array<Entry, 5> docks = {{{Dock::floating, u"FLOATING", 0},
    {Dock::left, u"LEFT", ryv::DockingSides::left}, {Dock::right, u"RIGHT", ryv::DockingSides::right},
    {Dock::top, u"TOP", ryv::DockingSides::top}, {Dock::bottom, u"BOTTOM", ryv::DockingSides::bottom}}};

const Entry& entryOf(Dock dock) noexcept {
    return docks[static_cast<std::size_t>(dock)]; // in the order of the values
}

} // namespace

ryv::CStringView nameOf(Dock dock) noexcept {
    return entryOf(dock).name;
}

std::uint32_t sideOf(Dock dock) noexcept {
    return entryOf(dock).side;
}

std::optional<Dock> dockNamed(ryv::CStringView name) noexcept {
    for (const Entry& entry : docks)
        if (ryv::equalNoCase(entry.name, name))
            return entry.dock;
    return std::nullopt;
}

} // namespace drafta
