#include "embedded/drawings/display_polyline.h"
#include "embedded/drawings/display_geometry.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace drafta {

DisplayArc bentPiece(PlanePoint from, PlanePoint to, double bulge) {
    const PlanePoint way = to - from;
    const PlanePoint left{-way.y, way.x};
    const PlanePoint centre = (from + to) * 0.5 + left * ((1 - bulge * bulge) / (4 * bulge));
    const PlanePoint arm = from - centre;
    const double radius = std::hypot(arm.x, arm.y);
    return {centre, {radius, 0}, {0, radius}, std::atan2(arm.y, arm.x), 4 * std::atan(bulge), {}};
}

namespace {

class Pieces {
public:
    Pieces(const Polyline& polyline, DisplayBlock& block) : polyline_(polyline), block_(block) {}

    void add(const PolylineVertex& from, const PolylineVertex& to) const {
        const bool isWide = from.startWidth > 0 || from.endWidth > 0;
        const bool isBent = std::abs(from.bulge) >= straightBulge && !(from.place == to.place);
        if (isBent && isWide)
            addWideArc(from, to);
        else if (isBent)
            addArc(bentPiece(from.place, to.place, from.bulge));
        else if (isWide)
            addWideLine(from.place, to.place, from.startWidth / 2, from.endWidth / 2);
        else
            block_.lines.push_back({map(from.place), map(to.place), polyline_.style});
    }

private:
    PlanePoint map(PlanePoint point) const { return polyline_.plane.point(point); }

    void addArc(DisplayArc arc) const {
        arc.centre = map(arc.centre);
        arc.across = polyline_.plane.vector(arc.across);
        arc.up = polyline_.plane.vector(arc.up);
        arc.style = polyline_.style;
        block_.arcs.push_back(arc);
    }

    void addArea(PlanePoint a, PlanePoint b, PlanePoint c, PlanePoint d) const {
        block_.areas.push_back({{map(a), map(b), map(c), map(d)}, polyline_.style});
    }

    void addWideLine(PlanePoint from, PlanePoint to, double half, double otherHalf) const {
        const PlanePoint way = to - from;
        const double length = std::hypot(way.x, way.y);
        if (!(length > 0))
            return;
        const PlanePoint left = PlanePoint{-way.y, way.x} * (1 / length);
        addArea(from + left * half, to + left * otherHalf, to - left * otherHalf, from - left * half);
    }

    /// A ring of short areas; dots are often drawn as two wide half circles.
    void addWideArc(const PolylineVertex& from, const PolylineVertex& to) const {
        const DisplayArc arc = bentPiece(from.place, to.place, from.bulge);
        const double radius = arc.across.x;
        if (!(radius > 0) || !std::isfinite(radius))
            return;
        constexpr double step = std::numbers::pi / 16;
        const int count = std::clamp(static_cast<int>(std::ceil(std::abs(arc.sweep) / step)), 1, 32);
        const auto edge = [&](int i, double side) {
            const double part = static_cast<double>(i) / count;
            const double half = (from.startWidth + (from.endWidth - from.startWidth) * part) / 2;
            const PlanePoint arm = arc.at(arc.start + arc.sweep * part) - arc.centre;
            return arc.centre + arm * std::max(0.0, 1 + side * half / radius);
        };
        for (int i = 0; i < count; ++i)
            addArea(edge(i, 1), edge(i + 1, 1), edge(i + 1, -1), edge(i, -1));
    }

    const Polyline& polyline_;
    DisplayBlock& block_;
};

} // namespace

Polyline lightPolyline(const DxfRecord& record) {
    constexpr int closedFlag = 1;
    Polyline polyline;
    polyline.isClosed = (record.integer(70, 0) & closedFlag) != 0;
    polyline.plane = planeOf(record, 38);
    const double width = record.real(43).value_or(0);
    std::vector<PolylineVertex>& vertices = polyline.vertices;
    for (std::size_t i = 1; i < record.ownCount(); ++i) {
        const DxfPair& pair = record.pairs()[i];
        if (pair.code == 10)
            vertices.push_back({{parseReal(pair.value).value_or(0), 0}, 0, width, width});
        if (vertices.empty())
            continue;
        if (pair.code == 20)
            vertices.back().place.y = parseReal(pair.value).value_or(0);
        else if (pair.code == 40)
            vertices.back().startWidth = parseReal(pair.value).value_or(0);
        else if (pair.code == 41)
            vertices.back().endWidth = parseReal(pair.value).value_or(0);
        else if (pair.code == 42)
            vertices.back().bulge = parseReal(pair.value).value_or(0);
    }
    return polyline;
}

PolylineVertex polylineVertex(const DxfRecord& record, const PolylineVertex& defaults) {
    return {planePoint(record, 10), record.real(42).value_or(0),
        record.real(40).value_or(defaults.startWidth), record.real(41).value_or(defaults.endWidth)};
}

bool addPolyline(const Polyline& polyline, DisplayBlock& block, std::size_t room) {
    const std::vector<PolylineVertex>& vertices = polyline.vertices;
    const std::size_t count = vertices.size() < 2 ? 0 : vertices.size() - (polyline.isClosed ? 0 : 1);
    const std::size_t most = block.size() + room;
    const Pieces pieces(polyline, block);
    for (std::size_t i = 0; i < count && block.size() < most; ++i)
        pieces.add(vertices[i], vertices[i + 1 < vertices.size() ? i + 1 : 0]);
    return block.size() < most;
}

} // namespace drafta
