#include "embedded/qt/drawing/stroke_batch.h"

#include <cmath>
#include <numeric>

namespace drafta {

namespace {

constexpr double shortestPeriod = 3; // pixels; what is finer looks unbroken anyway
constexpr double shortestDash = 0.7; // so that dots are seen
constexpr std::size_t largestBatch = 4096;

} // namespace

void StrokeBatch::setPen(QColor colour, const std::vector<double>& pattern, double scale) {
    flush();
    QPen pen(colour, 1);
    pen.setCosmetic(true);
    painter_.setPen(pen);
    dashes_.clear();
    for (const double length : pattern)
        dashes_.push_back(length * scale);
    piece_ = HUGE_VAL;
    period_ = std::accumulate(dashes_.begin(), dashes_.end(), 0.0);
    if (!(period_ >= shortestPeriod) || !std::isfinite(period_))
        dashes_.clear();
}

void StrokeBatch::lineTo(QPointF point) {
    const QPointF from = std::exchange(last_, point);
    const double length = dashes_.empty() ? 0 : std::hypot(point.x() - from.x(), point.y() - from.y());
    const double phase = std::exchange(phase_, phase_ + length);
    piece_ = length;
    double begin = 0, end = 0;
    if (!clipLine(from, point, area_, begin, end))
        return;
    const QPointF way = point - from;
    if (dashes_.empty())
        add(from + way * begin, from + way * end);
    else
        addDashes(from + way * begin, from + way * end, length * (end - begin), phase + length * begin);
}

/// The pattern runs from the line's own begin, not from the edge of the canvas, so that it moves with the
/// drawing.
void StrokeBatch::addDashes(QPointF from, QPointF to, double length, double phase) {
    if (!(length > 0))
        return;
    const QPointF unit = (to - from) / length;
    double at = -std::fmod(phase, period_);
    for (std::size_t i = 0; at < length; i = (i + 1) % dashes_.size()) {
        const double next = at + dashes_[i];
        const bool isDash = i % 2 == 0;
        const double dashEnd = std::max(next, at + shortestDash);
        if (isDash && dashEnd > 0)
            add(from + unit * std::max(at, 0.0), from + unit * std::min(dashEnd, length));
        at = next;
    }
}

/// Upright and level lines run through the middle of pixels: between two rows they would be wide and pale.
void StrokeBatch::add(QPointF from, QPointF to) {
    const auto middle = [this](double x) { return (std::floor(x * ratio_) + 0.5) / ratio_; };
    if (from.x() == to.x())
        from.rx() = to.rx() = middle(from.x());
    if (from.y() == to.y())
        from.ry() = to.ry() = middle(from.y());
    lines_.emplace_back(from, to);
    if (lines_.size() >= largestBatch)
        flush();
}

void StrokeBatch::flush() {
    if (!lines_.empty())
        painter_.drawLines(lines_.data(), static_cast<int>(lines_.size()));
    lines_.clear();
}

} // namespace drafta
