#include "embedded/drawings/display_list.h"
#include "embedded/drawings/display_expander.h"
#include "embedded/drawings/display_reader.h"

#include <algorithm>
#include <cmath>

namespace drafta {

namespace {

bool isBefore(const DisplayStyle& a, const DisplayStyle& b) {
    return a.colour != b.colour ? a.colour < b.colour : a.pattern < b.pattern;
}

/// Brings shapes of one pen together, each kind in the order of the drawing.
template <class Shapes>
void sortByPen(Shapes& shapes) {
    const auto before = [](const auto& a, const auto& b) { return isBefore(a.style, b.style); };
    if (!std::is_sorted(shapes.begin(), shapes.end(), before))
        std::stable_sort(shapes.begin(), shapes.end(), before);
}

/// The definitions; blocks that hold spaces are none that can be referred to.
std::vector<DisplayBlock> definitionsOf(const DrawingIndex& index, DisplayReader& reader) {
    std::vector<DisplayBlock> blocks(index.blocks.size());
    std::vector<char> isSpace(blocks.size());
    for (const DxfSpace& space : index.spaces)
        if (space.block != nowhere)
            isSpace[space.block] = 1;
    for (std::size_t i = 0; i < blocks.size(); ++i)
        if (!isSpace[i])
            blocks[i] = reader.definition(index.blocks[i]);
    return blocks;
}

} // namespace

PlanePoint DisplayArc::at(double angle) const noexcept {
    return centre + across * std::cos(angle) + up * std::sin(angle);
}

void DisplayExtents::add(PlanePoint point) noexcept {
    if (isEmpty()) {
        least = most = point;
        return;
    }
    least = {std::min(least.x, point.x), std::min(least.y, point.y)};
    most = {std::max(most.x, point.x), std::max(most.y, point.y)};
}

DisplayList makeDisplayList(const DrawingContent& content, const DisplayLimits& limits) {
    DisplayList list;
    DisplayTables tables(content);
    DisplayReader reader(content, tables, limits, list);
    const DisplayBlock model = reader.modelSpace();
    const std::vector<DisplayBlock> blocks = definitionsOf(content.index(), reader);
    DisplayExpander(blocks, tables, limits, list).expand(model, {}, {7, 0, display::layerOfReference});
    sortByPen(list.lines);
    sortByPen(list.arcs);
    list.patterns = tables.takePatterns();
    return list;
}

} // namespace drafta
