#include "embedded/drawings/display_fill.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace drafta {

void Fill::addArc(const DisplayArc& arc) {
    constexpr double step = std::numbers::pi / 32;
    constexpr int most = 64;
    const int count = std::clamp(static_cast<int>(std::ceil(std::abs(arc.sweep) / step)), 1, most);
    for (int i = 0; i < count; ++i)
        addEdge(arc.at(arc.start + arc.sweep * i / count), arc.at(arc.start + arc.sweep * (i + 1) / count));
}

bool FillBudget::spend(std::size_t count) noexcept {
    const bool isEnough = steps >= count;
    steps = isEnough ? steps - count : 0;
    return isEnough;
}

namespace {

/// Coordinates beyond this are of no drawing; sums and products of them are still finite.
constexpr double farthest = 1e15;

bool isNear(PlanePoint point) {
    return std::abs(point.x) <= farthest && std::abs(point.y) <= farthest;
}

// -- Areas

/// The edges that rise, from their lower ends up.
std::vector<FillEdge> risingEdges(const Fill& fill) {
    std::vector<FillEdge> edges;
    for (const FillEdge& edge : fill.edges)
        if (edge.from.y != edge.to.y && isNear(edge.from) && isNear(edge.to))
            edges.push_back(edge.from.y < edge.to.y ? edge : FillEdge{edge.to, edge.from});
    std::sort(
        edges.begin(), edges.end(), [](const FillEdge& a, const FillEdge& b) { return a.from.y < b.from.y; });
    return edges;
}

double xAt(const FillEdge& edge, double y) {
    const double part = std::clamp((y - edge.from.y) / (edge.to.y - edge.from.y), 0.0, 1.0);
    return edge.from.x + (edge.to.x - edge.from.x) * part;
}

/// Cuts the inside at the height of each corner into strips between two edges; a strip that goes on past a
/// corner elsewhere stays one.
class StripCutter {
public:
    StripCutter(const Fill& fill, std::size_t room)
        : fill_(fill), edges_(risingEdges(fill)), stripOf_(edges_.size(), none), room_(room) {}

    bool cut(FillBudget& budget) {
        const std::vector<double> heights = cornerHeights();
        if (!budget.spend(heights.size()))
            return false;
        for (std::size_t i = 0; i + 1 < heights.size(); ++i) {
            enter(heights[i], heights[i + 1]);
            if (!budget.spend(crossing_.size()) || areas_.size() > room_)
                return false;
            pairUp(heights[i]);
        }
        crossing_.clear();
        if (!heights.empty())
            pairUp(heights.back());
        return areas_.size() <= room_;
    }
    const std::vector<DisplayArea>& areas() const { return areas_; }

private:
    static constexpr std::size_t none = static_cast<std::size_t>(-1);
    struct Crossing {
        double x;
        std::size_t edge;
    };
    struct Strip {
        std::size_t left, right;
        double since;
    };

    std::vector<double> cornerHeights() const {
        std::vector<double> heights;
        for (const FillEdge& edge : edges_)
            heights.insert(heights.end(), {edge.from.y, edge.to.y});
        std::sort(heights.begin(), heights.end());
        heights.erase(std::unique(heights.begin(), heights.end()), heights.end());
        return heights;
    }

    /// The edges between two heights, from left to right.
    void enter(double low, double high) {
        std::erase_if(crossing_, [&](const Crossing& c) { return edges_[c.edge].to.y <= low; });
        for (; next_ < edges_.size() && edges_[next_].from.y <= low; ++next_)
            crossing_.push_back({0, next_});
        const double middle = low + (high - low) / 2;
        for (Crossing& crossing : crossing_)
            crossing.x = xAt(edges_[crossing.edge], middle);
        std::sort(crossing_.begin(), crossing_.end(),
            [](const Crossing& a, const Crossing& b) { return a.x < b.x; });
    }

    void pairUp(double height) {
        std::vector<Strip> now;
        for (std::size_t i = 0; i + 1 < crossing_.size(); i += 2) {
            const std::size_t left = crossing_[i].edge, right = crossing_[i + 1].edge;
            const std::size_t before = stripOf_[left];
            const bool goesOn = before != none && strips_[before].right == right;
            now.push_back({left, right, goesOn ? strips_[before].since : height});
            if (goesOn)
                strips_[before].left = none;
        }
        for (const Strip& strip : strips_)
            if (strip.left != none) {
                stripOf_[strip.left] = none;
                add(strip, height);
            }
        strips_ = std::move(now);
        for (std::size_t i = 0; i < strips_.size(); ++i)
            stripOf_[strips_[i].left] = i;
    }

    void add(const Strip& strip, double until) {
        const auto corner = [this](std::size_t edge, double y) {
            return fill_.plane.point({xAt(edges_[edge], y), y});
        };
        areas_.push_back({{corner(strip.left, strip.since), corner(strip.right, strip.since),
                              corner(strip.right, until), corner(strip.left, until)},
            fill_.style});
    }

    const Fill& fill_;
    std::vector<FillEdge> edges_;
    std::vector<std::size_t> stripOf_; // of the edge at its left, in strips_
    std::vector<Crossing> crossing_;
    std::vector<Strip> strips_;
    std::vector<DisplayArea> areas_;
    std::size_t next_ = 0; // edge
    std::size_t room_;
};

// -- Lines

/// Crosses the lines of a pattern with the edges. Along a line and across the lines are its coordinates.
class LineCutter {
public:
    LineCutter(const Fill& fill, const FillLines& lines)
        : fill_(fill),
          lines_(lines), along_{std::cos(lines.angle), std::sin(lines.angle)}, across_{-along_.y, along_.x},
          shift_(dot(lines.offset, along_)), spacing_(dot(lines.offset, across_)) {
        for (const double dash : lines.dashes)
            period_ += std::abs(dash);
    }

