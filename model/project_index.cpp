#include "model/project_index.h"

#include "base/fold.h"
#include "model/trace.h"
#include "model/tree_walk.h"

#include <algorithm>
#include <chrono>

namespace ryv {

namespace {

constexpr std::uint64_t rootHash = 0x52A1E7F3C0B94D86u;

/// Hash of a subfolder from its parent's hash and its name; never 0, which marks a subfolder that no trace
/// reaches.
std::uint64_t step(std::uint64_t parent, CStringView name, std::uint64_t key) noexcept {
    const std::uint64_t mixed = (parent * 0x9E3779B97F4A7C15u) ^ hashNoCase(name, key);
    return (mixed ^ (mixed >> 29)) | (std::uint64_t{1} << 63);
}

bool hasSubfolders(const RyvPrmSubfolder& subfolder) {
    return std::any_of(subfolder.getItems().begin(), subfolder.getItems().end(),
        [](const auto& item) { return asSubfolder(item.get()) != nullptr; });
}

/// The first subfolder of that name by looking at each, for subfolders that the table does not know.
RyvPrmSubfolder* searchChild(const RyvPrmSubfolder& parent, CStringView name) {
    for (const auto& item : parent.getItems())
        if (RyvPrmSubfolder* const subfolder = asSubfolder(item.get()))
            if (equalNoCase(subfolder->getName(), name))
                return subfolder;
    return nullptr;
}

} // namespace

ProjectIndex::ProjectIndex(const RyvPrmSubfolder& root)
    : root_(root),
      key_(static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count()) ^
           (static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(this)) << 20)) {}

ProjectIndex::Drawings& ProjectIndex::drawings() {
    if (!drawings_)
        buildDrawings();
    return *drawings_;
}

ProjectIndex::Subfolders& ProjectIndex::subfolders() {
    if (!subfolders_)
        buildSubfolders();
    return *subfolders_;
}

void ProjectIndex::buildDrawings() {
    std::size_t count = 0;
    for (TreeWalk walk(root_); walk.nextDrawing();)
        ++count;
    drawings_.emplace(count);
    TreeWalk walk(root_);
    while (RyvPrmFileDetails* const drawing = walk.nextDrawing()) {
        if (Drawings::Slot* const first = drawingSlot(drawing->getFileName()))
            first->markDuplicate();
        else
            drawings_->insert(hashNoCase(drawing->getFileName(), key_), *drawing);
    }
}

void ProjectIndex::buildSubfolders() {
    subfolders_.emplace();
    TreeWalk walk(root_);
    while (RyvPrmItem* const item = walk.next()) {
        RyvPrmSubfolder* const subfolder = asSubfolder(item);
        if (subfolder && !enterSubfolder(*subfolder))
            if (Subfolders::Slot* const first = childSlot(*subfolder->parent(), subfolder->getName()))
                first->markDuplicate();
    }
}

/// A subfolder that is not in this tree has no hash here, whatever it had before it left.
std::uint64_t ProjectIndex::hashOf(const RyvPrmSubfolder& subfolder) const noexcept {
    if (&subfolder == &root_)
        return rootHash;
    return subfolder.index_ == this ? subfolder.traceHash_ : 0;
}

/// Enters a subfolder unless it is hidden from traces: by an equal name in front of it, by a hidden parent,
/// or by having no name. Subfolders below a hidden one are hidden with it, as a search level by level would
/// not reach them.
bool ProjectIndex::enterSubfolder(RyvPrmSubfolder& subfolder) {
    const RyvPrmSubfolder& parent = *subfolder.parent();
    subfolder.traceHash_ = 0;
    if (hashOf(parent) == 0 || subfolder.getName().empty() || childSlot(parent, subfolder.getName()))
        return false;
    subfolder.traceHash_ = step(hashOf(parent), subfolder.getName(), key_);
    subfolders_->insert(subfolder.traceHash_, subfolder);
    return true;
}

ProjectIndex::Drawings::Slot* ProjectIndex::drawingSlot(CStringView name) {
    return drawings_->find(hashNoCase(name, key_),
        [name](const RyvPrmFileDetails& drawing) { return equalNoCase(drawing.getFileName(), name); });
}

ProjectIndex::Subfolders::Slot* ProjectIndex::childSlot(const RyvPrmSubfolder& parent, CStringView name) {
    if (hashOf(parent) == 0)
        return nullptr;
    return subfolders_->find(step(hashOf(parent), name, key_), [&](const RyvPrmSubfolder& subfolder) {
        return subfolder.parent() == &parent && equalNoCase(subfolder.getName(), name);
    });
}

ProjectIndex::Subfolders::Slot* ProjectIndex::slotOf(const RyvPrmSubfolder& subfolder) {
    return subfolders_->find(
        subfolder.traceHash_, [&](const RyvPrmSubfolder& candidate) { return &candidate == &subfolder; });
}

RyvPrmFileDetails* ProjectIndex::findDrawing(CStringView name) {
    drawings();
    const Drawings::Slot* const slot = drawingSlot(name);
    return slot ? slot->item : nullptr;
}

