#include "embedded/drawings/display_expander.h"

#include <algorithm>
#include <cmath>

namespace drafta {

namespace {

/// A place far in the box around a text; letters are about three quarters as wide as high.
constexpr double letterWidth = 0.75;

PlanePoint estimatedEnd(const DisplayText& text, std::size_t units) {
    const double natural = letterWidth * static_cast<double>(units);
    const double width = text.fit == TextFit::none ? natural : std::min(text.width, natural);
    const double side = text.horizontal == TextHorizontal::right ? -1 : 1;
    return text.along * (side * (text.horizontal == TextHorizontal::centre ? width / 2 : width));
}

} // namespace

bool DisplayExpander::mayGoOn() {
    isFull_ = isFull_ || ++steps_ > limits_.steps || list_.size() >= limits_.shapes;
    list_.isCut = list_.isCut || isFull_;
    return !isFull_;
}

DisplayStyle DisplayExpander::settled(const DisplayStyle& style, const DisplayStyle& reference) const {
    DisplayStyle result = style;
    if (style.layer == display::layerOfReference)
        result.layer = reference.layer;
    const DisplayLayer& layer = tables_.layer(result.layer);
    if (style.colour == display::colourOfLayer)
        result.colour = layer.colour;
    else if (style.colour == display::colourOfBlock)
        result.colour = reference.colour;
    if (style.pattern == display::patternOfLayer)
        result.pattern = layer.pattern;
    else if (style.pattern == display::patternOfBlock)
        result.pattern = reference.pattern;
    if (result.pattern > display::largestPattern)
        result.pattern = 0; // a layer that refers to its layer
    return result;
}

bool DisplayExpander::isInRange(PlanePoint point) const {
    return std::abs(point.x) <= limits_.coordinate && std::abs(point.y) <= limits_.coordinate;
}

/// `map` moves a shape to its place, and calls what it is given with each point that has to be in range.
template <class Shape, class Map>
void DisplayExpander::add(const std::vector<Shape>& shapes, const DisplayStyle& reference,
    std::vector<Shape>& out, const Map& map) {
    for (const Shape& shape : shapes) {
        if (!mayGoOn())
            return;
        const DisplayStyle style = settled(shape.style, reference);
        const DisplayLayer& layer = tables_.layer(style.layer);
        if (layer.isOff || layer.isFrozen)
            continue;
        Shape placed = shape;
        placed.style = style;
        DisplayExtents extents = list_.extents;
        bool isValid = true;
        map(placed, [&](PlanePoint point) {
            isValid = isValid && isInRange(point);
            extents.add(point);
        });
        if (!isValid) {
            ++list_.outOfRange;
            continue;
        }
        list_.extents = extents;
        out.push_back(placed);
    }
}

void DisplayExpander::expand(const DisplayBlock& block, const Affine& map, const DisplayStyle& reference) {
    add(block.areas, reference, list_.areas, [&](DisplayArea& area, const auto& check) {
        for (PlanePoint& corner : area.corners)
            check(corner = map.point(corner));
    });
    add(block.lines, reference, list_.lines, [&](DisplayLine& line, const auto& check) {
        check(line.from = map.point(line.from));
        check(line.to = map.point(line.to));
    });
    add(block.points, reference, list_.points,
        [&](DisplayPoint& point, const auto& check) { check(point.place = map.point(point.place)); });
    add(block.arcs, reference, list_.arcs, [&](DisplayArc& arc, const auto& check) {
        arc.centre = map.point(arc.centre);
        arc.across = map.vector(arc.across);
        arc.up = map.vector(arc.up);
        constexpr int eighths = 8;
        for (int i = 0; i <= eighths; ++i)
            check(arc.at(arc.start + arc.sweep * i / eighths));
    });
    add(block.writings, reference, list_.writings, [&](DisplayText& text, const auto& check) {
        text.place = map.point(text.place);
        text.along = map.vector(text.along);
        text.up = map.vector(text.up);
        check(text.place);
        check(text.place + text.up);
        check(text.place + estimatedEnd(text, list_.texts[text.text].size()));
    });
    for (const DisplayReference& inner : block.references)
        if (mayGoOn())
            expandReference(inner, map, reference);
}

/// Goes down by calling itself, as deep as the limit says and no block inside of itself.
void DisplayExpander::expandReference(
    const DisplayReference& reference, const Affine& map, const DisplayStyle& outer) {
    const DisplayStyle style = settled(reference.style, outer);
    if (isOpen_[reference.block] || tables_.layer(style.layer).isFrozen)
        return;
    if (depth_ >= limits_.depth) {
        list_.isCut = true;
        return;
    }
    ++depth_;
    isOpen_[reference.block] = 1;
    const DisplayBlock& block = blocks_[reference.block];
    for (int row = 0; row < reference.rows && mayGoOn(); ++row)
        for (int column = 0; column < reference.columns && mayGoOn(); ++column) {
            Affine placement = reference.placement;
            placement.origin = placement.origin + reference.columnStep * column + reference.rowStep * row -
                               placement.vector(block.base);
            expand(block, map.after(placement), style);
        }
    isOpen_[reference.block] = 0;
    --depth_;
}

} // namespace drafta
