// Knows whether a row is still there.
#pragma once

#include "toolkit/tree_control.h"

namespace ryv {

/// For whoever keeps a row across something that may remove it: a hook, a message box, a message pump.
class TreeItemWatch {
public:
    /// The control outlives the watch.
    TreeItemWatch(TreeControl& control, TreeItem& item) noexcept;
    TreeItemWatch(const TreeItemWatch&) = delete;
    TreeItemWatch& operator=(const TreeItemWatch&) = delete;
    ~TreeItemWatch();

    /// Null when the row was removed.
    TreeItem* item() const noexcept { return item_; }

private:
    friend class TreeControl;
    TreeControl& control_;
    TreeItem* item_;
    TreeItemWatch* next_;
};

} // namespace ryv
