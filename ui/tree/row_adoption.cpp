#include "ui/tree/row_adoption.h"

#include "ui/tree/item_address.h"
#include "ui/tree/project_tree.h"

namespace ryv {

namespace {

using Counts = std::unordered_map<CString, std::size_t>; // by key

/// The rows of one folder, and what it holds by now.
class Family {
public:
    Family(TreeItem& row, const std::vector<RyvPrmSubfolder*>& folders) : row_(row) {
        Counts present;
        for (const TreeItem* child = row.firstChild(); child; child = child->next())
            ++present[rowItemKey(*child)];
        for (const RyvPrmSubfolder* const folder : folders)
            for (const auto& item : folder->getItems())
                expect(*item, present);
    }

    TreeItem& row() const noexcept { return row_; }
    const std::vector<CString>& missing() const noexcept { return missing_; }

    /// The rows that belong somewhere else.
    std::vector<TreeItem*> strangers() const {
        std::vector<TreeItem*> rows;
        Counts left = wanted_;
        for (TreeItem* child = row_.firstChild(); child; child = child->next())
            if (std::size_t& count = left[rowItemKey(*child)]; count > 0)
                --count;
            else
                rows.push_back(child);
        return rows;
    }

private:
    void expect(const RyvPrmItem& item, Counts& present) {
        const CString key = itemKey(item);
        if (asSubfolder(&item) && wanted_.contains(key))
            return; // of names that differ in case there is one row
        if (++wanted_[key] > present[key])
            missing_.push_back(key);
    }

    TreeItem& row_;
    Counts wanted_;
    std::vector<CString> missing_;
};

} // namespace

void adoptRows(
    CProjectTree& tree, TreeItem& projectItem, const RyvPrmProjectData& project, const CStringArray& traces) {
    ItemFinder items(project);
    RowFinder rowsBefore;
    std::vector<Family> families;
    std::unordered_map<CString, std::vector<TreeItem*>> homeless;
    for (const CString& trace : traces) {
        TreeItem* const row = trace.empty() ? &projectItem : rowsBefore.subfolder(projectItem, trace);
        if (!row)
            continue;
        for (TreeItem* const stranger : families.emplace_back(*row, items.folders(trace)).strangers())
            homeless[rowItemKey(*stranger)].push_back(stranger);
    }
    for (const Family& family : families)
        for (const CString& key : family.missing())
            tree.InsertNewItem(homeless[key], family.row());
}

} // namespace ryv
