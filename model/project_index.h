// Finds drawings by path and subfolders by trace without walking the tree.
#pragma once

#include "base/strings.h"
#include "model/hash_table.h"

#include <cstdint>
#include <optional>

namespace ryv {

class RyvPrmFileDetails;
class RyvPrmItem;
class RyvPrmSubfolder;

/// Both tables are absent or exact. Each is built by one walk at the first look-up that needs it, kept by
/// changes that cannot disturb which of several equal names comes first in depth-first order, and dropped by
/// all others.
class ProjectIndex {
public:
    /// `root` is the project's tree and outlives the index.
    explicit ProjectIndex(const RyvPrmSubfolder& root);

    /// The first drawing of that file name, depth first, or null.
    RyvPrmFileDetails* findDrawing(CStringView name);

    /// The subfolder of a trace below `start`, taking the first of each name at each level, or null.
    RyvPrmSubfolder* findSubfolder(const RyvPrmSubfolder& start, CStringView trace);

    /// The first subfolder of that name directly in `parent`, or null.
    RyvPrmSubfolder* findChild(const RyvPrmSubfolder& parent, CStringView name);

    // What the tree tells: an item was placed (`last`: at the end of its subfolder), is about to leave, to be
    // renamed.
    void added(RyvPrmItem& item, bool last);
    void aboutToRemove(const RyvPrmItem& item);
    void aboutToRename(RyvPrmFileDetails& drawing, CStringView newName);
    void subfoldersChanged() { subfolders_.reset(); }
    void drop();

private:
    using Drawings = HashTable<RyvPrmFileDetails>;
    using Subfolders = HashTable<RyvPrmSubfolder>;

    Drawings& drawings();
    Subfolders& subfolders();
    void buildDrawings();
    void buildSubfolders();
    Drawings::Slot* drawingSlot(CStringView name);
    Subfolders::Slot* childSlot(const RyvPrmSubfolder& parent, CStringView name);
    Subfolders::Slot* slotOf(const RyvPrmSubfolder& subfolder);
    std::uint64_t hashOf(const RyvPrmSubfolder& subfolder) const noexcept;
    bool enterSubfolder(RyvPrmSubfolder& subfolder);
    void addedDrawing(RyvPrmFileDetails& drawing, bool lastOfAll);
    void addedSubfolder(RyvPrmSubfolder& subfolder, bool last);
    void removeDrawing(const RyvPrmFileDetails& drawing);
    void removeSubfolder(const RyvPrmSubfolder& subfolder);
    bool matchesTrace(
        const RyvPrmSubfolder& found, const RyvPrmSubfolder& start, CStringView trace) const noexcept;

    const RyvPrmSubfolder& root_;
    const std::uint64_t key_; // of the hashes; different in every index
    std::optional<Drawings> drawings_;
    std::optional<Subfolders> subfolders_;
};

} // namespace ryv
