// Outlines that are filled: with colour, or with the lines of a pattern.
#pragma once

#include "embedded/drawings/display_block.h"

namespace drafta {

struct FillEdge {
    PlanePoint from, to;
};

/// Parallel lines. Angles in radians, lengths in drawing units.
struct FillLines {
    double angle = 0;
    PlanePoint base;            ///< on one of the lines
    PlanePoint offset;          ///< from a line to the next one
    std::vector<double> dashes; ///< dash, gap (negative), ... 0 is a dot; empty: unbroken
};

/// What is inside: where a way from far outside crosses an odd number of edges. Edges that cross each other
/// may leave small parts out or cover them twice.
struct Fill {
    std::vector<FillEdge> edges; ///< in any order and direction
    Affine plane;                ///< of the edges and lines
    DisplayStyle style;

    /// Adds what is between two points.
    void addEdge(PlanePoint from, PlanePoint to) { edges.push_back({from, to}); }
    /// Adds a part of an ellipse as straight pieces.
    void addArc(const DisplayArc& arc);
};

/// How much may still be done, so that no drawing can use up the time: counted down by steps.
struct FillBudget {
    std::size_t shapes; ///< that may be added
    std::size_t& steps;

    /// False when there is too little left.
    bool spend(std::size_t count) noexcept;
};

/// Adds the inside as areas. False, with the block as it was, when that is more than the budget allows.
bool addFilled(const Fill& fill, DisplayBlock& block, FillBudget budget);

/// Adds the lines as far as they are inside. False, with the block as it was, when they are so close that
/// there are more than a thousand of them, or more than the budget allows.
bool addLines(const Fill& fill, const FillLines& lines, DisplayBlock& block, FillBudget budget);

/// Adds the edges themselves, as many as there is room for.
void addOutline(const Fill& fill, DisplayBlock& block, FillBudget budget);

} // namespace drafta
