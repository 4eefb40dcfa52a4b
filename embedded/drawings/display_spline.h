// Splines as straight pieces.
#pragma once

#include "embedded/drawings/affine.h"
#include "embedded/drawings/dxf_record.h"

#include <vector>

namespace drafta {

struct Spline {
    int degree = 3;
    std::vector<double> knots;   ///< ascending; as many as there are control points, degree and one together
    std::vector<double> weights; ///< one for each control point, or none
    std::vector<PlanePoint> control;
    std::vector<PlanePoint> fit; ///< on the curve; they count when there are no control points
};

/// A SPLINE record.
Spline splineOf(const DxfRecord& record);

/// Points on the curve from its begin to its end, at most 33 for each point that defines it; less than two
/// when there is no curve. One whose knots do not fit its control points is the way along these.
std::vector<PlanePoint> pointsOn(const Spline& spline);

} // namespace drafta
