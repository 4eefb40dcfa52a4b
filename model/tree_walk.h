// A walk over a tree that does not recurse: the depth of a project's subfolders comes from outside.
#pragma once

#include "model/file_details.h"
#include "model/subfolder.h"

#include <vector>

namespace ryv {

/// Gives the items below a subfolder depth first, in array order, a subfolder in front of its items. The tree
/// must not change meanwhile.
class TreeWalk {
public:
    explicit TreeWalk(const RyvPrmSubfolder& top) { levels_.push_back({&top, 0}); }

    /// The next item, or null at the end.
    RyvPrmItem* next() {
        while (!levels_.empty()) {
            Level& level = levels_.back();
            const auto& items = level.subfolder->getItems();
            if (level.position == items.size()) {
                levels_.pop_back();
                continue;
            }
            RyvPrmItem* const item = items.begin()[static_cast<std::ptrdiff_t>(level.position++)].get();
            last_ = asSubfolder(item);
            if (last_)
                levels_.push_back({last_, 0});
            return item;
        }
        return nullptr;
    }

    /// The next drawing, or null at the end.
    RyvPrmFileDetails* nextDrawing() {
        while (RyvPrmItem* const item = next())
            if (RyvPrmFileDetails* const drawing = asFileDetails(item))
                return drawing;
        return nullptr;
    }

    /// Leaves out what lies in the subfolder that next() has just given.
    void skipItems() {
        if (last_)
            levels_.pop_back();
        last_ = nullptr;
    }

    /// How many subfolders enclose the next item.
    std::size_t depth() const noexcept { return levels_.size(); }

private:
    struct Level {
        const RyvPrmSubfolder* subfolder;
        std::size_t position;
    };
    std::vector<Level> levels_;
    const RyvPrmSubfolder* last_ = nullptr;
};

} // namespace ryv
