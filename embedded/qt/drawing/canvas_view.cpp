#include "embedded/qt/drawing/canvas_view.h"

#include <algorithm>
#include <array>

namespace drafta {

CanvasView CanvasView::fitted(const DisplayExtents& extents, QSizeF canvas) {
    constexpr double filled = 0.96;
    const PlanePoint size = extents.isEmpty() ? PlanePoint{1, 1} : extents.most - extents.least;
    const PlanePoint middle = extents.isEmpty() ? PlanePoint{0.5, 0.5} : extents.least + size * 0.5;
    // A drawing of one straight line, or one point, has no height or no size.
    const double least = std::max({size.x, size.y, 1e-6}) * 1e-3;
    CanvasView view;
    view.scale = filled * std::min(std::max(canvas.width(), 1.0) / std::max(size.x, least),
                              std::max(canvas.height(), 1.0) / std::max(size.y, least));
    view.origin = {canvas.width() / 2 - middle.x * view.scale, canvas.height() / 2 + middle.y * view.scale};
    return view;
}

bool clipLine(QPointF from, QPointF to, const QRectF& area, double& begin, double& end) {
    begin = 0;
    end = 1;
    const double dx = to.x() - from.x(), dy = to.y() - from.y();
    // For each edge how fast the line goes out over it, and how far inside it begins.
    const std::array<std::array<double, 2>, 4> edges{{{-dx, from.x() - area.left()},
        {dx, area.right() - from.x()}, {-dy, from.y() - area.top()}, {dy, area.bottom() - from.y()}}};
    for (const auto& [speed, inside] : edges) {
        if (speed == 0 && inside < 0)
            return false;
        if (speed < 0)
            begin = std::max(begin, inside / speed);
        else if (speed > 0)
            end = std::min(end, inside / speed);
    }
    return begin <= end;
}

} // namespace drafta
