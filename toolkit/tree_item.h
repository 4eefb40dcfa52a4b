// A row of a tree control.
#pragma once

#include "base/strings.h"
#include "toolkit/tree_order.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>

namespace ryv {

/// What the owner of a tree attaches to its rows; the tree destroys it with the row.
class TreeItemData {
public:
    TreeItemData() = default;
    TreeItemData(const TreeItemData&) = default;
    TreeItemData& operator=(const TreeItemData&) = default;
    virtual ~TreeItemData() = default;
};

/// What a row is made of.
struct TreeRow {
    CString label;
    int image = 0; ///< number in the image list that the views use
    bool bold = false;
    std::unique_ptr<TreeItemData> data = nullptr; ///< may be null
};

/// Made, changed and destroyed by a TreeControl only; valid until the control's onDeleteItem for it returns.
/// Rows are numbered from 0 in their parent. Numbers cost logarithmic time, all else that is asked here none.
class TreeItem {
public:
    TreeItem(const TreeItem&) = delete;
    TreeItem& operator=(const TreeItem&) = delete;

    /// Null for a row at the top.
    TreeItem* parent() const noexcept { return parent_ && parent_->parent_ ? parent_ : nullptr; }

    // All rows, whatever the filter says. `child` is null, when there are not so many.
    std::size_t childCount() const noexcept { return children_.size(); }
    TreeItem* child(std::size_t row) const noexcept { return children_.at(row); }
    std::size_t row() const noexcept { return TreeOrder::countBefore(*this); }

    // Walking from row to row costs constant time on average. Null at the end.
    TreeItem* firstChild(TreeCount which = TreeCount::all) const noexcept { return children_.first(which); }
    TreeItem* lastChild(TreeCount which = TreeCount::all) const noexcept { return children_.last(which); }
    TreeItem* next(TreeCount which = TreeCount::all) const noexcept { return TreeOrder::next(*this, which); }
    TreeItem* previous(TreeCount which = TreeCount::all) const noexcept {
        return TreeOrder::previous(*this, which);
    }

    // The rows that pass the filter, which are those that views know. `shownRow` of a row that does not pass
    // is the number it would have.
    std::size_t shownChildCount() const noexcept { return children_.size(TreeCount::shown); }
    TreeItem* shownChild(std::size_t row) const noexcept { return children_.at(row, TreeCount::shown); }
    std::size_t shownRow() const noexcept { return TreeOrder::countBefore(*this, TreeCount::shown); }

    /// Whether the row passes the filter: it, or a row below it, matches. Says nothing of collapsed parents.
    bool shown() const noexcept { return shown_; }
    /// Whether the row itself matches the filter.
    bool matches() const noexcept { return matches_; }

    const CString& label() const noexcept { return label_; }
    int image() const noexcept { return image_; }
    bool bold() const noexcept { return bold_; }
    bool expanded() const noexcept { return expanded_; }
    bool selected() const noexcept { return slot_ != noSlot; }

    /// Null when none was attached.
    TreeItemData* data() const noexcept { return data_.get(); }

private:
    friend struct TreeOrderAccess;
    friend class TreeControl;
    friend class TreeRows;
    friend class TreeSelection;
    static constexpr std::uint32_t noSlot = std::numeric_limits<std::uint32_t>::max();

    explicit TreeItem(TreeRow row) noexcept
        : label_(std::move(row.label)), data_(std::move(row.data)), image_(row.image), bold_(row.bold) {}

    TreeItem* parent_ = nullptr; ///< null for the root above the top rows, and outside a tree
    TreeOrder children_;
    TreeOrderLinks links_;
    CString label_;
    std::unique_ptr<TreeItemData> data_;
    int image_ = 0;
    std::uint32_t slot_ = noSlot; ///< place in the list of selected rows
    bool bold_ = false;
    bool expanded_ = false;
    bool unfilteredExpanded_ = false; ///< what to go back to when the filter goes
    bool shown_ = false;
    bool matches_ = true;
    bool leaving_ = false; ///< about to be destroyed
};

} // namespace ryv
