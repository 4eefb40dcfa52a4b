// Removing drawings and subfolders from a project; the files stay.

#include "base/format.h"
#include "base/paths.h"
#include "bridge/platform.h"
#include "resources/message_numbers.h"
#include "resources/messages.h"
#include "resources/task_buttons.h"
#include "toolkit/tree_rows.h"
#include "ui/tree/item_removal.h"
#include "ui/tree/project_work.h"
#include "ui/tree/row_name.h"
#include "ui/tree/task_questions.h"

namespace ryv {

namespace {

struct ToRemove {
    CStringArray drawings;
    CStringArray traces; ///< outer ones first
    CString list;        ///< for the user, a line for each selected row
};

CString linesOf(const TreeItem& project) {
    CString lines;
    for (const TreeItem* row = &project; row; row = nextInTree(*row, &project))
        if (row->selected())
            lines += u"- " + row->label() + u"\n";
    return lines;
}

ToRemove collect(const std::vector<TreeItem*>& rows) {
    ToRemove all;
    for (const TreeItem* const row : rows) {
        const CStringArray drawings = CProjectTree::GenerateDwgListUnderItem(*row);
        all.drawings.insert(all.drawings.end(), drawings.begin(), drawings.end());
        if (CProjectTree::GetItemType(row) != TreeItemType::subfolder)
            continue;
        all.traces.push_back(CProjectTree::GetSubfolderTraceForItem(row));
        const CStringArray below = CProjectTree::GetChildSubfolderTraces(*row);
        all.traces.insert(all.traces.end(), below.begin(), below.end());
    }
    if (const TreeItem* const project = CProjectTree::GetProjectItemFromItem(rows.front()))
        all.list = linesOf(*project);
    return all;
}

/// The outermost row that goes with a selected one.
const TreeItem* outermostGoing(const TreeItem* row) {
    const TreeItem* going = row;
    for (const TreeItem* above = row; above; above = above->parent())
        if (above->selected())
            going = above;
    return going;
}

/// The row to be selected when the selected ones are gone: the next that stays beside the context row, or the
/// one before it, or the one above.
RowName survivorOf(const CProjectTree& tree) {
    const TreeItem* const going = outermostGoing(contextRow(tree));
    if (!going)
        return {};
    const TreeItem* row = going;
    while (row && row->selected())
        row = row->next(TreeCount::shown);
    if (!row)
        for (row = going; row && row->selected();)
            row = row->previous(TreeCount::shown);
    return rowNameOf(row ? row : going->parent());
}

CStringView questionFor(const RyvPrmProject& project, const ToRemove& all) {
    return !all.traces.empty() && project.isLinked() ? u"RyvPageMan.RemoveSubfoldersAndDrawingsLinkBreak"
                                                     : u"RyvPageMan.RemoveSubfoldersAndDrawings";
}

/// Everything goes with one write: a failure between two would leave half of it.
bool removeAndTell(ProjectWork& work, const ItemRemoval& removal) {
    const auto project = work.project();
    const CArray<RyvPrmFileDetails> removed = removal.details(*project);
    removal.apply(*project);
    if (!work.write())
        return false;
    RyvPrmProjectManager* const manager = GetProjectManager();
    if (manager && !removed.empty())
        manager->onProjectRemoveDrawings(work.projectId(), removed);
    return true;
}

} // namespace

void CProjectTree::OnDrawingAndSubfolderMenuRemove() {
    const std::vector<TreeItem*> rows = selectedRows(*this);
    if (rows.empty())
        return;
    const CString id = GetProjectOfItem(rows.front());
    const ToRemove all = collect(rows);
    const auto project = ProjectWork(*this, id).project();
    if (project && askTask(questionFor(*project, all), {{u"ItemsToRemove", all.list}}) == task_button::yes)
        DrawingAndSubfolderMenuRemove(id, all.drawings, all.traces);
}

bool CProjectTree::DrawingAndSubfolderMenuRemove(
    CStringView projectId, const CStringArray& drawings, const CStringArray& traces) {
    ProjectWork work(*this, projectId);
    if (!work.lock())
        return false;
    const ItemRemoval removal(work.project()->getProjectData(), drawings, traces);
    if (removal.findsMore()) {
        notice().tell(format(messageText(message::moreInSubfolders), {paths::titleOf(work.projectId())}));
        return false;
    }
    if (removal.isEmpty()) {
        work.tellGone();
        return false;
    }
    const RowName survivor = survivorOf(*this);
    const bool done = removeAndTell(work, removal);
    TreeItem* const row = findRow(*this, survivor);
    if (row && selection().empty())
        setSelection({row});
    return done;
}

} // namespace ryv
