// Moving drawings and subfolders of a project to another place in it.
#pragma once

#include "ui/tree/arrangement.h"
#include "ui/tree/item_address.h"

namespace ryv {

struct ItemPlace {
    enum class Side { first, last, before, after };
    CString folder; ///< trace of the subfolder that things come into; empty: the top level
    Side side = Side::last;
    ItemAddress beside; ///< what `before` and `after` speak of; when it is gone things come last
};

/// What a move comes to in a project as it is now.
struct ItemMove {
    Rearrangement change;           ///< of the folders concerned
    std::vector<ItemAddress> items; ///< those that move, as they were named
    CStringArray namesTaken;        ///< subfolders that stay, since the place has one of that name

    std::size_t subfolderCount() const;
};

/// Puts items, in the order in which they are named, to a place. Left out is what is not there any more or
/// would come into itself. A drawing that is no longer in its folder is taken from where it is now. Takes
/// time in proportion to the folders concerned; changes nothing yet.
ItemMove planMove(
    const RyvPrmProjectData& project, const std::vector<ItemAddress>& items, const ItemPlace& place);

} // namespace ryv
