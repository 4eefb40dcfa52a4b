#include "toolkit/tree_item_watch.h"

namespace ryv {

TreeItemWatch::TreeItemWatch(TreeControl& control, TreeItem& item) noexcept
    : control_(control), item_(&item), next_(control.watches_) {
    control.watches_ = this;
}

TreeItemWatch::~TreeItemWatch() {
    TreeItemWatch** link = &control_.watches_;
    while (*link != this)
        link = &(*link)->next_;
    *link = next_;
}

} // namespace ryv
