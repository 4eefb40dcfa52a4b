// Dragging drawings and subfolders to another place in their project.
#include "ui/tree/project_tree.h"

#include "base/fold.h"
#include "base/format.h"
#include "resources/message_numbers.h"
#include "resources/messages.h"
#include "ui/tree/drop_place.h"
#include "ui/tree/item_move.h"
#include "ui/tree/item_selection.h"
#include "ui/tree/project_work.h"
#include "ui/tree/row_adoption.h"
#include "ui/tree/task_questions.h"

#include <algorithm>
#include <utility>

namespace ryv {

/// A move that the user may take back.
struct CProjectTree::MoveOffer {
    CString projectId;
    AppliedRearrangement change;
};

namespace {

/// From so many drawings on, putting them back by hand is work.
constexpr std::size_t manyDrawings = 11;

bool canBeDragged(const TreeItem* row) {
    const TreeItemType type = CProjectTree::GetItemType(row);
    return type == TreeItemType::drawing || type == TreeItemType::subfolder;
}

bool isBelowSelected(const TreeItem& row) {
    const TreeItem* above = row.parent();
    while (above && !above->selected())
        above = above->parent();
    return above != nullptr;
}

DropRelation relationOf(const TreeItem& target, const std::vector<TreeItem*>& dragged) {
    for (const TreeItem* at = &target; at; at = at->parent())
        if (at->selected())
            return DropRelation::ownChild;
    const TreeItem* const project = CProjectTree::GetProjectItemFromItem(&target);
    const bool same = std::all_of(dragged.begin(), dragged.end(),
        [&](const TreeItem* row) { return CProjectTree::GetProjectItemFromItem(row) == project; });
    return same ? DropRelation::sameProject : DropRelation::otherProject;
}

Landing landingOn(const TreeItem* target, DropPosition position, const std::vector<TreeItem*>& dragged) {
    if (!target)
        return landingOf({}, position);
    return landingOf({CProjectTree::GetItemType(target), relationOf(*target, dragged),
                         target->expanded() && target->shownChildCount() > 0},
        position);
}

ItemPlace placeOf(const TreeItem& target, Landing landing) {
    using Side = ItemPlace::Side;
    if (landing == Landing::first || landing == Landing::last)
        return {CProjectTree::GetSubfolderTraceForItem(&target, false),
            landing == Landing::first ? Side::first : Side::last, {}};
    return {CProjectTree::GetSubfolderTraceForItem(target.parent(), false),
        landing == Landing::before ? Side::before : Side::after, RowFinder().addressOf(target)};
}

CStringArray tracesOf(const Rearrangement& change) {
    CStringArray traces;
    for (const Rearrangement::Folder& each : change.folders)
        traces.push_back(traceOf(*each.folder));
    return traces;
}

CString joinLines(const CStringArray& lines) {
    CString text;
    for (const CString& line : lines)
        text.append(text.empty() ? u"" : u"\n").append(line);
    return text;
}

} // namespace

/// Asked at each step of the pointer, so it looks at the selected rows as they are kept, not for the topmost
/// ones in the whole tree: what is below another selected row goes with it.
bool CProjectTree::IsValidDragDrop(const TreeItem* target, DropPosition position) const {
    const std::vector<TreeItem*>& rows = selection();
    if (rows.empty() || !std::all_of(rows.begin(), rows.end(), canBeDragged) ||
        landingOn(target, position, rows) == Landing::nowhere)
        return false;
    return position != DropPosition::onto ||
           std::any_of(rows.begin(), rows.end(),
               [target](const TreeItem* row) { return row->parent() != target && !isBelowSelected(*row); });
}

/// What is dragged is known by name from here on: rows may come and go under the pointer.
bool CProjectTree::onBeginDrag() {
    const std::vector<TreeItem*> rows = topmostSelected();
    const CString projectId = rows.empty() ? CString() : GetProjectOfItem(rows.front());
    draggedItems_.clear();
    RowFinder finder;
    for (const TreeItem* const row : rows) {
        if (!canBeDragged(row) || !equalNoCase(GetProjectOfItem(row), projectId))
            return false;
        draggedItems_.push_back(finder.addressOf(*row));
    }
    draggedFrom_ = projectId;
    return !rows.empty();
}

bool CProjectTree::onDragOver(TreeItem* target, DropPosition position) {
    return IsValidDragDrop(target, position);
}

void CProjectTree::onDrop(TreeItem* target, DropPosition position) {
    if (!target || !IsValidDragDrop(target, position))
        return;
    if (!equalNoCase(GetProjectOfItem(target), draggedFrom_))
        return onDropLost();
    notice_.clearUnlessOffering();
    const ItemPlace place = placeOf(*target, landingOn(target, position, selection()));
    moveItems(CString(draggedFrom_), std::exchange(draggedItems_, {}), place);
}

void CProjectTree::onDropLost() {
    notice_.tell(CString(messageText(message::movedItemsGone)));
}

void CProjectTree::moveItems(
    const CString& projectId, const std::vector<ItemAddress>& items, const ItemPlace& place) {
    const AtWork atWorkUntilAllIsTold = atWork();
    const auto open = ProjectWork(*this, projectId).project();
    if (!open)
        return onDropLost();
    if (const ItemMove idle = planMove(open->getProjectData(), items, place);
        !idle.items.empty() && !idle.change.changesAnything() && idle.namesTaken.empty())
        return; // they are there already
    ItemMove move;
    std::shared_ptr<MoveOffer> offer;
    {
        ProjectWork work(*this, projectId);
        if (!work.lock())
            return;
        const SuppressReread rowsFollow(*this);
        const auto project = work.project();
        if (!project)
            return;
        move = planMove(project->getProjectData(), items, place);
        if (move.items.empty() && move.namesTaken.empty())
            return notice_.tell(CString(messageText(message::movedItemsGone)));
        if (move.change.changesAnything()) {
            RyvPrmProjectData& data = project->editProjectData();
            auto applied = AppliedRearrangement::apply(move.change, data);
            if (!applied || !followAfterWriting(work, move.change))
                return;
            offer = std::make_shared<MoveOffer>(MoveOffer{projectId, std::move(*applied)});
        }
    }
    selectItems(*this, projectId, place.folder, move.items);
    if (offer)
        offerToTakeBack(offer, tellingOf(projectId, place.folder, move));
    if (!move.namesTaken.empty())
        askTask(u"RyvPageMan.SubfolderNotMoved", {{u"Subfolders", joinLines(move.namesTaken)}});
}

/// Rows that go to another subfolder keep what the user sees of them; their order is put right with the rest
/// of the project.
bool CProjectTree::followAfterWriting(ProjectWork& work, const Rearrangement& change) {
    const CStringArray traces = tracesOf(change);
    if (!work.write())
        return false;
    const auto project = work.project();
    TreeItem* const projectItem = GetProjectItem(work.projectId());
    if (project && projectItem)
        adoptRows(*this, *projectItem, project->getProjectData(), traces);
    return true;
}

/// Empty for a move that is put right by hand as fast.
CString CProjectTree::tellingOf(const CString& projectId, const CString& folder, const ItemMove& move) {
    const std::size_t subfolders = move.subfolderCount();
    if (subfolders == 0 && move.items.size() < manyDrawings)
        return {};
    CString place(CStringView(folder).substr(folder.rfind(u'/') + 1)); // npos + 1 is 0
    if (const RyvPrmProjectManager* const manager = GetProjectManager(); manager && folder.empty())
        manager->makeProjectPrettyNameFromID(projectId, place);
    if (move.items.size() == 1)
        return format(messageText(message::subfolderMoved), {move.items.front().name, place});
    return format(messageText(subfolders == 0 ? message::drawingsMoved : message::itemsMoved),
        {move.items.size(), place});
}

void CProjectTree::offerToTakeBack(const std::shared_ptr<MoveOffer>& offer, const CString& text) {
    if (text.empty())
        return;
    notice_.tell(text, CString(messageText(message::takeBack)), [this, offer] { takeBack(offer); });
    moveOffer_ = offer;
}

void CProjectTree::takeBack(const std::shared_ptr<MoveOffer>& offer) {
    moveOffer_.reset();
    ProjectWork work(*this, offer->projectId);
    if (!work.lock()) { // who is in the way may be gone soon
        if (work.project())
            offerToTakeBack(offer, CString(notice_.text()));
        return;
    }
    const SuppressReread rowsFollow(*this);
    const auto project = work.project();
    if (!project)
        return;
    const std::optional<Rearrangement> change = offer->change.reverse(project->getProjectData());
    if (!change) {
        notice_.tell(CString(messageText(message::moveNotTakenBack)));
        return;
    }
    project->editProjectData();
    if (change->apply())
        followAfterWriting(work, *change);
}

/// An offer lasts as long as the project is arranged as the move left it.
void CProjectTree::withdrawMoveOffer(CStringView projectId) {
    const std::shared_ptr<MoveOffer> offer = moveOffer_.lock();
    if (!offer || !equalNoCase(offer->projectId, projectId))
        return;
    const RyvPrmProjectManager* const manager = GetProjectManager();
    const RyvPrmProject* const project = manager ? manager->getProject(projectId) : nullptr;
    if (!project || !offer->change.isLatest(project->getProjectData()))
        notice_.clear();
}

} // namespace ryv
