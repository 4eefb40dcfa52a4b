// A drawing of any bytes as shapes: within the limits, in range, and with patterns and texts that are there.
#include "embedded/drawings/display_list.h"
#include "embedded/drawings/drawing_content.h"
#include "fuzz/fuzz_input.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace drafta {

namespace {

using fuzz::require;

constexpr DisplayLimits limits{2000, 20'000, 10'000, 24, 1e12};

bool isInRange(PlanePoint point) {
    return std::abs(point.x) <= limits.coordinate && std::abs(point.y) <= limits.coordinate;
}

template <class Shapes>
void requireStyles(const DisplayList& list, const Shapes& shapes) {
    for (const auto& shape : shapes)
        require(shape.style.colour >= 1 && shape.style.colour <= 255 &&
                shape.style.pattern < list.patterns.size());
}

void requireSound(const DisplayList& list) {
    require(list.size() <= limits.shapes && !list.patterns.empty());
    require(list.extents.isEmpty() == (list.size() == 0));
    require(isInRange(list.extents.least) && isInRange(list.extents.most));
    requireStyles(list, list.areas);
    requireStyles(list, list.lines);
    requireStyles(list, list.arcs);
    requireStyles(list, list.points);
    requireStyles(list, list.writings);
    for (const DisplayLine& line : list.lines)
        require(isInRange(line.from) && isInRange(line.to));
    for (const DisplayArc& arc : list.arcs)
        require(std::abs(arc.sweep) < 6.2832 && isInRange(arc.at(arc.start)));
    for (const DisplayText& text : list.writings)
        require(text.text < list.texts.size() && !list.texts[text.text].empty());
    for (const std::vector<double>& pattern : list.patterns)
        require(pattern.size() % 2 == 0 &&
                std::all_of(pattern.begin(), pattern.end(), [](double length) { return length >= 0; }));
}

} // namespace

} // namespace drafta

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace drafta;
    ryv::ByteBuffer bytes;
    if (!bytes.allocate(size))
        return -1;
    std::copy(data, data + size, bytes.data());
    DxfFault fault;
    const std::optional<DrawingContent> content = DrawingContent::read(bytes, fault);
    if (!content)
        return -1;
    requireSound(makeDisplayList(*content, limits));
    return 0;
}
