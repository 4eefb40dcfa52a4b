#include "embedded/qt/drawing/drawing_scene.h"
#include "embedded/qt/drawing/stroke_batch.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace drafta {

namespace {

constexpr double readableHeight = 1.6;           // pixels; a smaller text is a stroke
constexpr double visibleHeight = 0.4;            // pixels; a smaller one is nothing
constexpr std::size_t mostShapedTexts = 20'000;  // in one pass; the rest are strokes
constexpr std::size_t mostSmoothShapes = 60'000; // above that edges are left rough, for the sake of time
constexpr double margin = 2;                     // pixels around the canvas that lines are not cut in

double lengthOf(QPointF vector) {
    return std::hypot(vector.x(), vector.y());
}

/// A rectangle that overlaps nothing when it is empty would lose upright lines; this test does not.
bool overlaps(const QRectF& box, const QRectF& area) {
    return box.left() <= area.right() && box.right() >= area.left() && box.top() <= area.bottom() &&
           box.bottom() >= area.top();
}

QRectF boxAround(QPointF centre, double halfWidth, double halfHeight) {
    return {centre.x() - halfWidth, centre.y() - halfHeight, 2 * halfWidth, 2 * halfHeight};
}

/// How many straight pieces an arc of that radius (in pixels) is drawn with: none is further than a twentieth
/// of a pixel from it, but for arcs that are far larger than any canvas.
int piecesOf(double radius, double sweep) {
    constexpr double tolerance = 0.05;
    constexpr int least = 2, most = 4000;
    const double step = radius > tolerance ? 2 * std::acos(1 - tolerance / radius) : std::abs(sweep);
    const double count = std::abs(sweep) / std::max(step, 1e-6);
    return static_cast<int>(std::clamp(std::ceil(count), double{least}, double{most}));
}

/// A polygon cut to a rectangle, edge by edge.
QPolygonF clipped(QPolygonF polygon, const QRectF& area) {
    const auto cut = [&polygon](auto&& inside) {
        QPolygonF kept;
        for (qsizetype i = 0; i < polygon.size(); ++i) {
            const QPointF from = polygon[i], to = polygon[(i + 1) % polygon.size()];
            const double a = inside(from), b = inside(to);
            if (a >= 0)
                kept << from;
            if ((a < 0) != (b < 0))
                kept << from + (to - from) * (a / (a - b));
        }
        polygon.swap(kept);
    };
    cut([&](QPointF p) { return p.x() - area.left(); });
    cut([&](QPointF p) { return area.right() - p.x(); });
    cut([&](QPointF p) { return p.y() - area.top(); });
    cut([&](QPointF p) { return area.bottom() - p.y(); });
    return polygon;
}

} // namespace

struct DrawingScene::Pass {
    QPainter& painter;
    const CanvasView& view;
    QRectF area;
    const DrawingColours& colours;
};

void DrawingScene::paint(
    QPainter& painter, const CanvasView& view, const QRectF& area, const DrawingColours& colours) {
    const Pass pass{painter, view, area.adjusted(-margin, -margin, margin, margin), colours};
    painter.save();
    painter.setClipRect(area, Qt::IntersectClip);
    painter.setRenderHint(
        QPainter::Antialiasing, list_->lines.size() + list_->arcs.size() < mostSmoothShapes);
    painter.setRenderHint(QPainter::TextAntialiasing);
    paintAreas(pass);
    paintStrokes(pass);
    paintPoints(pass);
    paintTexts(pass);
    painter.restore();
}

void DrawingScene::paintAreas(const Pass& pass) const {
    for (const DisplayArea& area : list_->areas) {
        QPolygonF polygon;
        for (const PlanePoint& corner : area.corners)
            polygon << pass.view.toCanvas(corner);
        if (!overlaps(polygon.boundingRect(), pass.area))
            continue;
        const QColor colour = pass.colours.colour(area.style.colour);
        QPen pen(colour, 1); // so that a thin area does not vanish
        pen.setCosmetic(true);
        pass.painter.setPen(pen);
        pass.painter.setBrush(colour);
        pass.painter.drawPolygon(clipped(polygon, pass.area));
    }
    pass.painter.setBrush(Qt::NoBrush);
}

void DrawingScene::paintStrokes(const Pass& pass) const {
    StrokeBatch batch(pass.painter, pass.area);
    DisplayStyle pen{0, 0, 0};
    const auto use = [&](const DisplayStyle& style) {
        if (style.colour != pen.colour || style.pattern != pen.pattern)
            batch.setPen(pass.colours.colour(style.colour), list_->patterns[style.pattern], pass.view.scale);
        pen = style;
    };
    for (const DisplayLine& line : list_->lines) {
        use(line.style);
        batch.line(pass.view.toCanvas(line.from), pass.view.toCanvas(line.to));
    }
    for (const DisplayArc& arc : list_->arcs) {
        use(arc.style);
        paintArc(pass, arc, batch);
    }
}

