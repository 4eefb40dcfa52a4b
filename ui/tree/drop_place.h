// Where dragged rows of the project tree land.
#pragma once

#include "toolkit/tree_input.h"
#include "ui/tree/tree_records.h"

namespace ryv {

/// What the row under the pointer is to the dragged ones.
enum class DropRelation {
    sameProject,
    otherProject,
    ownChild ///< one of the dragged rows, or somewhere below one
};

struct DropTarget {
    TreeItemType type = TreeItemType::none; ///< none: the empty area
    DropRelation relation = DropRelation::sameProject;
    bool isOpen = false; ///< expanded, with rows below it that are seen
};

/// Where rows land, as seen from the row under the pointer.
enum class Landing { nowhere, before, after, first, last };

/// Rows stay in their project and never go into themselves. On a project or subfolder they become its last
/// rows. Behind one that is open they become its first rows, since that is the place below its line; the same
/// goes for the place in front of an open project, where nothing of it could stand.
Landing landingOf(const DropTarget& target, DropPosition position) noexcept;

} // namespace ryv
