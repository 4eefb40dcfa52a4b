// A drawing, ready to be painted at any place and size.
#pragma once

#include "embedded/qt/drawing/canvas_view.h"
#include "embedded/qt/drawing/drawing_colours.h"
#include "embedded/qt/drawing/text_shapes.h"

#include <memory>
#include <unordered_map>

class QPainter;

namespace drafta {

class StrokeBatch;

/// Lines are a pixel wide at every size, texts grow and shrink with the drawing. What lies outside of the
/// painted rectangle costs next to nothing.
class DrawingScene {
public:
    /// The list is not null.
    explicit DrawingScene(std::shared_ptr<const DisplayList> list) : list_(std::move(list)) {}

    const DisplayList& list() const noexcept { return *list_; }

    /// Paints what is seen in `area` of the canvas, without a background.
    void paint(QPainter& painter, const CanvasView& view, const QRectF& area, const DrawingColours& colours);

private:
    struct Pass;
    void paintAreas(const Pass& pass) const;
    void paintStrokes(const Pass& pass) const;
    void paintArc(const Pass& pass, const DisplayArc& arc, StrokeBatch& batch) const;
    void paintPoints(const Pass& pass) const;
    void paintTexts(const Pass& pass);
    void paintStroke(const Pass& pass, const DisplayText& text, QPointF along, QPointF up) const;
    void paintLetters(const Pass& pass, std::size_t writing, QPointF along, QPointF up);
    const TextShape& shapeOf(std::size_t writing);

    std::shared_ptr<const DisplayList> list_;
    TextShaper shaper_;
    std::unordered_map<std::size_t, TextShape> shapes_; // of texts that were large enough to be read
};

} // namespace drafta
