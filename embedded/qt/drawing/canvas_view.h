// Which part of a drawing is seen, and how large.
#pragma once

#include "embedded/drawings/display_list.h"

#include <QPointF>
#include <QRectF>
#include <QSizeF>

namespace drafta {

/// From drawing units to device-independent pixels of a canvas, whose y goes down.
struct CanvasView {
    double scale = 1; ///< pixels for one drawing unit
    QPointF origin;   ///< where the drawing's origin lies on the canvas

    QPointF toCanvas(PlanePoint point) const {
        return {origin.x() + point.x * scale, origin.y() - point.y * scale};
    }
    QPointF vectorToCanvas(PlanePoint vector) const { return {vector.x * scale, -vector.y * scale}; }
    PlanePoint toDrawing(QPointF point) const {
        return {(point.x() - origin.x()) / scale, (origin.y() - point.y()) / scale};
    }

    /// Zooms so that what lies at a point of the canvas stays there.
    void zoom(QPointF at, double factor) {
        origin = at + (origin - at) * factor;
        scale *= factor;
    }

    /// The view that shows a box whole, in the middle of a canvas, with a little room around it.
    static CanvasView fitted(const DisplayExtents& extents, QSizeF canvas);
};

/// The part of a line inside a rectangle: from the share `begin` of its length to the share `end`. False when
/// none of it is inside.
bool clipLine(QPointF from, QPointF to, const QRectF& area, double& begin, double& end);

} // namespace drafta
