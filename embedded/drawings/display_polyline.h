// Polylines: straight and bent pieces, thin or with a width.
#pragma once

#include "embedded/drawings/display_block.h"
#include "embedded/drawings/dxf_record.h"

namespace drafta {

/// A corner, and what the piece from it to the next one is like.
struct PolylineVertex {
    PlanePoint place;
    double bulge = 0; ///< tangent of a quarter of the angle that the piece turns by, to the left; 0: straight
    double startWidth = 0, endWidth = 0;
};

/// A bulge below this bends by less than any screen shows.
inline constexpr double straightBulge = 1e-9;

struct Polyline {
    std::vector<PolylineVertex> vertices;
    bool isClosed = false;
    Affine plane;
    DisplayStyle style;
};

/// The piece with a bulge, which is not 0, between two corners; without a style.
DisplayArc bentPiece(PlanePoint from, PlanePoint to, double bulge);

/// The corners of a LWPOLYLINE record.
Polyline lightPolyline(const DxfRecord& record);

/// A VERTEX record of the older form; `defaults` has the widths of the POLYLINE.
PolylineVertex polylineVertex(const DxfRecord& record, const PolylineVertex& defaults);

/// Adds the pieces to a block's shapes, about as many as there is `room` for; false when that was too little.
bool addPolyline(const Polyline& polyline, DisplayBlock& block, std::size_t room);

} // namespace drafta
