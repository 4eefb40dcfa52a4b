#include "ui/tree/arrangement.h"

#include "model/tree_walk.h"
#include "siblings/file_content.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

namespace ryv {

namespace {

std::uint64_t textHash(CStringView text) noexcept {
    return contentHash({reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t)});
}

/// The positions that lead to a folder, from the top level on.
std::vector<std::size_t> pathOf(const RyvPrmSubfolder& folder) {
    std::vector<std::size_t> path;
    for (const RyvPrmSubfolder* at = &folder; at->parent(); at = at->parent()) {
        const RyvPrmItems& items = at->parent()->getItems();
        std::size_t position = 0;
        while (items[position].get() != at)
            ++position;
        path.push_back(position);
    }
    std::reverse(path.begin(), path.end());
    return path;
}

RyvPrmItem* itemAt(const RyvPrmSubfolder& folder, std::size_t position) {
    const RyvPrmItems& items = folder.getItems();
    return position < items.size() ? items[position].get() : nullptr;
}

/// Null when something else is there.
RyvPrmSubfolder* folderAt(const RyvPrmProjectData& project, const std::vector<std::size_t>& path) {
    RyvPrmSubfolder* folder = project.getProjFileDetails().front()->parent();
    for (auto position = path.begin(); folder && position != path.end(); ++position)
        folder = asSubfolder(itemAt(*folder, *position));
    return folder;
}

std::vector<RyvPrmItem*> itemsOf(const RyvPrmSubfolder& folder) {
    std::vector<RyvPrmItem*> items;
    for (const auto& item : folder.getItems())
        items.push_back(item.get());
    return items;
}

} // namespace

/// Items depth first, each with the number of subfolders that enclose it, are exactly one tree. The depth is
/// known only when the walk has come to the item: before, it may still be in subfolders that have ended.
std::uint64_t arrangementHash(const RyvPrmProjectData& project) {
    std::uint64_t hash = 0;
    if (project.getProjFileDetails().empty())
        return hash;
    TreeWalk walk(*project.getProjFileDetails().front()->parent());
    while (const RyvPrmItem* const item = walk.next()) {
        const RyvPrmFileDetails* const drawing = asFileDetails(item);
        const RyvPrmSubfolder* const subfolder = asSubfolder(item);
        const std::uint64_t name = drawing     ? textHash(drawing->getFileName())
                                   : subfolder ? textHash(subfolder->getName())
                                               : 0;
        const std::uint64_t depth = walk.depth() - (subfolder ? 1 : 0);
        const std::uint64_t parts[] = {hash, name, depth * 2 + (drawing ? 1 : 0)};
        hash = contentHash({reinterpret_cast<const char*>(parts), sizeof parts});
    }
    return hash;
}

bool Rearrangement::changesAnything() const {
    return std::any_of(folders.begin(), folders.end(),
        [](const Folder& each) { return itemsOf(*each.folder) != each.items; });
}

bool Rearrangement::isComplete() const {
    std::unordered_set<const RyvPrmItem*> held;
    for (const Folder& each : folders)
        for (const auto& item : each.folder->getItems())
            held.insert(item.get());
    for (const Folder& each : folders)
        for (const RyvPrmItem* const item : each.items)
            if (held.erase(item) == 0)
                return false;
    return held.empty();
}

bool Rearrangement::apply() const {
    if (!isComplete())
        return false;
    std::unordered_map<const RyvPrmItem*, std::unique_ptr<RyvPrmItem>> owned;
    for (const Folder& each : folders)
        for (auto& item : each.folder->takeAll(std::vector<bool>(each.folder->getItems().size(), true)))
            owned.emplace(item.get(), std::move(item));
    for (const Folder& each : folders)
        for (const RyvPrmItem* const item : each.items)
            each.folder->add(std::move(owned.at(item)));
    return true;
}

std::optional<AppliedRearrangement> AppliedRearrangement::apply(
    const Rearrangement& change, const RyvPrmProjectData& project) {
    std::vector<std::vector<RyvPrmItem*>> before;
    for (const Rearrangement::Folder& each : change.folders)
        before.push_back(itemsOf(*each.folder));
    if (!change.apply())
        return std::nullopt;
    AppliedRearrangement applied;
    std::unordered_map<const RyvPrmItem*, Spot> spots;
    for (std::size_t number = 0; number < change.folders.size(); ++number)
        for (std::size_t position = 0; position < change.folders[number].items.size(); ++position)
            spots.emplace(change.folders[number].items[position], Spot{number, position});
    for (std::size_t number = 0; number < change.folders.size(); ++number) {
        Folder& folder = applied.folders_.emplace_back(Folder{pathOf(*change.folders[number].folder), {}});
        for (const RyvPrmItem* const item : before[number])
            folder.items.push_back(spots.at(item));
    }
    applied.after_ = arrangementHash(project);
    return applied;
}

std::optional<Rearrangement> AppliedRearrangement::reverse(const RyvPrmProjectData& project) const {
    if (project.getProjFileDetails().empty() || !isLatest(project))
        return std::nullopt;
    Rearrangement back;
    for (const Folder& folder : folders_) {
        RyvPrmSubfolder* const there = folderAt(project, folder.path);
        if (!there)
            return std::nullopt;
        back.folders.push_back({there, {}});
    }
    for (std::size_t number = 0; number < folders_.size(); ++number)
        for (const Spot& spot : folders_[number].items)
            back.folders[number].items.push_back(itemAt(*back.folders[spot.folder].folder, spot.position));
    if (!back.isComplete())
        return std::nullopt;
    return back;
}

} // namespace ryv