RyvPrmSubfolder* ProjectIndex::findChild(const RyvPrmSubfolder& parent, CStringView name) {
    subfolders();
    if (hashOf(parent) == 0)
        return searchChild(parent, name);
    const Subfolders::Slot* const slot = childSlot(parent, name);
    return slot ? slot->item : nullptr;
}

RyvPrmSubfolder* ProjectIndex::findSubfolder(const RyvPrmSubfolder& start, CStringView trace) {
    subfolders();
    TraceComponents components(trace);
    if (hashOf(start) == 0) {
        const RyvPrmSubfolder* level = &start;
        RyvPrmSubfolder* found = nullptr;
        for (CStringView name = components.next(); !name.empty() && level; name = components.next())
            level = found = searchChild(*level, name);
        return found;
    }
    std::uint64_t hash = hashOf(start);
    std::size_t count = 0;
    for (CStringView name = components.next(); !name.empty(); name = components.next(), ++count)
        hash = step(hash, name, key_);
    if (count == 0)
        return nullptr;
    const Subfolders::Slot* const slot = subfolders_->find(
        hash, [&](const RyvPrmSubfolder& candidate) { return matchesTrace(candidate, start, trace); });
    return slot ? slot->item : nullptr;
}

/// Compares the names from the found subfolder upwards with the trace from its end on.
bool ProjectIndex::matchesTrace(
    const RyvPrmSubfolder& found, const RyvPrmSubfolder& start, CStringView trace) const noexcept {
    const RyvPrmSubfolder* level = &found;
    while (!trace.empty()) {
        const std::size_t slash = trace.rfind(u'/');
        const CStringView name = slash == CStringView::npos ? trace : trace.substr(slash + 1);
        trace = slash == CStringView::npos ? CStringView() : trace.substr(0, slash);
        if (name.empty())
            continue;
        if (level == &start || level == &root_ || !equalNoCase(level->getName(), name))
            return false;
        level = level->parent();
    }
    return level == &start;
}

void ProjectIndex::added(RyvPrmItem& item, bool last) {
    if (RyvPrmFileDetails* const drawing = asFileDetails(&item))
        addedDrawing(*drawing, last && item.parent() == &root_);
    else if (RyvPrmSubfolder* const subfolder = asSubfolder(&item))
        addedSubfolder(*subfolder, last);
}

void ProjectIndex::addedDrawing(RyvPrmFileDetails& drawing, bool lastOfAll) {
    if (!drawings_)
        return;
    Drawings::Slot* const first = drawingSlot(drawing.getFileName());
    if (!first)
        drawings_->insert(hashNoCase(drawing.getFileName(), key_), drawing);
    else if (lastOfAll)
        first->markDuplicate();
    else
        drawings_.reset();
}

void ProjectIndex::addedSubfolder(RyvPrmSubfolder& subfolder, bool last) {
    if (!subfolder.getItems().empty())
        drawings_.reset();
    if (!subfolders_)
        return;
    if (hasSubfolders(subfolder)) {
        subfolders_.reset();
        return;
    }
    if (enterSubfolder(subfolder) || subfolder.getName().empty())
        return;
    if (Subfolders::Slot* const first = childSlot(*subfolder.parent(), subfolder.getName())) {
        if (last)
            first->markDuplicate();
        else
            subfolders_.reset();
    }
}

void ProjectIndex::aboutToRemove(const RyvPrmItem& item) {
    if (const RyvPrmFileDetails* const drawing = asFileDetails(&item))
        removeDrawing(*drawing);
    else if (const RyvPrmSubfolder* const subfolder = asSubfolder(&item))
        removeSubfolder(*subfolder);
}

void ProjectIndex::removeDrawing(const RyvPrmFileDetails& drawing) {
    Drawings::Slot* const slot = drawings_ ? drawingSlot(drawing.getFileName()) : nullptr;
    if (!slot || slot->item != &drawing)
        return;
    if (slot->hasDuplicate())
        drawings_.reset();
    else
        drawings_->erase(slot);
}

void ProjectIndex::removeSubfolder(const RyvPrmSubfolder& subfolder) {
    if (!subfolder.getItems().empty())
        drawings_.reset();
    if (!subfolders_ || subfolder.traceHash_ == 0)
        return;
    if (slotOf(subfolder)->hasDuplicate()) {
        subfolders_.reset();
        return;
    }
    TreeWalk walk(subfolder);
    while (RyvPrmItem* const item = walk.next())
        if (const RyvPrmSubfolder* const below = asSubfolder(item); below && below->traceHash_ != 0)
            subfolders_->erase(slotOf(*below));
    subfolders_->erase(slotOf(subfolder));
}

void ProjectIndex::aboutToRename(RyvPrmFileDetails& drawing, CStringView newName) {
    if (!drawings_ || equalNoCase(drawing.getFileName(), newName))
        return;
    Drawings::Slot* const slot = drawingSlot(drawing.getFileName());
    if (!slot || slot->item != &drawing || slot->hasDuplicate() || drawingSlot(newName)) {
        drawings_.reset();
        return;
    }
    drawings_->erase(slot);
    drawings_->insert(hashNoCase(newName, key_), drawing);
}

void ProjectIndex::drop() {
    drawings_.reset();
    subfolders_.reset();
}

} // namespace ryv
