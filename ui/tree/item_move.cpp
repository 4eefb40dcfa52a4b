#include "ui/tree/item_move.h"

#include "base/fold.h"

#include <algorithm>
#include <unordered_set>

namespace ryv {

namespace {

using ItemSet = std::unordered_set<const RyvPrmItem*>;

class MovePlanner {
public:
    MovePlanner(const RyvPrmProjectData& project, const ItemPlace& place)
        : project_(project), place_(place), finder_(project), targets_(finder_.folders(place.folder)) {
        if (targets_.empty())
            return;
        findAnchor();
        for (const RyvPrmSubfolder* at = target_; at; at = at->parent())
            enclosing_.insert(at);
        for (const RyvPrmSubfolder* const folder : targets_)
            for (const auto& item : folder->getItems())
                if (const RyvPrmSubfolder* const subfolder = asSubfolder(item.get()))
                    names_.insert(toUpper(subfolder->getName()));
    }

    void add(const ItemAddress& address) {
        const std::vector<RyvPrmItem*> items = target_ ? find(address) : std::vector<RyvPrmItem*>();
        const bool inTheWay = std::any_of(items.begin(), items.end(),
            [this](const RyvPrmItem* item) { return enclosing_.contains(item) || chosen_.contains(item); });
        if (items.empty() || inTheWay)
            return;
        const bool stays =
            std::find(targets_.begin(), targets_.end(), items.front()->parent()) != targets_.end();
        if (address.isSubfolder && !stays && !names_.insert(toUpper(address.name)).second) {
            move_.namesTaken.push_back(address.name);
            return;
        }
        move_.items.push_back(address);
        moving_.insert(moving_.end(), items.begin(), items.end());
        chosen_.insert(items.begin(), items.end());
    }

    ItemMove finish() {
        if (moving_.empty())
            return std::move(move_);
        std::vector<RyvPrmSubfolder*> folders{target_};
        ItemSet known{target_};
        for (const RyvPrmItem* const item : moving_)
            if (known.insert(item->parent()).second)
                folders.push_back(item->parent());
        for (RyvPrmSubfolder* const folder : folders)
            move_.change.folders.push_back({folder, orderOf(*folder)});
        return std::move(move_);
    }

private:
    std::vector<RyvPrmItem*> find(const ItemAddress& address) {
        std::vector<RyvPrmItem*> items = finder_.find(address);
        if (items.empty() && !address.isSubfolder)
            if (RyvPrmFileDetails* const elsewhere = project_.findFile(address.name))
                items.push_back(elsewhere);
        return items;
    }

    /// Of several subfolders of one name, what is beside an item goes where that item is.
    void findAnchor() {
        target_ = place_.side == ItemPlace::Side::first ? targets_.front() : targets_.back();
        const bool isBefore = place_.side == ItemPlace::Side::before;
        if (!isBefore && place_.side != ItemPlace::Side::after)
            return;
        const std::vector<RyvPrmItem*> beside = finder_.find(place_.beside);
        if (beside.empty())
            return;
        anchor_ = isBefore ? beside.front() : beside.back();
        target_ = anchor_->parent();
    }

    std::vector<RyvPrmItem*> orderOf(const RyvPrmSubfolder& folder) const {
        std::vector<RyvPrmItem*> order;
        const auto come = [&] { order.insert(order.end(), moving_.begin(), moving_.end()); };
        const bool isTarget = &folder == target_;
        const bool isBefore = place_.side == ItemPlace::Side::before;
        if (isTarget && place_.side == ItemPlace::Side::first)
            come();
        for (const auto& item : folder.getItems()) {
            const bool isAnchor = isTarget && item.get() == anchor_;
            if (isAnchor && isBefore)
                come();
            if (!chosen_.contains(item.get()))
                order.push_back(item.get());
            if (isAnchor && !isBefore)
                come();
        }
        if (isTarget && !anchor_ && place_.side != ItemPlace::Side::first)
            come();
        return order;
    }

    const RyvPrmProjectData& project_;
    const ItemPlace& place_;
    ItemFinder finder_;
    std::vector<RyvPrmSubfolder*> targets_; // several when names differ in case
    RyvPrmSubfolder* target_ = nullptr;
    const RyvPrmItem* anchor_ = nullptr;
    ItemSet enclosing_; // the target and what it is in
    std::unordered_set<CString> names_;
    std::vector<RyvPrmItem*> moving_;
    ItemSet chosen_;
    ItemMove move_;
};

} // namespace

std::size_t ItemMove::subfolderCount() const {
    return static_cast<std::size_t>(
        std::count_if(items.begin(), items.end(), [](const ItemAddress& item) { return item.isSubfolder; }));
}

ItemMove planMove(
    const RyvPrmProjectData& project, const std::vector<ItemAddress>& items, const ItemPlace& place) {
    MovePlanner planner(project, place);
    for (const ItemAddress& item : items)
        planner.add(item);
    return planner.finish();
}

} // namespace ryv