    bool cut(FillBudget& budget) {
        if (!(std::abs(spacing_) > 0) || !isNear(lines_.base) || !isNear(lines_.offset) ||
            !budget.spend(fill_.edges.size()))
            return false;
        const double count = crossingCount();
        if (!(count <= mostCrossings) || !budget.spend(static_cast<std::size_t>(count)))
            return false;
        for (const FillEdge& edge : fill_.edges)
            cross(edge);
        std::sort(crossings_.begin(), crossings_.end(), [](const Crossing& a, const Crossing& b) {
            return a.line != b.line ? a.line < b.line : a.x < b.x;
        });
        drawLines();
        return pieces_.size() <= budget.shapes && budget.spend(pieces_.size());
    }
    const std::vector<DisplayLine>& pieces() const { return pieces_; }

private:
    static constexpr double mostLines = 1000, mostCrossings = 20'000;
    static constexpr double mostDashes = 20'000; // after that lines are unbroken
    static constexpr double highestLine = 1e12;  // numbers of lines are exact
    struct Crossing {
        double line; // its number, counted from the one through the base
        double x;
    };

    static double dot(PlanePoint a, PlanePoint b) { return a.x * b.x + a.y * b.y; }
    double lineAt(PlanePoint point) const { return dot(point - lines_.base, across_) / spacing_; }

    /// More than any limit when the lines are too many.
    double crossingCount() const {
        double count = 0, least = HUGE_VAL, most = -HUGE_VAL;
        for (const FillEdge& edge : fill_.edges) {
            if (!isNear(edge.from) || !isNear(edge.to))
                continue;
            const double a = lineAt(edge.from), b = lineAt(edge.to);
            count += std::abs(a - b) + 1;
            least = std::min({least, a, b});
            most = std::max({most, a, b});
        }
        const bool isFew = most - least <= mostLines && std::max(-least, most) <= highestLine;
        return isFew || count == 0 ? count : HUGE_VAL;
    }

    void cross(const FillEdge& edge) {
        if (!isNear(edge.from) || !isNear(edge.to))
            return;
        const double a = lineAt(edge.from), b = lineAt(edge.to);
        const double x = dot(edge.from - lines_.base, along_), end = dot(edge.to - lines_.base, along_);
        // An end that lies on a line belongs to one of the two edges there.
        for (double line = std::ceil(std::min(a, b)); line < std::max(a, b); ++line)
            crossings_.push_back({line, x + (end - x) * ((line - a) / (b - a))});
    }

    void drawLines() {
        for (std::size_t i = 0; i + 1 < crossings_.size();) {
            const Crossing &from = crossings_[i], &to = crossings_[i + 1];
            if (from.line != to.line) {
                ++i; // an outline with a gap
                continue;
            }
            drawLine(from.line, from.x, to.x);
            i += 2;
        }
    }

    void drawLine(double line, double from, double to) {
        const double start = line * shift_;
        const double count = ((to - from) / period_ + 2) * static_cast<double>(lines_.dashes.size());
        if (!(period_ > 0) || !(static_cast<double>(pieces_.size()) + count <= mostDashes))
            return add(line, from, to);
        double at = start + std::floor((from - start) / period_) * period_;
        while (at < to) {
            const double before = at;
            for (const double dash : lines_.dashes) {
                const double begin = std::max(at, from), end = std::min(at + std::abs(dash), to);
                if (dash >= 0 && begin <= end)
                    add(line, begin, end);
                at += std::abs(dash);
            }
            if (!(at > before))
                return; // shorter than coordinates are exact
        }
    }

    void add(double line, double from, double to) {
        const auto point = [&](double x) {
            return fill_.plane.point(lines_.base + along_ * x + across_ * (line * spacing_));
        };
        pieces_.push_back({point(from), point(to), fill_.style});
    }

    const Fill& fill_;
    const FillLines& lines_;
    PlanePoint along_, across_;
    double shift_, spacing_;
    double period_ = 0;
    std::vector<Crossing> crossings_;
    std::vector<DisplayLine> pieces_;
};

} // namespace

bool addFilled(const Fill& fill, DisplayBlock& block, FillBudget budget) {
    StripCutter cutter(fill, budget.shapes);
    if (!cutter.cut(budget))
        return false;
    block.areas.insert(block.areas.end(), cutter.areas().begin(), cutter.areas().end());
    return true;
}

bool addLines(const Fill& fill, const FillLines& lines, DisplayBlock& block, FillBudget budget) {
    LineCutter cutter(fill, lines);
    if (!cutter.cut(budget))
        return false;
    block.lines.insert(block.lines.end(), cutter.pieces().begin(), cutter.pieces().end());
    return true;
}

void addOutline(const Fill& fill, DisplayBlock& block, FillBudget budget) {
    for (std::size_t i = 0; i < fill.edges.size() && i < budget.shapes; ++i)
        block.lines.push_back(
            {fill.plane.point(fill.edges[i].from), fill.plane.point(fill.edges[i].to), fill.style});
}

} // namespace drafta
