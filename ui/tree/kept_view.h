// What the user had selected and in view, across a change of a project's rows.
#pragma once

#include "toolkit/tree_item_watch.h"
#include "ui/tree/project_tree.h"

#include <optional>
#include <unordered_map>
#include <vector>

namespace ryv {

/// Rows that stay are looked after by the tree itself, and so are subfolders: one that has the same trace
/// afterwards is the same row. What is left are drawings that went to another subfolder of their project.
class KeptView {
public:
    /// Both outlive the call of restore().
    KeptView(CProjectTree& tree, const TreeItem& project);
    KeptView(const KeptView&) = delete;
    KeptView& operator=(const KeptView&) = delete;

    /// Drawings of the project that were selected, had the focus or stood at the upper edge, and whose rows
    /// are gone, are looked for by their paths; so are those that the filter is to give back.
    void restore();

private:
    struct Watched {
        std::optional<TreeItemWatch> watch;
        CString drawing;
        bool isLost() const noexcept { return watch && !watch->item() && !drawing.empty(); }
    };
    using Rows = std::unordered_map<CString, TreeItem*>;           // by path in capitals
    using Drawings = std::unordered_map<const TreeItem*, CString>; // with their paths in capitals

    static CString drawingOf(const TreeItem& row);
    void keepSelection();
    void watch(Watched& place, TreeItem* row);
    Rows wantedRows() const;
    void find(Rows& wanted) const;
    std::vector<TreeItem*> selectionNow(const Rows& found) const;

    CProjectTree& tree_;
    const TreeItem& project_;
    std::vector<TreeItem*> selected_; // in all projects; may be gone by now
    Drawings drawings_;               // those of this project
    Drawings remembered_;             // selected again when the filter goes
    Watched focus_;
    Watched firstVisible_;
};

} // namespace ryv
