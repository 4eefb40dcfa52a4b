// The order of a project's drawings and subfolders: sorting and flattening.

#include "bridge/project_calls.h"
#include "resources/task_buttons.h"
#include "toolkit/tree_rows.h"
#include "ui/tree/item_address.h"
#include "ui/tree/project_work.h"
#include "ui/tree/row_name.h"
#include "ui/tree/task_questions.h"

#include <algorithm>
#include <unordered_set>

namespace ryv {

namespace {

/// Where subfolders go, and on which levels.
struct Sorting {
    bool subfoldersFirst = true;
    bool below = false; ///< also on every level below the chosen ones
};

std::optional<Sorting> askSorting() {
    const int answer = askTask(u"RyvPageMan.MoveSubfoldersAfterSorting");
    switch (answer) {
    case task_button::subfoldersFirst:
    case task_button::subfoldersFirstBelow:
        return Sorting{true, answer == task_button::subfoldersFirstBelow};
    case task_button::drawingsFirst:
    case task_button::drawingsFirstBelow:
        return Sorting{false, answer == task_button::drawingsFirstBelow};
    default:
        return std::nullopt;
    }
}

bool isSubfolderRow(const TreeItem& item) {
    return CProjectTree::GetItemType(&item) == TreeItemType::subfolder;
}

bool holdsBothKinds(const TreeItem* item) {
    bool subfolders = false;
    bool drawings = false;
    for (const TreeItem* child = item->firstChild(); child; child = child->next())
        (isSubfolderRow(*child) ? subfolders : drawings) = true;
    return subfolders && drawings;
}

/// The chosen levels as traces, each once; the project itself is the empty one.
CStringArray levelsOf(const CProjectTree& tree, bool below) {
    CStringArray levels;
    std::unordered_set<CString> known;
    const auto add = [&](const CString& trace) {
        if (known.insert(trace).second)
            levels.push_back(trace);
    };
    for (const TreeItem* row : tree.selection()) {
        add(CProjectTree::GetSubfolderTraceForItem(row));
        if (below)
            for (const CString& trace : CProjectTree::GetChildSubfolderTraces(*row))
                add(trace);
    }
    return levels;
}

/// Subfolders keep their order among themselves, and so do drawings.
void RepositionSubfoldersAtSameLevel(RyvPrmSubfolder& level, bool subfoldersFirst) {
    auto items = level.takeAll(std::vector<bool>(level.getItems().size(), true));
    std::stable_partition(items.begin(), items.end(), [subfoldersFirst](const auto& item) {
        return (asSubfolder(item.get()) != nullptr) == subfoldersFirst;
    });
    for (auto& item : items)
        level.add(std::move(item));
}

/// In the project itself: its rows may be brought up to date only later.
void reposition(RyvPrmProjectData& project, const CStringArray& levels, bool subfoldersFirst) {
    for (const CString& trace : levels)
        for (RyvPrmSubfolder* const level : foldersOf(project, trace))
            RepositionSubfoldersAtSameLevel(*level, subfoldersFirst);
}

bool hasAll(const RyvPrmProjectData& project, const CStringArray& levels) {
    return std::all_of(levels.begin(), levels.end(),
        [&project](const CString& trace) { return trace.empty() || project.findSubfolder(trace); });
}

/// The project's drawings in their order, to lie side by side.
CArray<RyvPrmItem*> CopyDwgItems(const RyvPrmProject& project) {
    CArray<RyvPrmFileDetails*> drawings;
    project.getProjectData().generateFlatFileDetailsArray(drawings);
    return CArray<RyvPrmItem*>(drawings.begin(), drawings.end());
}

std::unique_ptr<RyvPrmItem> itemOf(const TreeItem& row) {
    if (const auto* const drawing = dynamic_cast<const _dwgdatastruct*>(row.data()))
        return std::make_unique<RyvPrmFileDetails>(drawing->details);
    if (const auto* const subfolder = dynamic_cast<const _subfolderdatastruct*>(row.data()))
        return std::make_unique<RyvPrmSubfolder>(subfolder->subfolder.getName());
    return nullptr;
}

} // namespace

std::vector<std::unique_ptr<RyvPrmItem>> CProjectTree::GenerateProjDataStruct(const TreeItem& projectItem) {
    std::vector<std::unique_ptr<RyvPrmItem>> items;
    std::vector<std::pair<const TreeItem*, RyvPrmSubfolder*>> levels; // the subfolders around the next row
    for (const TreeItem* row = nextInTree(projectItem, &projectItem); row;
         row = nextInTree(*row, &projectItem)) {
        auto item = itemOf(*row);
        if (!item)
            continue;
        while (!levels.empty() && levels.back().first != row->parent())
            levels.pop_back();
        RyvPrmSubfolder* const parent = levels.empty() ? nullptr : levels.back().second;
        if (RyvPrmSubfolder* const subfolder = asSubfolder(item.get()))
            levels.emplace_back(row, subfolder);
        if (parent)
            parent->add(std::move(item));
        else
            items.push_back(std::move(item));
    }
    return items;
}

bool CProjectTree::ProjectMenuReorderDrawings(CStringView projectId, const CStringArray& chosen) {
    bool cancelled = true;
    return lisp::sortDrawings(projectId, chosen, cancelled) && !cancelled;
}

/// LISP sorts in the file, which is read again before the subfolders move.
void CProjectTree::ProjAndSubfolderMenuSort() {
    const bool asks = std::any_of(selection().begin(), selection().end(), holdsBothKinds);
    const CStringArray chosen = levelsOf(*this, false);
    const CStringArray withAllBelow = levelsOf(*this, true);
    ProjectWork work(*this, GetProjectOfItem(contextRow(*this)));
    if (!work.lock())
        return;
    const std::optional<Sorting> sorting = asks ? askSorting() : Sorting{};
    if (!sorting)
        return;
    const CStringArray& levels = sorting->below ? withAllBelow : chosen;
    if (!work.project() || !hasAll(work.project()->getProjectData(), levels))
        return work.tellGone();
    const CStringArray expanded = expandedTraces(*this, work.projectId());
    if (!ProjectMenuReorderDrawings(work.projectId(), levels) || !work.reRead())
        return;
    reposition(work.project()->editProjectData(), levels, sorting->subfoldersFirst);
    work.write();
    expandTraces(*this, work.projectId(), expanded);
}

void CProjectTree::ProjectMenuFlattenStructure() {
    ProjectWork work(*this, GetProjectOfItem(contextRow(*this)));
    if (!work.project() || askTask(u"RyvPageMan.FlattenStructure") != task_button::yes || !work.lock())
        return;
    const auto project = work.project();
    project->editProjectData().setProjFileDetails(CopyDwgItems(*project));
    work.write();
}

} // namespace ryv
