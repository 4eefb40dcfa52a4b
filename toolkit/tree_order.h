// Siblings in their order. Each place is found, counted, filled and emptied in logarithmic time, whether all
// rows count or only those that are shown; an array would have to move what lies behind, and row numbers that
// are repaired later would be repaired for every notice.
#pragma once

#include <cstddef>
#include <cstdint>

namespace ryv {

class TreeItem;

/// What counts when rows are numbered.
enum class TreeCount { all, shown };

/// What an item keeps for the order it is in: a balanced search tree by place (a treap whose priorities are
/// made from the items' addresses).
struct TreeOrderLinks {
    TreeItem* up = nullptr;
    TreeItem* left = nullptr;
    TreeItem* right = nullptr;
    std::uint32_t counts[2] = {1, 0}; ///< of the item and all in the tree below it, by TreeCount
};

/// Does not own its items. An item is in one order at most.
class TreeOrder {
public:
    std::size_t size(TreeCount which = TreeCount::all) const noexcept;

    /// The item at a place, or null when there are not so many.
    TreeItem* at(std::size_t place, TreeCount which = TreeCount::all) const noexcept;
    TreeItem* first(TreeCount which = TreeCount::all) const noexcept;
    TreeItem* last(TreeCount which = TreeCount::all) const noexcept;

    /// How many come before it, which is its place when it counts itself.
    static std::size_t countBefore(const TreeItem& item, TreeCount which = TreeCount::all) noexcept;

    /// The neighbour, or null at the end. Walking a whole order this way takes linear time.
    static TreeItem* next(const TreeItem& item, TreeCount which = TreeCount::all) noexcept;
    static TreeItem* previous(const TreeItem& item, TreeCount which = TreeCount::all) noexcept;

    /// Puts an item, which is in no order, at a place from 0 to size().
    void insert(std::size_t place, TreeItem& item) noexcept;
    void erase(TreeItem& item) noexcept;

    /// Counts an item that is in an order among the shown ones, or no longer.
    static void setShown(TreeItem& item, bool shown) noexcept;

    /// Counts none of the items as shown, or all. To be done for each item of the order, in any sequence.
    static void resetShown(TreeItem& item, bool shown) noexcept;

private:
    void rotateUp(TreeItem& item) noexcept;
    void replace(TreeItem& item, TreeItem* by) noexcept;

    TreeItem* root_ = nullptr;
};

} // namespace ryv
