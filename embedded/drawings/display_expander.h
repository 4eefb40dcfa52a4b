// Takes block references apart: what depends on the reference is settled, and shapes go to the list.
#pragma once

#include "embedded/drawings/display_block.h"
#include "embedded/drawings/display_tables.h"

namespace drafta {

class DisplayExpander {
public:
    /// `blocks` in the order of DrawingIndex::blocks. All have to outlive this object.
    DisplayExpander(const std::vector<DisplayBlock>& blocks, const DisplayTables& tables,
        const DisplayLimits& limits, DisplayList& list)
        : blocks_(blocks), tables_(tables), limits_(limits), list_(list), isOpen_(blocks.size()) {}

    /// Adds the shapes of a block, with its references', to the list.
    void expand(const DisplayBlock& block, const Affine& map, const DisplayStyle& reference);

private:
    bool mayGoOn();
    DisplayStyle settled(const DisplayStyle& style, const DisplayStyle& reference) const;
    bool isInRange(PlanePoint point) const;
    template <class Shape, class Map>
    void add(const std::vector<Shape>& shapes, const DisplayStyle& reference, std::vector<Shape>& out,
        const Map& map);
    void expandReference(const DisplayReference& reference, const Affine& map, const DisplayStyle& style);

    const std::vector<DisplayBlock>& blocks_;
    const DisplayTables& tables_;
    const DisplayLimits& limits_;
    DisplayList& list_;
    std::vector<char> isOpen_; // blocks that are being expanded, by number
    std::size_t depth_ = 0;
    std::size_t steps_ = 0;
    bool isFull_ = false;
};

} // namespace drafta
