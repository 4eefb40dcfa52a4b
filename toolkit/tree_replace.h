// Which rows stay when the children of a row are replaced.
#pragma once

#include "toolkit/tree_control.h"

#include <cstddef>
#include <vector>

namespace ryv {

/// Old rows beside new ones with the same keys.
struct TreeMatch {
    std::vector<TreeItem*> kept;  ///< for each new row the old one that stays for it, or null
    std::vector<bool> inPlace;    ///< for each new row: its old one need not move
    std::vector<TreeItem*> stale; ///< old rows that go, in their order
    std::size_t moving = 0;       ///< how many old rows have to move
};

/// As few rows move as can be.
TreeMatch matchRows(TreeItem* firstChild, const std::vector<TreeRow>& contents, const TreeKey& key);

} // namespace ryv
