// Coordinates: the systems of flat entities, and the place of a block reference.
#pragma once

#include "embedded/drawings/dxf_record.h"
#include "embedded/drawings/dxf_writer.h"
#include "platform/host/drawings.h"

namespace drafta {

/// The point in three pairs: `code`, `code` + 10 and `code` + 20 (10, 20 and 30, say). What is missing or no
/// finite number is 0, or `otherwise`.
ryv::DrawingPoint pointOf(const DxfRecord& record, int code, ryv::DrawingPoint otherwise = {});

/// Writes a point in its three pairs. A coordinate that `model` has the same keeps its spelling.
void writePoint(DxfWriter& writer, const DxfRecord& model, int code, ryv::DrawingPoint point);

/// True for the codes of the three pairs that begin with `code`.
constexpr bool isPointCode(int code, int first) noexcept {
    return code == first || code == first + 10 || code == first + 20;
}

/// The coordinates of a flat entity, whose z axis is its extrusion (210) and whose other axes follow from it.
class ObjectAxes {
public:
    explicit ObjectAxes(const DxfRecord& record);
    explicit ObjectAxes(ryv::DrawingPoint extrusion) noexcept;

    ryv::DrawingPoint toSpace(ryv::DrawingPoint point) const noexcept;
    ryv::DrawingPoint fromSpace(ryv::DrawingPoint point) const noexcept;

    /// True when they are the coordinates of the space.
    bool areOfSpace() const noexcept { return z_.z == 1; }

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

    /// The direction that a direction in the block has afterwards. Both are in degrees in the plane of an
    /// entity with these axes; the result is from 0 up to, not including, 360.
    double placedDirection(double degrees, const ObjectAxes& axes) const noexcept;

    /// Scaled and turned.
    ryv::DrawingPoint shaped(ryv::DrawingPoint point) const noexcept;
};

bool isFinite(ryv::DrawingPoint point) noexcept;
double toDegrees(double radians) noexcept;

} // namespace drafta
