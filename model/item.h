// The entries of a project's tree: the polymorphic base of drawings and subfolders.
#pragma once

#include "base/export.h"

namespace ryv {

class RyvPrmFileDetails;
class RyvPrmItem;
class RyvPrmSubfolder;

/// The item as a drawing or subfolder, or null when it is not of that kind (or null itself).
RYV_EXPORT const RyvPrmFileDetails* asFileDetails(const RyvPrmItem* item) noexcept;
RYV_EXPORT const RyvPrmSubfolder* asSubfolder(const RyvPrmItem* item) noexcept;
RYV_EXPORT RyvPrmFileDetails* asFileDetails(RyvPrmItem* item) noexcept;
RYV_EXPORT RyvPrmSubfolder* asSubfolder(RyvPrmItem* item) noexcept;

/// An entry of the tree. It holds no content; its kind is found by asFileDetails() and asSubfolder(). An item
/// of neither kind may be made by deriving from this class and is skipped by every walk.
class RYV_EXPORT RyvPrmItem {
public:
    RyvPrmItem() = default;
    virtual ~RyvPrmItem() = default;

    /// The subfolder that owns this item (the project's private root for top-level items), or null for an
    /// item that is in no tree.
    RyvPrmSubfolder* parent() const noexcept { return parked_ ? nullptr : parent_; }

protected:
    enum class Kind : unsigned char { other, drawing, subfolder };

    explicit RyvPrmItem(Kind kind) noexcept : kind_(kind) {}

    // A copy has the same kind and is in no tree; assignment leaves the target where it is.
    RyvPrmItem(const RyvPrmItem& other) noexcept : kind_(other.kind_) {}
    // NOLINTNEXTLINE(bugprone-unhandled-self-assignment)
    RyvPrmItem& operator=(const RyvPrmItem&) noexcept { return *this; }

private:
    friend class RyvPrmSubfolder;
    friend const RyvPrmFileDetails* asFileDetails(const RyvPrmItem* item) noexcept;
    friend const RyvPrmSubfolder* asSubfolder(const RyvPrmItem* item) noexcept;

    RyvPrmSubfolder* parent_ = nullptr; // of a parked item, the subfolder that keeps it alive
    Kind kind_ = Kind::other;
    bool parked_ = false;
};

} // namespace ryv
