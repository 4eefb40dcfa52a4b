// The entry of a drawing in its project, as the drawing's properties change it.
#pragma once

#include "ui/dialogs/work/project_store.h"
#include "ui/dialogs/work/value_merge.h"

#include <memory>

namespace ryv {

/// Stores what a user has made of the entry, and can take that back. Whoever uses it has locked the project.
class DrawingEntry {
public:
    DrawingEntry(CStringView drawing, CStringView projectId)
        : drawing_(drawing), projectId_(projectId), store_(projectId) {}

    /// Whether there is anything to be stored: the user has edited the entry, or an earlier change could not
    /// be taken back.
    bool isToBeStored(const RyvPrmFileDetails& before, const RyvPrmFileDetails& edited) const;

    /// Puts the difference between both into the entry as it is now. A drawing that has left the project
    /// meanwhile has no entry, which is no failure: see isGone(). May call LISP and fire events.
    [[nodiscard]] StoreResult store(const RyvPrmFileDetails& before, const RyvPrmFileDetails& edited);

    /// Takes the last store() back; what others have changed since stays. False when the project's file
    /// cannot be brought back to what it said: the next store() begins from that, too. May call LISP and fire
    /// events.
    [[nodiscard]] bool takeBack();

    /// Whether the last store() had something to store and found no entry for it.
    bool isGone() const noexcept { return isGone_; }
    /// What the last store() found changed by others, too.
    const MergeConflicts& conflicts() const noexcept { return conflicts_; }

private:
    /// What the entry said, and what it was made to say.
    struct Change {
        RyvPrmFileDetails before;
        RyvPrmFileDetails after;
    };
    static RyvPrmFileDetails without(const Change& change, const RyvPrmFileDetails& entry);
    bool change(
        const RyvPrmProject& project, const RyvPrmFileDetails& before, const RyvPrmFileDetails& edited);
    bool undo(const RyvPrmProject& project) const;

    CString drawing_;
    CString projectId_;
    ProjectStore store_;
    std::unique_ptr<const Change> last_;
    std::unique_ptr<const Change> stays_; // one that could not be taken back
    MergeConflicts conflicts_;
    bool isGone_ = false;
};

} // namespace ryv
