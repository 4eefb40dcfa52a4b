// Which drawings and subfolders the selection of the project tree stands for.
#include "ui/tree/project_tree.h"

#include "base/fold.h"
#include "toolkit/tree_rows.h"

#include <unordered_set>

namespace ryv {

namespace {

void appendDrawings(const TreeItem& top, CStringArray& drawings) {
    for (const TreeItem* item = &top; item; item = nextInTree(*item, &top))
        if (CProjectTree::GetItemType(item) == TreeItemType::drawing)
            drawings.push_back(CProjectTree::GetItemData(item)->key);
}

} // namespace

CStringArray CProjectTree::GetAllSelectedDwgs(const TreeItem* project) const {
    CStringArray drawings;
    const TreeItem* item = project ? project : child(nullptr, 0);
    while (item) {
        if (item->selected())
            appendDrawings(*item, drawings);
        item = item->selected() ? nextPast(*item, project) : nextInTree(*item, project);
    }
    std::unordered_set<CString> known;
    std::erase_if(drawings, [&](const CString& each) { return !known.insert(toUpper(each)).second; });
    return drawings;
}

CStringArray CProjectTree::GenerateDwgListUnderItem(const TreeItem& item) {
    CStringArray drawings;
    appendDrawings(item, drawings);
    return drawings;
}

/// Each trace is that of the subfolder above and a name more.
CStringArray CProjectTree::GetChildSubfolderTraces(const TreeItem& item) {
    struct Above {
        const TreeItem* row;
        std::size_t length; // of the trace without it
    };
    CStringArray traces;
    CString trace = GetSubfolderTraceForItem(&item, false);
    std::vector<Above> above;
    for (const TreeItem* row = item.firstChild(); row; row = nextInTree(*row, &item)) {
        for (; !above.empty() && above.back().row != row->parent(); above.pop_back())
            trace.resize(above.back().length);
        if (GetItemType(row) != TreeItemType::subfolder)
            continue;
        above.push_back({row, trace.size()});
        trace.append(trace.empty() ? u"" : u"/").append(row->label());
        traces.push_back(trace);
    }
    return traces;
}

} // namespace ryv
