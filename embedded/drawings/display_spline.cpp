#include "embedded/drawings/display_spline.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace drafta {

namespace {

constexpr int highestDegree = 15;
constexpr std::size_t mostPieces = 32; // of the curve between two knots

/// A point times its weight, and the weight.
struct Weighted {
    double x = 0, y = 0, weight = 1;

    PlanePoint place() const { return {x / weight, y / weight}; }
};

Weighted between(const Weighted& a, const Weighted& b, double part) {
    return {a.x + (b.x - a.x) * part, a.y + (b.y - a.y) * part, a.weight + (b.weight - a.weight) * part};
}

bool isSound(const Spline& spline) {
    const std::size_t degree = static_cast<std::size_t>(spline.degree);
    return spline.degree >= 1 && spline.degree <= highestDegree && spline.control.size() > degree &&
           spline.knots.size() == spline.control.size() + degree + 1 &&
           std::is_sorted(spline.knots.begin(), spline.knots.end());
}

bool isWeighted(const Spline& spline) {
    return spline.weights.size() == spline.control.size() &&
           std::all_of(spline.weights.begin(), spline.weights.end(), [](double w) { return w > 0; });
}

/// Pieces between two knots: more when there are few of them.
std::size_t piecesOf(std::size_t spans) {
    constexpr std::size_t wanted = 256, least = 6;
    return std::clamp(wanted / std::max<std::size_t>(spans, 1), least, mostPieces);
}

/// De Boor's algorithm; `span` is the number of the knot that the curve's parameter `at` follows.
PlanePoint pointAt(const Spline& spline, bool weighted, std::size_t span, double at) {
    const std::size_t degree = static_cast<std::size_t>(spline.degree);
    std::array<Weighted, highestDegree + 1> points;
    for (std::size_t i = 0; i <= degree; ++i) {
        const std::size_t number = span - degree + i;
        const double weight = weighted ? spline.weights[number] : 1;
        points[i] = {spline.control[number].x * weight, spline.control[number].y * weight, weight};
    }
    for (std::size_t round = 1; round <= degree; ++round)
        for (std::size_t i = degree; i >= round; --i) {
            const double low = spline.knots[span - degree + i];
            const double high = spline.knots[span + 1 + i - round];
            const double part = high > low ? (at - low) / (high - low) : 0;
            points[i] = between(points[i - 1], points[i], part);
        }
    return points[degree].place();
}

std::vector<PlanePoint> controlledCurve(const Spline& spline) {
    const std::size_t degree = static_cast<std::size_t>(spline.degree);
    const std::size_t spans = spline.control.size() - degree;
    const std::size_t pieces = degree == 1 ? 1 : piecesOf(spans);
    const bool weighted = isWeighted(spline);
    std::vector<PlanePoint> points;
    for (std::size_t span = degree; span < spline.control.size(); ++span) {
        const double low = spline.knots[span], high = spline.knots[span + 1];
        if (!(high > low))
            continue;
        for (std::size_t i = points.empty() ? 0 : 1; i <= pieces; ++i)
            points.push_back(pointAt(spline, weighted, span,
                low + (high - low) * (static_cast<double>(i) / static_cast<double>(pieces))));
    }
    return points;
}

/// A smooth curve through the points: at each of them it goes as from the one before to the one behind.
std::vector<PlanePoint> fittedCurve(const std::vector<PlanePoint>& fit) {
    if (fit.size() < 3)
        return fit;
    const std::size_t pieces = piecesOf(fit.size() - 1);
    const auto point = [&fit](std::size_t i, std::size_t from) {
        return from + i < 1 ? fit.front() : fit[std::min(from + i - 1, fit.size() - 1)];
    };
    std::vector<PlanePoint> points{fit.front()};
    for (std::size_t from = 0; from + 1 < fit.size(); ++from) {
        const PlanePoint before = point(0, from), a = point(1, from), b = point(2, from),
                         after = point(3, from);
        const PlanePoint leaving = (b - before) * 0.5, arriving = (after - a) * 0.5;
        for (std::size_t i = 1; i <= pieces; ++i) {
            const double t = static_cast<double>(i) / static_cast<double>(pieces), u = 1 - t;
            points.push_back(a * (u * u * (1 + 2 * t)) + b * (t * t * (1 + 2 * u)) + leaving * (t * u * u) -
                             arriving * (t * t * u));
        }
    }
    return points;
}

} // namespace

Spline splineOf(const DxfRecord& record) {
    Spline spline;
    spline.degree = record.integer(71, spline.degree);
    for (std::size_t i = 1; i < record.ownCount(); ++i) {
        const DxfPair& pair = record.pairs()[i];
        const auto value = [&pair] { return parseReal(pair.value).value_or(0); };
        if (pair.code == 40)
            spline.knots.push_back(value());
        else if (pair.code == 41)
            spline.weights.push_back(value());
        else if (pair.code == 10)
            spline.control.push_back({value(), 0});
        else if (pair.code == 20 && !spline.control.empty())
            spline.control.back().y = value();
        else if (pair.code == 11)
            spline.fit.push_back({value(), 0});
        else if (pair.code == 21 && !spline.fit.empty())
            spline.fit.back().y = value();
    }
    return spline;
}

std::vector<PlanePoint> pointsOn(const Spline& spline) {
    if (spline.control.empty())
        return fittedCurve(spline.fit);
    return isSound(spline) ? controlledCurve(spline) : spline.control;
}

} // namespace drafta
