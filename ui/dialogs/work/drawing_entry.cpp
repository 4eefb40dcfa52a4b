#include "ui/dialogs/work/drawing_entry.h"

#include "manager/details_change.h"

namespace ryv {

/// Where the entry still says what the change made of it, what was there before; all else as it is now.
RyvPrmFileDetails DrawingEntry::without(const Change& change, const RyvPrmFileDetails& entry) {
    MergeConflicts ignored;
    return mergeDetails(change.after, change.before, entry, ignored);
}

bool DrawingEntry::isToBeStored(const RyvPrmFileDetails& before, const RyvPrmFileDetails& edited) const {
    MergeConflicts ignored;
    return stays_ || !(mergeDetails(before, edited, before, ignored) == before);
}

StoreResult DrawingEntry::store(const RyvPrmFileDetails& before, const RyvPrmFileDetails& edited) {
    last_.reset();
    conflicts_ = {};
    isGone_ = false;
    if (!isToBeStored(before, edited))
        return {};
    return store_.store([&](RyvPrmProject& project) { return change(project, before, edited); },
        [this](RyvPrmProject& project) { undo(project); });
}

bool DrawingEntry::change(
    const RyvPrmProject& project, const RyvPrmFileDetails& before, const RyvPrmFileDetails& edited) {
    const RyvPrmFileDetails* const entry = project.getProjectData().findFile(drawing_);
    isGone_ = !entry;
    conflicts_ = {};
    if (!entry)
        return false;
    const RyvPrmFileDetails theirs = stays_ ? without(*stays_, *entry) : *entry;
    const RyvPrmFileDetails merged = mergeDetails(before, edited, theirs, conflicts_);
    last_ = std::make_unique<const Change>(Change{theirs, merged});
    return !(merged == *entry) && changeDetailsInMemory(merged, projectId_);
}

bool DrawingEntry::undo(const RyvPrmProject& project) const {
    const RyvPrmFileDetails* const entry = project.getProjectData().findFile(drawing_);
    if (!entry || !last_)
        return false;
    const RyvPrmFileDetails before = without(*last_, *entry);
    return !(before == *entry) && changeDetailsInMemory(before, projectId_);
}

bool DrawingEntry::takeBack() {
    if (!last_)
        return true;
    const StoreResult result =
        store_.store([this](RyvPrmProject& project) { return undo(project); }, [](RyvPrmProject&) {});
    stays_ = result.ok() ? nullptr : std::move(last_);
    return result.ok();
}

} // namespace ryv
