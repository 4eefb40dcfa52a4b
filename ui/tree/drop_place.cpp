#include "ui/tree/drop_place.h"

namespace ryv {

Landing landingOf(const DropTarget& target, DropPosition position) noexcept {
    if (target.type == TreeItemType::none || target.relation != DropRelation::sameProject)
        return Landing::nowhere;
    const bool isProject = target.type == TreeItemType::project;
    const bool holdsRows = isProject || target.type == TreeItemType::subfolder;
    // Above a row means above it, also when it is an open subfolder: that is the only way in front of it.
    // Below an open one means into it, for there the line between two rows lies in front of its first row.
    switch (position) {
    case DropPosition::onto:
        return holdsRows ? Landing::last : Landing::nowhere;
    case DropPosition::before:
        if (isProject)
            return target.isOpen ? Landing::first : Landing::nowhere;
        return Landing::before;
    case DropPosition::after:
        if (holdsRows && target.isOpen)
            return Landing::first;
        return isProject ? Landing::nowhere : Landing::after;
    }
    return Landing::nowhere;
}

} // namespace ryv
