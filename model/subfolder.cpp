#include "model/subfolder.h"

#include "model/file_details.h"
#include "model/project_index.h"
#include "model/tree_walk.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace ryv {

RyvPrmSubfolder::RyvPrmSubfolder() : RyvPrmItem(Kind::subfolder) {}

RyvPrmSubfolder::RyvPrmSubfolder(CString name) : RyvPrmItem(Kind::subfolder), name_(std::move(name)) {}

RyvPrmSubfolder::~RyvPrmSubfolder() {
    destroy(std::move(items_));
    destroy(std::move(parked_));
}

RyvPrmSubfolder& RyvPrmSubfolder::operator=(const RyvPrmSubfolder& other) {
    if (this == &other)
        return *this;
    setName(other.name_);
    for (auto& item : takeAll(std::vector<bool>(items_.size(), true)))
        park(std::move(item));
    return *this;
}

void RyvPrmSubfolder::setName(CString name) {
    if (index_)
        index_->subfoldersChanged();
    name_ = std::move(name);
}

RyvPrmItem& RyvPrmSubfolder::add(std::unique_ptr<RyvPrmItem> item) {
    return insert(items_.size(), std::move(item));
}

RyvPrmItem& RyvPrmSubfolder::insert(std::size_t position, std::unique_ptr<RyvPrmItem> item) {
    if (!item || position > items_.size())
        throw std::invalid_argument("no item, or a position outside the subfolder");
    RyvPrmItem& placed = *item;
    placed.parent_ = this;
    if (position == items_.size())
        items_.push_back(std::move(item));
    else
        items_.insert(items_.begin() + static_cast<std::ptrdiff_t>(position), std::move(item));
    if (RyvPrmSubfolder* const subfolder = asSubfolder(&placed); subfolder && subfolder->index_ != index_)
        subfolder->joinIndex(index_);
    if (index_)
        index_->added(placed, position + 1 == items_.size());
    return placed;
}

std::unique_ptr<RyvPrmItem> RyvPrmSubfolder::take(std::size_t position) {
    std::unique_ptr<RyvPrmItem>& slot = items_[position];
    if (index_)
        index_->aboutToRemove(*slot);
    std::unique_ptr<RyvPrmItem> item = std::move(slot);
    items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(position));
    leave(*item);
    return item;
}

void RyvPrmSubfolder::leave(RyvPrmItem& item) {
    item.parent_ = nullptr;
    if (RyvPrmSubfolder* const subfolder = asSubfolder(&item); subfolder && subfolder->index_)
        subfolder->joinIndex(nullptr);
}

std::unique_ptr<RyvPrmItem> RyvPrmSubfolder::take(const RyvPrmItem& item) {
    return take(positionOf(item));
}

std::size_t RyvPrmSubfolder::positionOf(const RyvPrmItem& item) const {
    // What was placed last is what is moved most, so the search starts at the end.
    for (std::size_t position = items_.size(); position-- > 0;)
        if (items_[position].get() == &item)
            return position;
    throw std::invalid_argument("the item is not in this subfolder");
}

std::vector<std::unique_ptr<RyvPrmItem>> RyvPrmSubfolder::takeAll(const std::vector<bool>& chosen) {
    std::vector<std::unique_ptr<RyvPrmItem>> taken;
    if (index_)
        index_->drop();
    std::size_t kept = 0;
    for (std::size_t position = 0; position < items_.size(); ++position) {
        std::unique_ptr<RyvPrmItem> item = std::move(items_[position]);
        if (position < chosen.size() && chosen[position]) {
            leave(*item);
            taken.push_back(std::move(item));
        } else {
            items_[kept++] = std::move(item);
        }
    }
    items_.resize(kept);
    return taken;
}

void RyvPrmSubfolder::clear() {
    if (index_)
        index_->drop();
    destroy(std::exchange(items_, {}));
}

void RyvPrmSubfolder::park(std::unique_ptr<RyvPrmItem> item) {
    if (!item)
        return;
    item->parent_ = this;
    item->parked_ = true;
    parked_.push_back(std::move(item));
}

std::unique_ptr<RyvPrmItem> RyvPrmSubfolder::unpark(const RyvPrmItem& item) {
    if (!item.parked_)
        return nullptr;
    auto& parked = item.parent_->parked_;
    const auto hit =
        std::find_if(parked.begin(), parked.end(), [&](const auto& each) { return each.get() == &item; });
    std::unique_ptr<RyvPrmItem> found = std::move(*hit);
    parked.erase(hit);
    found->parent_ = nullptr;
    found->parked_ = false;
    return found;
}

void RyvPrmSubfolder::joinIndex(ProjectIndex* index) {
    index_ = index;
    TreeWalk walk(*this);
    while (RyvPrmItem* const item = walk.next())
        if (RyvPrmSubfolder* const subfolder = asSubfolder(item))
            subfolder->index_ = index;
}

/// Takes nested subfolders apart level by level, so that destroying them never nests.
void RyvPrmSubfolder::destroy(std::vector<std::unique_ptr<RyvPrmItem>> items) {
    while (!items.empty()) {
        const std::unique_ptr<RyvPrmItem> item = std::move(items.back());
        items.pop_back();
        RyvPrmSubfolder* const subfolder = asSubfolder(item.get());
        if (!subfolder)
            continue;
        std::move(subfolder->items_.begin(), subfolder->items_.end(), std::back_inserter(items));
        std::move(subfolder->parked_.begin(), subfolder->parked_.end(), std::back_inserter(items));
        subfolder->items_.clear();
        subfolder->parked_.clear();
    }
}

bool RyvPrmSubfolder::operator==(const RyvPrmSubfolder& other) const {
    std::vector<std::pair<const RyvPrmSubfolder*, const RyvPrmSubfolder*>> pending{{this, &other}};
    while (!pending.empty()) {
        const auto [left, right] = pending.back();
        pending.pop_back();
        if (left->name_ != right->name_ || left->items_.size() != right->items_.size())
            return false;
        for (std::size_t i = 0; i < left->items_.size(); ++i) {
            const RyvPrmItem* const a = left->items_[i].get();
            const RyvPrmItem* const b = right->items_[i].get();
            if (a->kind_ != b->kind_)
                return false;
            if (const auto* const drawing = asFileDetails(a); drawing && !(*drawing == *asFileDetails(b)))
                return false;
            if (const auto* const subfolder = asSubfolder(a))
                pending.emplace_back(subfolder, asSubfolder(b));
        }
    }
    return true;
}

} // namespace ryv
