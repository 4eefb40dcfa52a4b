// A named folder of drawings and further subfolders.
#pragma once

#include "base/export.h"
#include "base/strings.h"
#include "model/item.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace ryv {

class ProjectIndex;

using RyvPrmItems = CArray<std::unique_ptr<RyvPrmItem>>;

/// A subfolder owns its items and destroys them with itself. Every change of a tree goes through the methods
/// here, which tell the project's index.
class RYV_EXPORT RyvPrmSubfolder : public RyvPrmItem {
public:
    RyvPrmSubfolder();
    explicit RyvPrmSubfolder(CString name);
    ~RyvPrmSubfolder() override;
    RyvPrmSubfolder(const RyvPrmSubfolder&) = delete;

    /// Deliberately shallow and lossy: takes the name over and leaves the target without items. The target's
    /// items are not destroyed by this (pointers to them stay valid until the target itself is destroyed),
    /// and the source's items are not copied.
    RyvPrmSubfolder& operator=(const RyvPrmSubfolder& other);

    /// One component of a trace; upper case when made by a reader.
    const CString& getName() const noexcept { return name_; }
    void setName(CString name);

    /// Drawings and subfolders in the order of display and file.
    const RyvPrmItems& getItems() const noexcept { return items_; }

    /// Appends an item and returns it; null is refused with std::invalid_argument.
    RyvPrmItem& add(std::unique_ptr<RyvPrmItem> item);

    /// Inserts an item in front of the one at `position`; a position outside 0..count throws
    /// std::invalid_argument.
    RyvPrmItem& insert(std::size_t position, std::unique_ptr<RyvPrmItem> item);

    /// Takes an item out; the caller owns it. A position outside the array, or an item that is not here,
    /// throws std::invalid_argument.
    std::unique_ptr<RyvPrmItem> take(std::size_t position);
    std::unique_ptr<RyvPrmItem> take(const RyvPrmItem& item);

    /// Takes out all items for which `chosen` (one entry an item) is set, in one pass; the rest keeps its
    /// order.
    std::vector<std::unique_ptr<RyvPrmItem>> takeAll(const std::vector<bool>& chosen);

    /// Destroys all items, however deep they are nested.
    void clear();

    /// Keeps items alive until this subfolder is destroyed: for what was unlinked but must stay valid.
    void park(std::unique_ptr<RyvPrmItem> item);

    /// Gives a parked item back to the caller, whichever subfolder keeps it; null when none does.
    static std::unique_ptr<RyvPrmItem> unpark(const RyvPrmItem& item);

    /// Exact comparison of the names and, in order, of the items; case counts.
    bool operator==(const RyvPrmSubfolder& other) const;

private:
    friend class ProjectIndex;
    friend class RyvPrmFileDetails;
    friend class RyvPrmProjectData;

    /// Sets the index for this subfolder and all below it.
    void joinIndex(ProjectIndex* index);
    static void leave(RyvPrmItem& item);
    std::size_t positionOf(const RyvPrmItem& item) const;
    static void destroy(std::vector<std::unique_ptr<RyvPrmItem>> items);

    CString name_;
    RyvPrmItems items_;
    std::vector<std::unique_ptr<RyvPrmItem>> parked_;
    ProjectIndex* index_ = nullptr; // of the project whose tree this is in, or null
    std::uint64_t traceHash_ = 0;   // kept by the index; 0: not reachable by a trace
};

} // namespace ryv
