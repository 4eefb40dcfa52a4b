// Hatches: what is filled, and with what.
#pragma once

#include "embedded/drawings/display_fill.h"
#include "embedded/drawings/dxf_record.h"

namespace drafta {

struct Hatch {
    Fill fill; ///< without a style
    bool isSolid = false;
    std::vector<FillLines> pattern;
};

/// A HATCH record. What is damaged in it is left out.
Hatch hatchOf(const DxfRecord& record);

/// Adds a hatch to a block's shapes; its outline alone when the rest would be more than the budget allows, or
/// lines so close that nobody could tell them apart.
void addHatch(const Hatch& hatch, DisplayBlock& block, FillBudget budget);

} // namespace drafta