void DrawingScene::paintArc(const Pass& pass, const DisplayArc& arc, StrokeBatch& batch) const {
    const QPointF across = pass.view.vectorToCanvas(arc.across), up = pass.view.vectorToCanvas(arc.up);
    const QRectF box = boxAround(pass.view.toCanvas(arc.centre), std::abs(across.x()) + std::abs(up.x()),
        std::abs(across.y()) + std::abs(up.y()));
    if (!overlaps(box, pass.area))
        return;
    const int pieces = piecesOf(std::max(lengthOf(across), lengthOf(up)), arc.sweep);
    batch.begin(pass.view.toCanvas(arc.at(arc.start)));
    for (int i = 1; i <= pieces; ++i)
        batch.lineTo(pass.view.toCanvas(arc.at(arc.start + arc.sweep * i / pieces)));
}

void DrawingScene::paintPoints(const Pass& pass) const {
    constexpr double radius = 1;
    pass.painter.setPen(Qt::NoPen);
    for (const DisplayPoint& point : list_->points) {
        const QPointF place = pass.view.toCanvas(point.place);
        if (!pass.area.contains(place))
            continue;
        pass.painter.setBrush(pass.colours.colour(point.style.colour));
        pass.painter.drawEllipse(place, radius, radius);
    }
    pass.painter.setBrush(Qt::NoBrush);
}

const TextShape& DrawingScene::shapeOf(std::size_t writing) {
    const auto hit = shapes_.find(writing);
    if (hit != shapes_.end())
        return hit->second;
    if (shapes_.size() > 2 * mostShapedTexts)
        shapes_.clear();
    const DisplayText& text = list_->writings[writing];
    return shapes_[writing] = shaper_.shape(text, list_->texts[text.text]);
}

/// A stroke through the middle of where the letters would be, about as long as they are.
void DrawingScene::paintStroke(const Pass& pass, const DisplayText& text, QPointF along, QPointF up) const {
    constexpr double letterWidth = 0.7, opacity = 0.5;
    const double width = letterWidth * static_cast<double>(list_->texts[text.text].size());
    const double before = text.horizontal == TextHorizontal::left    ? 0
                          : text.horizontal == TextHorizontal::right ? width
                                                                     : width / 2;
    const double middle = text.vertical == TextVertical::top      ? -0.5
                          : text.vertical == TextVertical::middle ? 0
                                                                  : 0.5;
    const QPointF from = pass.view.toCanvas(text.place) - along * before + up * middle;
    double begin = 0, end = 0;
    if (!clipLine(from, from + along * width, pass.area, begin, end))
        return;
    QColor colour = pass.colours.colour(text.style.colour);
    colour.setAlphaF(opacity);
    pass.painter.setPen(colour);
    pass.painter.drawLine(from + along * (width * begin), from + along * (width * end));
}

void DrawingScene::paintLetters(const Pass& pass, std::size_t writing, QPointF along, QPointF up) {
    const DisplayText& text = list_->writings[writing];
    const QPointF place = pass.view.toCanvas(text.place);
    const TextShape& shape = shapeOf(writing);
    const QPointF x = along * (shape.stretch * shape.size / shaper_.capHeight());
    const QPointF y = up * (-shape.size / shaper_.capHeight());
    const QTransform letters(x.x(), x.y(), y.x(), y.y(), place.x(), place.y());
    if (!overlaps(letters.mapRect(shape.box), pass.area))
        return;
    pass.painter.save();
    pass.painter.setTransform(letters, true);
    pass.painter.setPen(pass.colours.colour(text.style.colour));
    for (const TextShape::Run& run : shape.runs)
        pass.painter.drawGlyphRun(run.place, run.glyphs);
    pass.painter.restore();
}

void DrawingScene::paintTexts(const Pass& pass) {
    const double largest = 20 * std::max(pass.area.width(), pass.area.height());
    std::size_t shaped = 0;
    for (std::size_t i = 0; i < list_->writings.size(); ++i) {
        const DisplayText& text = list_->writings[i];
        const QPointF along = pass.view.vectorToCanvas(text.along), up = pass.view.vectorToCanvas(text.up);
        const double height = lengthOf(up);
        if (!(height > visibleHeight) || height > largest)
            continue;
        const double letters = 4 + static_cast<double>(list_->texts[text.text].size());
        const double reach = std::max(text.width * lengthOf(along), (height + lengthOf(along)) * letters);
        if (!overlaps(boxAround(pass.view.toCanvas(text.place), reach, reach), pass.area))
            continue;
        if (height < readableHeight || ++shaped > mostShapedTexts)
            paintStroke(pass, text, along, up);
        else
            paintLetters(pass, i, along, up);
    }
}

} // namespace drafta
