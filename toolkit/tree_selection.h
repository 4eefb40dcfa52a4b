// The selected rows of a tree, in the order of selecting.
#pragma once

#include "toolkit/tree_item.h"

#include <vector>

namespace ryv {

/// Adding and removing cost constant time on average: a row that goes leaves a gap, and gaps are closed when
/// somebody looks, or when they are too many.
class TreeSelection {
public:
    /// False when nothing changed.
    bool add(TreeItem& item);
    bool remove(TreeItem& item) noexcept;
    bool clear() noexcept;

    /// Makes the selection what `items` holds, in that order; no row occurs twice. False when nothing
    /// changed.
    bool assign(const std::vector<TreeItem*>& items);

    std::size_t count() const noexcept { return count_; }

    /// Good until the selection changes.
    const std::vector<TreeItem*>& items() const noexcept;

private:
    void closeGaps() const noexcept;

    mutable std::vector<TreeItem*> slots_; // null for a gap; each row knows its slot
    std::size_t count_ = 0;
};

} // namespace ryv
