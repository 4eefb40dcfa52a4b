#include "embedded/drawings/geometry.h"

#include <cmath>
#include <numbers>

namespace drafta {

using ryv::DrawingPoint;

namespace {

DrawingPoint cross(DrawingPoint a, DrawingPoint b) noexcept {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

double dot(DrawingPoint a, DrawingPoint b) noexcept {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

DrawingPoint unit(DrawingPoint a) noexcept {
    const double length = std::hypot(a.x, a.y, a.z);
    return {a.x / length, a.y / length, a.z / length};
}

} // namespace

DrawingPoint pointOf(const DxfRecord& record, int code, DrawingPoint otherwise) {
    return {record.real(code).value_or(otherwise.x), record.real(code + 10).value_or(otherwise.y),
        record.real(code + 20).value_or(otherwise.z)};
}

void writePoint(DxfWriter& writer, const DxfRecord& model, int code, DrawingPoint point) {
    for (const double coordinate : {point.x, point.y, point.z}) {
        const DxfPair* const old = model.find(code);
        if (old && parseReal(old->value) == coordinate)
            writer.pair(code, old->value);
        else
            writer.real(code, coordinate);
        code += 10;
    }
}

ObjectAxes::ObjectAxes(const DxfRecord& record)
    : ObjectAxes(record.find(210) ? pointOf(record, 210, {0, 0, 1}) : DrawingPoint{0, 0, 1}) {}

ObjectAxes::ObjectAxes(DrawingPoint extrusion) noexcept {
    constexpr double near = 1.0 / 64; // the format's own limit for "nearly upright"
    const double length = std::hypot(extrusion.x, extrusion.y, extrusion.z);
    if ((extrusion.x == 0 && extrusion.y == 0 && extrusion.z >= 0) || !std::isfinite(length) ||
        length < 1e-12)
        return;
    z_ = unit(extrusion);
    const bool upright = std::abs(z_.x) < near && std::abs(z_.y) < near;
    x_ = unit(cross(upright ? DrawingPoint{0, 1, 0} : DrawingPoint{0, 0, 1}, z_));
    y_ = unit(cross(z_, x_));
}

DrawingPoint ObjectAxes::toSpace(DrawingPoint p) const noexcept {
    return {x_.x * p.x + y_.x * p.y + z_.x * p.z, x_.y * p.x + y_.y * p.y + z_.y * p.z,
        x_.z * p.x + y_.z * p.y + z_.z * p.z};
}

DrawingPoint ObjectAxes::fromSpace(DrawingPoint p) const noexcept {
    return {dot(x_, p), dot(y_, p), dot(z_, p)};
}

DrawingPoint BlockPlacement::shaped(DrawingPoint point) const noexcept {
    const double x = point.x * scale.x, y = point.y * scale.y;
    const double cosine = std::cos(rotation), sine = std::sin(rotation);
    return {x * cosine - y * sine, x * sine + y * cosine, point.z * scale.z};
}

DrawingPoint BlockPlacement::placed(DrawingPoint point) const noexcept {
    const DrawingPoint moved = shaped({point.x - base.x, point.y - base.y, point.z - base.z});
    return {position.x + moved.x, position.y + moved.y, position.z + moved.z};
}

double BlockPlacement::placedDirection(double degrees, const ObjectAxes& axes) const noexcept {
    const double angle = degrees / 180 * std::numbers::pi;
    double turned = degrees + toDegrees(rotation); // exactly so where nothing bends the plane
    if (!axes.areOfSpace() || scale.x != scale.y || scale.x <= 0) {
        const DrawingPoint direction =
            axes.fromSpace(shaped(axes.toSpace({std::cos(angle), std::sin(angle), 0})));
        turned = toDegrees(std::atan2(direction.y, direction.x));
    }
    const double full = std::fmod(turned, 360);
    return full < 0 ? full + 360 : full;
}

bool isFinite(DrawingPoint point) noexcept {
    return std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z);
}

double toDegrees(double radians) noexcept {
    return radians / std::numbers::pi * 180;
}

} // namespace drafta
