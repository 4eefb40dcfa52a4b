// Selecting rows by what they stand for.
#pragma once

#include "ui/tree/item_address.h"

namespace ryv {

class CProjectTree;

/// Selects the rows of items that lie in one subfolder of an open project (of `folder`, its trace; empty for
/// the top level), and scrolls to the first of them. A filter that hides all of them goes. Nothing is done
/// when none is there; those that are not are left out.
void selectItems(CProjectTree& tree, const CString& projectId, const CString& folder,
    const std::vector<ItemAddress>& items);

/// The same for drawings.
void selectDrawings(
    CProjectTree& tree, const CString& projectId, const CString& folder, const std::vector<CString>& paths);

} // namespace ryv
