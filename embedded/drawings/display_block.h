// The shapes of a block definition or of model space, as the file has them: styles still depend on the
// reference, references are not taken apart.
#pragma once

#include "embedded/drawings/display_list.h"

namespace drafta {

/// Colours and patterns that say where to look.
namespace display {
inline constexpr std::uint16_t colourOfBlock = 0;
inline constexpr std::uint16_t colourOfLayer = 256;
inline constexpr std::uint16_t patternOfLayer = 0xFFFF;
inline constexpr std::uint16_t patternOfBlock = 0xFFFE;
inline constexpr std::uint16_t largestPattern = 0xFFF0;
inline constexpr std::uint32_t layerOfReference = 0; ///< the layer "0"
inline constexpr std::size_t noBlock = static_cast<std::size_t>(-1);
} // namespace display

/// A reference, or a row of them.
struct DisplayReference {
    std::size_t block = display::noBlock; ///< in the order of DrawingIndex::blocks
    Affine placement;                     ///< of the first one, without the block's base point
    PlanePoint columnStep, rowStep;
    int columns = 1, rows = 1;
    DisplayStyle style;
};

struct DisplayBlock {
    std::vector<DisplayArea> areas;
    std::vector<DisplayLine> lines;
    std::vector<DisplayArc> arcs;
    std::vector<DisplayPoint> points;
    std::vector<DisplayText> writings;
    std::vector<DisplayReference> references;
    PlanePoint base;

    std::size_t size() const noexcept {
        return areas.size() + lines.size() + arcs.size() + points.size() + writings.size() +
               references.size();
    }
};

} // namespace drafta
