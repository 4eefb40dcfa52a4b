#include "embedded/drawings/display_reader.h"
#include "embedded/drawings/display_geometry.h"
#include "embedded/drawings/display_hatch.h"
#include "embedded/drawings/display_spline.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <utility>

namespace drafta {

namespace {

constexpr double fullTurn = 2 * std::numbers::pi;

double radians(double degrees) {
    return degrees / 180 * std::numbers::pi;
}

/// From the start to the end against the clock; the same place is a full turn.
double sweepFrom(double start, double end) {
    const double sweep = std::fmod(end - start, fullTurn);
    return sweep > 0 ? sweep : sweep + fullTurn;
}

ryv::DrawingPoint cross(ryv::DrawingPoint a, ryv::DrawingPoint b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

constexpr int invisibleAttribute = 1, constantAttribute = 2;

} // namespace

struct DisplayReader::Kind {
    std::string_view name;
    void (DisplayReader::*read)(const DxfRecord&);
};

const DisplayReader::Kind* DisplayReader::kindOf(std::string_view name) {
    static constexpr auto kinds = std::to_array<Kind>({
        {"LINE", &DisplayReader::line},
        {"LWPOLYLINE", &DisplayReader::lightweight},
        {"INSERT", &DisplayReader::reference},
        {"TEXT", &DisplayReader::text},
        {"ARC", &DisplayReader::arc},
        {"CIRCLE", &DisplayReader::circle},
        {"MTEXT", &DisplayReader::paragraphs},
        {"POLYLINE", &DisplayReader::polyline},
        {"SOLID", &DisplayReader::area},
        {"TRACE", &DisplayReader::area},
        {"HATCH", &DisplayReader::hatch},
        {"SPLINE", &DisplayReader::spline},
        {"POINT", &DisplayReader::point},
        {"ELLIPSE", &DisplayReader::ellipse},
        {"3DFACE", &DisplayReader::face},
        {"ATTDEF", &DisplayReader::attributeDefinition},
        {"DIMENSION", &DisplayReader::dimension},
        {"VIEWPORT", &DisplayReader::nothing},
    });
    for (const Kind& kind : kinds)
        if (kind.name == name)
            return &kind;
    return nullptr;
}

DisplayBlock DisplayReader::modelSpace() {
    isModelSpace_ = true;
    for (const DxfRange& section : content_.index().sections)
        if (section.name == "ENTITIES")
            readRecords(content_.record(section.begin).end(), section.end);
    const std::size_t block = content_.index().spaces[drafta::modelSpace].block;
    if (block != nowhere)
        readRecords(content_.index().blocks[block].content, content_.index().blocks[block].end);
    isModelSpace_ = false;
    shapes_ += block_.size();
    return std::exchange(block_, {});
}

DisplayBlock DisplayReader::definition(const DxfBlock& range) {
    block_.base = planePoint(content_.record(range.begin), 10);
    readRecords(range.content, range.end);
    shapes_ += block_.size();
    return std::exchange(block_, {});
}

void DisplayReader::readRecords(std::size_t begin, std::size_t end) {
    isHeadHidden_ = hasAttributes_ = false;
    for (std::size_t at = begin; at < end && hasRoom();) {
        const DxfRecord record = content_.record(at);
        take(record);
        at = record.end();
    }
    finishPolyline();
}

bool DisplayReader::hasRoom() {
    list_.isCut = list_.isCut || room() == 0 || textUnits_ > limits_.textUnits;
    return !list_.isCut;
}

bool DisplayReader::isHidden(const DxfRecord& record) const {
    constexpr int invisible = 60;
    return record.integer(invisible, 0) == 1 || (isModelSpace_ && record.integer(dxf::onPaper, 0) == 1);
}

void DisplayReader::take(const DxfRecord& record) {
    const std::string_view kind = record.kind();
    style_ = tables_.styleOf(record);
    if (kind == "VERTEX" || kind == "ATTRIB" || kind == "SEQEND" || (kind == "MTEXT" && hasAttributes_))
        return takePart(record, kind);
    finishPolyline();
    hasAttributes_ = false;
    headStyle_ = style_;
    isHeadHidden_ = isHidden(record);
    const Kind* const known = kindOf(kind);
    if (!known)
        ++list_.unknown;
    else if (!isHeadHidden_)
        (this->*known->read)(record);
}

/// Parts of a polyline or a reference. The text of an attribute with several lines comes again as a record of
/// its own, which adds nothing to what the attribute shows.
void DisplayReader::takePart(const DxfRecord& record, std::string_view kind) {
    constexpr int controlPoint = 16;
    if (kind == "SEQEND") {
        finishPolyline();
        hasAttributes_ = false;
    }
    if (kind == "ATTRIB")
        hasAttributes_ = true;
    if (isHeadHidden_ || isHidden(record))
        return;
    if (kind == "VERTEX" && polyline_ && (record.integer(70, 0) & controlPoint) == 0)
        polyline_->vertices.push_back(polylineVertex(record, widths_));
    if (kind != "ATTRIB" || (record.integer(70, 0) & invisibleAttribute) != 0)
        return;
    if (style_.colour == display::colourOfBlock)
        style_.colour = headStyle_.colour;
    if (style_.pattern == display::patternOfBlock)
        style_.pattern = headStyle_.pattern;
    addWriting(lineOfText(record, content_.text(), 1), style_);
}

void DisplayReader::finishPolyline() {
    if (!polyline_)
        return;
    const Polyline polyline = std::move(*polyline_);
    polyline_.reset();
    addPolyline(polyline, block_, room());
}

void DisplayReader::line(const DxfRecord& record) {
    block_.lines.push_back({planePoint(record, 10), planePoint(record, 11), style_});
}

void DisplayReader::point(const DxfRecord& record) {
    block_.points.push_back({planePoint(record, 10), style_});
}

void DisplayReader::addArc(const DxfRecord& record, double start, double sweep) {
    const double radius = record.real(40).value_or(0);
    const Affine plane = planeOf(record, 30);
    if (radius > 0)
        block_.arcs.push_back({plane.point(planePoint(record, 10)), plane.vector({radius, 0}),
            plane.vector({0, radius}), start, sweep, style_});
}

void DisplayReader::arc(const DxfRecord& record) {
    const double start = radians(record.real(50).value_or(0));
    addArc(record, start, sweepFrom(start, radians(record.real(51).value_or(0))));
}

void DisplayReader::circle(const DxfRecord& record) {
    addArc(record, 0, fullTurn);
}

void DisplayReader::ellipse(const DxfRecord& record) {
    const ryv::DrawingPoint major = pointOf(record, 11);
    const ryv::DrawingPoint normal = pointOf(record, 210, {0, 0, 1});
    const double size = std::hypot(normal.x, normal.y, normal.z);
    if (!(size > 0) || !std::isfinite(size))
        return;
    const ryv::DrawingPoint side = cross(normal, major);
    const double ratio = record.real(40).value_or(1) / size;
    const double start = record.real(41).value_or(0);
    block_.arcs.push_back({planePoint(record, 10), {major.x, major.y}, {side.x * ratio, side.y * ratio},
        start, sweepFrom(start, record.real(42).value_or(fullTurn)), style_});
}

/// The format gives the corners line by line, not around.
void DisplayReader::area(const DxfRecord& record) {
    const Affine plane = planeOf(record, 30);
    const auto corner = [&](int code) { return plane.point(planePoint(record, code)); };
    const int last = record.find(13) ? 13 : 12;
    block_.areas.push_back({{corner(10), corner(11), corner(last), corner(12)}, style_});
}

void DisplayReader::face(const DxfRecord& record) {
    const int hiddenEdges = record.integer(70, 0);
    constexpr int corners = 4;
    for (int edge = 0; edge < corners; ++edge)
        if ((hiddenEdges >> edge & 1) == 0)
            block_.lines.push_back(
                {planePoint(record, 10 + edge), planePoint(record, 10 + (edge + 1) % corners), style_});
}

void DisplayReader::hatch(const DxfRecord& record) {
    Hatch hatch = hatchOf(record);
    hatch.fill.style = style_;
    addHatch(hatch, block_, {room(), fillSteps_});
}

void DisplayReader::spline(const DxfRecord& record) {
    const std::vector<PlanePoint> points = pointsOn(splineOf(record));
    const std::size_t most = points.empty() ? 0 : std::min(points.size() - 1, room());
    for (std::size_t i = 0; i < most; ++i)
        block_.lines.push_back({points[i], points[i + 1], style_});
}

void DisplayReader::lightweight(const DxfRecord& record) {
    Polyline polyline = lightPolyline(record);
    polyline.style = style_;
    addPolyline(polyline, block_, room());
}

void DisplayReader::polyline(const DxfRecord& record) {
    constexpr int closed = 1, mesh = 16 | 64;
    const int flags = record.integer(70, 0);
    if ((flags & mesh) != 0) {
        ++list_.unknown;
        return;
    }
    widths_ = {{}, 0, record.real(40).value_or(0), record.real(41).value_or(0)};
    polyline_ = Polyline{{}, (flags & closed) != 0, planeOf(record, 30), style_};
}

void DisplayReader::addWriting(std::optional<DisplayWriting> writing, const DisplayStyle& style) {
    if (!writing)
        return;
    textUnits_ += writing->text.size();
    writing->place.text = static_cast<std::uint32_t>(list_.texts.size());
    writing->place.style = style;
    list_.texts.push_back(std::move(writing->text));
    block_.writings.push_back(writing->place);
}

void DisplayReader::text(const DxfRecord& record) {
    addWriting(lineOfText(record, content_.text(), 1), style_);
}

void DisplayReader::paragraphs(const DxfRecord& record) {
    addWriting(paragraphsOfText(record, content_.text()), style_);
}

/// The drawing that is a block itself shows the tags; where the block is used only constant texts are.
void DisplayReader::attributeDefinition(const DxfRecord& record) {
    const int flags = record.integer(70, 0);
    if (isModelSpace_)
        addWriting(lineOfText(record, content_.text(), 2), style_);
    else if ((flags & constantAttribute) != 0 && (flags & invisibleAttribute) == 0)
        addWriting(lineOfText(record, content_.text(), 1), style_);
}

void DisplayReader::reference(const DxfRecord& record) {
    isHeadHidden_ = tables_.layer(style_.layer).isFrozen;
    DisplayReference reference;
    reference.block = tables_.block(record.text(2));
    if (reference.block == display::noBlock || isHeadHidden_)
        return;
    const double angle = radians(record.real(50).value_or(0));
    const PlanePoint across{std::cos(angle), std::sin(angle)}, up{-across.y, across.x};
    const Affine plane = planeOf(record, 30);
    reference.placement = plane.after(
        {across * record.real(41).value_or(1), up * record.real(42).value_or(1), planePoint(record, 10)});
    reference.columns = std::max(record.integer(70, 1), 1);
    reference.rows = std::max(record.integer(71, 1), 1);
    reference.columnStep = plane.vector(across * record.real(44).value_or(0));
    reference.rowStep = plane.vector(up * record.real(45).value_or(0));
    reference.style = style_;
    block_.references.push_back(reference);
}

/// What a dimension looks like is a block, drawn in place.
void DisplayReader::dimension(const DxfRecord& record) {
    DisplayReference reference;
    reference.block = tables_.block(record.text(2));
    reference.style = style_;
    if (reference.block == display::noBlock)
        ++list_.unknown;
    else
        block_.references.push_back(reference);
}

} // namespace drafta
