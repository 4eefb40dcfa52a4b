#include "toolkit/tree_selection.h"

namespace ryv {

bool TreeSelection::add(TreeItem& item) {
    if (item.selected())
        return false;
    slots_.push_back(&item);
    item.slot_ = static_cast<std::uint32_t>(slots_.size() - 1);
    ++count_;
    return true;
}

bool TreeSelection::remove(TreeItem& item) noexcept {
    if (!item.selected())
        return false;
    slots_[item.slot_] = nullptr;
    item.slot_ = TreeItem::noSlot;
    --count_;
    while (!slots_.empty() && !slots_.back())
        slots_.pop_back();
    if (slots_.size() > 2 * count_ + 16)
        closeGaps();
    return true;
}

bool TreeSelection::clear() noexcept {
    const bool any = count_ > 0;
    for (TreeItem* const item : slots_)
        if (item)
            item->slot_ = TreeItem::noSlot;
    slots_.clear();
    count_ = 0;
    return any;
}

bool TreeSelection::assign(const std::vector<TreeItem*>& items) {
    if (this->items() == items)
        return false;
    clear();
    for (TreeItem* const item : items)
        add(*item);
    return true;
}

const std::vector<TreeItem*>& TreeSelection::items() const noexcept {
    if (slots_.size() != count_)
        closeGaps();
    return slots_;
}

void TreeSelection::closeGaps() const noexcept {
    std::uint32_t to = 0;
    for (TreeItem* const item : slots_) {
        if (!item)
            continue;
        item->slot_ = to;
        slots_[to++] = item;
    }
    slots_.resize(to);
}

} // namespace ryv
