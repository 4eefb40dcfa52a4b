// What a tree showed before it was filtered.
#pragma once

#include "toolkit/tree_item.h"

#include <unordered_map>
#include <vector>

namespace ryv {

/// The rows that were selected, focused and at the upper edge. Rows that are removed are forgotten one by
/// one, in constant time each.
class TreeFilterMemory {
public:
    TreeItem* focus = nullptr;
    TreeItem* anchor = nullptr;
    TreeItem* firstVisible = nullptr;

    void keepSelection(const std::vector<TreeItem*>& items);
    bool holds(const TreeItem* item) const noexcept;
    /// Behind all others, unless it is among them.
    void add(TreeItem& item);
    /// In the order of selecting.
    std::vector<TreeItem*> selection() const;

    void forget(const TreeItem& item) noexcept;

private:
    std::unordered_map<TreeItem*, std::size_t> selection_; // with the place in the order
    std::size_t places_ = 0;                               // given so far
};

} // namespace ryv
