// Coordinates: the systems of flat entities, and the place of a block reference.
#pragma once

#include "embedded/drawings/dxf_record.h"
#include "platform/host/drawings.h"

namespace drafta {

/// The point in three pairs: `code`, `code` + 10 and `code` + 20 (10, 20 and 30, say). What is missing or no
/// finite number is 0, or `otherwise`.
ryv::DrawingPoint pointOf(const DxfRecord& record, int code, ryv::DrawingPoint otherwise = {});

/// The coordinates of a flat entity, whose z axis is its extrusion (210) and whose other axes follow from it.
class ObjectAxes {
public:
    explicit ObjectAxes(const DxfRecord& record);
    explicit ObjectAxes(ryv::DrawingPoint extrusion) noexcept;

    ryv::DrawingPoint toSpace(ryv::DrawingPoint point) const noexcept;
    ryv::DrawingPoint fromSpace(ryv::DrawingPoint point) const noexcept;

private:
    ryv::DrawingPoint x_{1, 0, 0}, y_{0, 1, 0}, z_{0, 0, 1};
};

/// What a block reference makes of the block's points: moved so that the base point is the origin, scaled,
/// turned about the z axis (`rotation` in radians) and moved to the position.
struct BlockPlacement {
    ryv::DrawingPoint base;
    ryv::DrawingPoint position;
    ryv::DrawingPoint scale{1, 1, 1};
    double rotation = 0;

    ryv::DrawingPoint placed(ryv::DrawingPoint point) const noexcept;

    /// The direction that a direction in the block (degrees in the plane) has afterwards, in degrees from 0
    /// up to, not including, 360.
    double placedDirection(double degrees) const noexcept;
};

bool isFinite(ryv::DrawingPoint point) noexcept;
double toDegrees(double radians) noexcept;

} // namespace drafta
