#include "embedded/drawings/display_hatch.h"
#include "embedded/drawings/display_geometry.h"
#include "embedded/drawings/display_polyline.h"
#include "embedded/drawings/display_spline.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace drafta {

namespace {

double radians(double degrees) {
    return degrees / 180 * std::numbers::pi;
}

/// The pairs of a record in their order, in which codes mean what comes before them.
class PairSequence {
public:
    explicit PairSequence(const DxfRecord& record) : record_(record) {}

    bool isAt(int code) const { return at_ < record_.ownCount() && record_.pairs()[at_].code == code; }

    /// Goes on to the next pair that has one of two codes; false when none is left.
    bool seek(int code, int other) {
        while (at_ < record_.ownCount() && !isAt(code) && !isAt(other))
            ++at_;
        return at_ < record_.ownCount();
    }
    /// The number of the next pair if it has that code.
    double real(int code, double otherwise = 0) {
        return isAt(code) ? parseReal(record_.pairs()[at_++].value).value_or(otherwise) : otherwise;
    }
    int integer(int code, int otherwise = 0) {
        return isAt(code) ? parseInteger(record_.pairs()[at_++].value).value_or(otherwise) : otherwise;
    }
    PlanePoint point(int code) {
        const double x = real(code);
        return {x, real(code + 10)};
    }

private:
    const DxfRecord& record_;
    std::size_t at_ = 1;
};

enum class EdgeKind { line = 1, arc, ellipse, spline };

/// Reads the outlines into the edges of a fill.
class OutlineReader {
public:
    OutlineReader(PairSequence& pairs, Fill& fill) : pairs_(pairs), fill_(fill) {}

    /// One outline; the sequence is at its flags.
    void read() {
        constexpr int polyline = 2;
        if ((pairs_.integer(92) & polyline) != 0)
            return corners();
        pairs_.integer(93);
        while (pairs_.isAt(72))
            edge(static_cast<EdgeKind>(pairs_.integer(72)));
    }

private:
    void corners() {
        pairs_.integer(72);
        pairs_.integer(73);
        pairs_.integer(93);
        std::vector<PolylineVertex> vertices;
        while (pairs_.isAt(10)) {
            const PlanePoint place = pairs_.point(10);
            vertices.push_back({place, pairs_.real(42)});
        }
        for (std::size_t i = 0; i < vertices.size(); ++i) {
            const PolylineVertex &from = vertices[i], &to = vertices[(i + 1) % vertices.size()];
            if (std::abs(from.bulge) < straightBulge || from.place == to.place)
                fill_.addEdge(from.place, to.place);
            else
                fill_.addArc(bentPiece(from.place, to.place, from.bulge));
        }
    }

    void edge(EdgeKind kind) {
        switch (kind) {
        case EdgeKind::line: {
            const PlanePoint from = pairs_.point(10);
            return fill_.addEdge(from, pairs_.point(11));
        }
        case EdgeKind::arc: {
            const PlanePoint centre = pairs_.point(10);
            const double radius = pairs_.real(40);
            return arc({centre, {radius, 0}, {0, radius}, 0, 0, {}});
        }
        case EdgeKind::ellipse: {
            const PlanePoint centre = pairs_.point(10), major = pairs_.point(11);
            const double ratio = pairs_.real(40, 1);
            return arc({centre, major, PlanePoint{-major.y, major.x} * ratio, 0, 0, {}});
        }
        case EdgeKind::spline:
            return spline();
        }
    }

    /// Angles of one that runs with the clock are measured with it.
    void arc(DisplayArc shape) {
        const double start = radians(pairs_.real(50)), end = radians(pairs_.real(51, 360));
        const double turn = pairs_.integer(73, 1) != 0 ? 1 : -1;
        constexpr double full = 2 * std::numbers::pi;
        const double sweep = std::fmod(end - start, full);
        shape.start = turn * start;
        shape.sweep = turn * (sweep > 0 ? sweep : sweep + full);
        fill_.addArc(shape);
    }

    void spline() {
        Spline spline;
        spline.degree = pairs_.integer(94, 3);
        for (const int count : {73, 74, 95, 96})
            pairs_.integer(count);
        while (pairs_.isAt(40))
            spline.knots.push_back(pairs_.real(40));
        while (pairs_.isAt(10)) {
            spline.control.push_back(pairs_.point(10));
            if (pairs_.isAt(42))
                spline.weights.push_back(pairs_.real(42));
        }
        pairs_.integer(97);
        while (pairs_.isAt(11))
            spline.fit.push_back(pairs_.point(11));
        pairs_.point(12);
        pairs_.point(13);
        const std::vector<PlanePoint> points = pointsOn(spline);
        for (std::size_t i = 0; i + 1 < points.size(); ++i)
            fill_.addEdge(points[i], points[i + 1]);
    }

    PairSequence& pairs_;
    Fill& fill_;
};

FillLines linesOf(PairSequence& pairs) {
    FillLines lines;
    lines.angle = radians(pairs.real(53));
    lines.base.x = pairs.real(43);
    lines.base.y = pairs.real(44);
    lines.offset.x = pairs.real(45);
    lines.offset.y = pairs.real(46);
    pairs.integer(79);
    while (pairs.isAt(49))
        lines.dashes.push_back(pairs.real(49));
    return lines;
}

} // namespace

Hatch hatchOf(const DxfRecord& record) {
    Hatch hatch;
    hatch.isSolid = record.integer(70, 0) == 1;
    hatch.fill.plane = planeOf(record, 30);
    PairSequence pairs(record);
    constexpr int outlineFlags = 92, islands = 75, lineAngle = 53;
    OutlineReader outline(pairs, hatch.fill);
    while (pairs.seek(outlineFlags, islands) && pairs.isAt(outlineFlags))
        outline.read();
    while (pairs.seek(lineAngle, lineAngle))
        hatch.pattern.push_back(linesOf(pairs));
    return hatch;
}

void addHatch(const Hatch& hatch, DisplayBlock& block, FillBudget budget) {
    if (hatch.isSolid) {
        if (!addFilled(hatch.fill, block, budget))
            addOutline(hatch.fill, block, budget);
        return;
    }
    bool any = false;
    for (const FillLines& lines : hatch.pattern) {
        const std::size_t before = block.lines.size();
        any = addLines(hatch.fill, lines, block, budget) || any;
        budget.shapes -= block.lines.size() - before;
    }
    if (!any)
        addOutline(hatch.fill, block, budget);
}

} // namespace drafta
