// Bringing the rows of a project up to what the project holds.
#include "ui/tree/project_tree.h"

#include "base/fold.h"
#include "base/text.h"
#include "bridge/platform.h"
#include "ui/tree/kept_view.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace ryv {

namespace {

/// Rows of one parent with the same key are the same row before and after.
CString rowKey(const CString& label, const TreeItemData* data) {
    const auto* const record = dynamic_cast<const _itemdatastruct*>(data);
    if (!record)
        return u"?" + label;
    return (record->type == TreeItemType::subfolder ? u"S" : u"D") + toUpper(record->key);
}

struct HashOfName {
    std::size_t operator()(CStringView name) const noexcept { return hashNoCase(name); }
};
struct SameName {
    bool operator()(CStringView a, CStringView b) const noexcept { return equalNoCase(a, b); }
};

} // namespace

/// The rows of one parent, and what it is filled from: several sources when names of subfolders differ in
/// case only.
struct CProjectTree::Level {
    std::vector<const RyvPrmItems*> sources;
    std::vector<TreeRow> rows;
    std::vector<std::pair<std::size_t, std::size_t>> subfolders; ///< number of the row, number of its level
};

/// A build under way. However it ends, the next one is not in its way.
class CProjectTree::Build {
public:
    explicit Build(CProjectTree& tree) noexcept : tree_(tree) { tree_.problems_.beginBuild(); }
    Build(const Build&) = delete;
    Build& operator=(const Build&) = delete;
    ~Build() {
        if (tree_.problems_.endBuild())
            tree_.rowsInWork_.clear();
    }

private:
    CProjectTree& tree_;
};

/// What the rows are to be. Levels lie side by side, since their depth comes from outside, and hold nothing
/// of the project, which may be read again as soon as anybody is told of a row. The database is closed when
/// they are made.
std::vector<CProjectTree::Level> CProjectTree::planRows(CStringView projectId, TreeLabelling labelling) {
    const std::unique_ptr<DatabaseRecordset> database = openDatabase(projectId);
    labelling.database = database.get();
    const RyvPrmProject* const project = GetProjectManager()->getProject(projectId);
    std::vector<Level> levels(1);
    if (project)
        levels[0].sources.push_back(&project->getProjectData().getProjFileDetails());
    for (std::size_t number = 0; number < levels.size(); ++number)
        planLevel(levels, number, labelling);
    return levels;
}

/// Appends a level for each subfolder.
void CProjectTree::planLevel(std::vector<Level>& levels, std::size_t number, const TreeLabelling& labelling) {
    std::unordered_map<CStringView, std::size_t, HashOfName, SameName> levelOfName;
    const std::vector<const RyvPrmItems*> sources = std::exchange(levels[number].sources, {});
    std::vector<TreeRow> rows;
    rows.reserve(sources.size() == 1 ? sources.front()->size() : 0);
    for (const RyvPrmItems* const items : sources)
        for (const auto& item : *items) {
            if (const RyvPrmFileDetails* const drawing = asFileDetails(item.get()))
                rows.push_back(labelledRow(*drawing, labelling));
            const RyvPrmSubfolder* const subfolder = asSubfolder(item.get());
            if (!subfolder)
                continue;
            const auto [hit, fresh] = levelOfName.try_emplace(subfolder->getName(), levels.size());
            if (fresh) {
                levels[number].subfolders.push_back({rows.size(), levels.size()});
                rows.push_back(subfolderRow(subfolder->getName()));
                levels.emplace_back();
            }
            levels[hit->second].sources.push_back(&subfolder->getItems());
        }
    levels[number].rows = std::move(rows);
}

/// Top to bottom. Rows in `rowsInWork_` that are taken away meanwhile leave it.
void CProjectTree::buildRows(TreeItem& projectItem, std::vector<Level> levels) {
    std::vector<WaitingRow> waiting{{&projectItem, 0}};
    while (!waiting.empty()) {
        const auto [parent, number] = waiting.back();
        waiting.pop_back();
        if (!rowsInWork_.contains(parent))
            continue;
        const std::size_t before = waiting.size();
        AddDWGNodesUtil(*parent, levels[number], waiting);
        std::reverse(waiting.begin() + static_cast<std::ptrdiff_t>(before), waiting.end());
        if (parent != &projectItem)
            rowsInWork_.erase(parent);
    }
}

void CProjectTree::AddDWGNodesUtil(TreeItem& parent, Level& level, std::vector<WaitingRow>& waiting) {
    keepBold(parent, level.rows);
    replaceChildren(&parent, std::move(level.rows), rowKey);
    if (!rowsInWork_.contains(&parent))
        return; // taken away by whoever was told
    TreeItem* row = parent.firstChild();
    std::size_t passed = 0;
    for (const auto& [place, inside] : level.subfolders) {
        for (; row && passed < place; ++passed)
            row = row->next();
        if (row && rowsInWork_.insert(row).second)
            waiting.push_back({row, inside});
    }
}

/// A row that is bold stays so for now, or it would change twice.
void CProjectTree::keepBold(const TreeItem& parent, std::vector<TreeRow>& rows) {
    std::unordered_set<CString> bold;
    for (const TreeItem* row = parent.firstChild(); row; row = row->next())
        if (row->bold())
            bold.insert(rowKey(row->label(), row->data()));
    for (auto row = rows.begin(); row != rows.end() && !bold.empty(); ++row)
        row->bold = bold.erase(rowKey(row->label, row->data.get())) > 0;
}

bool CProjectTree::AddDWGNodes(TreeItem& projectItem, CStringView projectId) {
    const RyvPrmProjectManager* const manager = GetProjectManager();
    TreeLabelling labelling;
    bool showsSelection = true;
    if (!manager || !manager->getProject(projectId) ||
        !manager->getDwgDisplaySetting(labelling.displayOrder, labelling.separator, showsSelection))
        return false;
    const CString id(projectId); // which may be part of what is replaced
    {
        const Build build(*this);
        rowsInWork_.insert(&projectItem);
        std::vector<Level> levels = planRows(id, labelling);
        if (rowsInWork_.contains(&projectItem)) {
            KeptView view(*this, projectItem);
            buildRows(projectItem, std::move(levels));
            if (rowsInWork_.erase(&projectItem) > 0)
                view.restore();
        }
        boldAfterBuild(projectItem, id);
        setShowsSelectionAlways(showsSelection);
        detailsDue_ = true;
    }
    afterBuild();
    return true;
}

/// The one that the database service names, or else the one in the user's folder.
std::unique_ptr<DatabaseRecordset> CProjectTree::openDatabase(CStringView projectId) {
    ProjectDatabase& service = *platform().services.projectDatabase;
    CString path;
    if (!service.PmGetProjectDb(projectId, path)) {
        const CString folder = platform().services.userFolders->GetUserDirectory();
        const RyvPrmProjectManager* const manager = GetProjectManager();
        if (folder.empty() || !manager)
            return nullptr;
        CString name;
        manager->makeProjectPrettyNameFromID(projectId, name);
        path = folder + name + u".mdb";
    }
    CString problem;
    auto database = service.open(path, problem);
    if (!database)
        problems_.add(std::move(problem));
    return database;
}

void CProjectTree::afterBuild() {
    if (problems_.isBuilding())
        return;
    problems_.tellAll();
    if (std::exchange(detailsDue_, false))
        detailsChanged.fire();
    handlePendingRereads();
}

} // namespace ryv
