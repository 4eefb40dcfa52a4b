// Lines of one pen on their way to a painter: cut to the canvas, dashed, and drawn many at once.
#pragma once

#include "embedded/qt/drawing/canvas_view.h"

#include <QLineF>
#include <QPainter>

#include <vector>

namespace drafta {

class StrokeBatch {
public:
    /// Draws inside of `area`; both have to outlive this object.
    StrokeBatch(QPainter& painter, const QRectF& area)
        : painter_(painter), area_(area), ratio_(painter.device()->devicePixelRatioF()) {}
    StrokeBatch(const StrokeBatch&) = delete;
    StrokeBatch& operator=(const StrokeBatch&) = delete;
    ~StrokeBatch() { flush(); }

    /// The pen of the lines that follow. `pattern` is in drawing units, empty for an unbroken line, and lives
    /// until the next call.
    void setPen(QColor colour, const std::vector<double>& pattern, double scale);

    /// A new row of lines; dashes begin anew.
    void begin(QPointF point) {
        last_ = point;
        phase_ = 0;
    }
    /// A line of its own, unless it goes on where a piece ended that was too short for the pattern: dashes
    /// run along curves that are made of such pieces.
    void line(QPointF from, QPointF to) {
        if (!(from == last_ && piece_ < period_))
            begin(from);
        lineTo(to);
    }
    void lineTo(QPointF point);

private:
    void addDashes(QPointF from, QPointF to, double length, double phase);
    void add(QPointF from, QPointF to);
    void flush();

    QPainter& painter_;
    const QRectF& area_;
    double ratio_; // of the screen's pixels to ours
    std::vector<QLineF> lines_;
    std::vector<double> dashes_; // in pixels; empty for an unbroken line
    double period_ = 0;
    QPointF last_;
    double phase_ = 0; // how far into the pattern last_ is
    double piece_ = 0; // length of what ends at last_
};

} // namespace drafta
