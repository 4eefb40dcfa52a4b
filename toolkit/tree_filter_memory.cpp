#include "toolkit/tree_filter_memory.h"

#include <algorithm>

namespace ryv {

void TreeFilterMemory::keepSelection(const std::vector<TreeItem*>& items) {
    selection_.clear();
    for (TreeItem* const item : items)
        add(*item);
}

bool TreeFilterMemory::holds(const TreeItem* item) const noexcept {
    return selection_.contains(const_cast<TreeItem*>(item));
}

void TreeFilterMemory::add(TreeItem& item) {
    selection_.emplace(&item, places_++);
}

std::vector<TreeItem*> TreeFilterMemory::selection() const {
    std::vector<TreeItem*> items;
    items.reserve(selection_.size());
    for (const auto& entry : selection_)
        items.push_back(entry.first);
    std::sort(items.begin(), items.end(),
        [this](TreeItem* a, TreeItem* b) { return selection_.at(a) < selection_.at(b); });
    return items;
}

void TreeFilterMemory::forget(const TreeItem& item) noexcept {
    selection_.erase(const_cast<TreeItem*>(&item));
    for (TreeItem** const kept : {&focus, &anchor, &firstVisible})
        if (*kept == &item)
            *kept = nullptr;
}

} // namespace ryv
