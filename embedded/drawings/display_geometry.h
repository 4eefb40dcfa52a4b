// Coordinates of records in the plane that is shown.
#pragma once

#include "embedded/drawings/affine.h"
#include "embedded/drawings/geometry.h"

namespace drafta {

/// The first two of the three pairs of a point.
inline PlanePoint planePoint(const DxfRecord& record, int code) {
    return {record.real(code).value_or(0), record.real(code + 10).value_or(0)};
}

/// From the coordinates of a flat entity, at the height that it has under `elevation`, to those of its space.
inline Affine planeOf(const DxfRecord& record, int elevation) {
    if (!record.find(210))
        return {};
    const ObjectAxes axes(record);
    const auto flat = [](ryv::DrawingPoint point) { return PlanePoint{point.x, point.y}; };
    return {flat(axes.toSpace({1, 0, 0})), flat(axes.toSpace({0, 1, 0})),
        flat(axes.toSpace({0, 0, record.real(elevation).value_or(0)}))};
}

} // namespace drafta
