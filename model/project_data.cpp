#include "model/project_data.h"

#include "base/fold.h"
#include "base/format.h"
#include "model/project_index.h"
#include "model/trace.h"
#include "model/tree_walk.h"

#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace ryv {

namespace {

/// Names still looked for, each as often as it was given; case does not count.
class WantedNames {
public:
    explicit WantedNames(const CStringArray& names) : remaining_(names.size()) {
        for (const CString& name : names)
            ++counts_[toLower(name)];
    }

    bool allFound() const noexcept { return remaining_ == 0; }

    /// True when the name is looked for; strikes one entry of it.
    bool strike(CStringView name) {
        const auto hit = counts_.find(toLower(name));
        if (hit == counts_.end() || hit->second == 0)
            return false;
        --hit->second;
        --remaining_;
        return true;
    }

private:
    std::unordered_map<CString, std::size_t> counts_;
    std::size_t remaining_;
};

/// The wanted drawings, depth first, each entry of `names` giving at most one.
std::vector<RyvPrmItem*> matchingDrawings(const RyvPrmSubfolder& root, const CStringArray& names) {
    std::vector<RyvPrmItem*> matches;
    WantedNames wanted(names);
    TreeWalk walk(root);
    while (!wanted.allFound()) {
        RyvPrmFileDetails* const drawing = walk.nextDrawing();
        if (!drawing)
            break;
        if (wanted.strike(drawing->getFileName()))
            matches.push_back(drawing);
    }
    return matches;
}

using OwnedItems = std::unordered_map<const RyvPrmItem*, std::unique_ptr<RyvPrmItem>>;

/// Takes those of `items` that are in a tree out of it, with one pass over each subfolder concerned.
void takeFromParents(const std::vector<RyvPrmItem*>& items, OwnedItems& taken) {
    std::unordered_map<RyvPrmSubfolder*, std::unordered_set<const RyvPrmItem*>> chosen;
    for (const RyvPrmItem* const item : items)
        if (item && item->parent())
            chosen[item->parent()].insert(item);
    for (const auto& [subfolder, members] : chosen) {
        std::vector<bool> marks;
        for (const auto& item : subfolder->getItems())
            marks.push_back(members.contains(item.get()));
        for (auto& item : subfolder->takeAll(marks))
            taken.emplace(item.get(), std::move(item));
    }
}

/// Parent trace and name of a trace, split at the last "/".
std::pair<CStringView, CStringView> splitTrace(CStringView trace) noexcept {
    const std::size_t slash = trace.rfind(u'/');
    if (slash == CStringView::npos)
        return {{}, trace};
    return {trace.substr(0, slash), trace.substr(slash + 1)};
}

} // namespace

RyvPrmProjectData::RyvPrmProjectData() : root_(std::make_unique<RyvPrmSubfolder>()) {
    index_ = std::make_unique<ProjectIndex>(*root_);
    root_->joinIndex(index_.get());
}

RyvPrmProjectData::~RyvPrmProjectData() = default;

void RyvPrmProjectData::swap(RyvPrmProjectData& other) noexcept {
    descriptions_.swap(other.descriptions_);
    defaultSettings_.swap(other.defaultSettings_);
    std::swap(miscSettings_, other.miscSettings_);
    index_.swap(other.index_);
    root_.swap(other.root_);
}

void RyvPrmProjectData::setProjDescriptions(CStringList descriptions) {
    descriptions_ = std::move(descriptions);
}

void RyvPrmProjectData::setProjDefKQMVals(const RyvCfgDrawingSettings& settings) {
    for (int index = 0; index <= RyvCfgDrawingSettings::getMaxBracketIndex(); ++index)
        defaultSettings_.setValue(index, settings.find(index));
}

void RyvPrmProjectData::setMiscProjSettings(const RyvPmMiscProjSettings& settings) {
    miscSettings_ = settings;
}

const RyvPrmItems& RyvPrmProjectData::getProjFileDetails() const noexcept {
    return root_->getItems();
}

void RyvPrmProjectData::setProjFileDetails(const CArray<RyvPrmItem*>& items) {
    OwnedItems owned;
    takeFromParents(items, owned);
    for (RyvPrmItem* const item : items)
        if (item && !owned.contains(item)) {
            std::unique_ptr<RyvPrmItem> parked = RyvPrmSubfolder::unpark(*item);
            owned.emplace(item, parked ? std::move(parked) : std::unique_ptr<RyvPrmItem>(item));
        }
    root_->clear();
    for (RyvPrmItem* const item : items)
        if (item && owned[item])
            root_->add(std::move(owned[item]));
}

bool RyvPrmProjectData::addFile(std::unique_ptr<RyvPrmItem> item, const CString* trace) {
    RyvPrmSubfolder* target = root_.get();
    if (trace && !trace->empty()) {
        target = nullptr;
        if (!getSubfolderByTrace(*trace, target, true, false))
            return false;
    }
    target->add(std::move(item));
    return true;
}

bool RyvPrmProjectData::addFiles(RyvPrmItems&& items) {
    for (auto& item : items)
        root_->add(std::move(item));
    items.clear();
    return true;
}

bool RyvPrmProjectData::removeAllFiles() {
    root_->clear();
    return true;
}

bool RyvPrmProjectData::removeFile(CStringView name) {
    RyvPrmFileDetails* const drawing = findFile(name);
    if (!drawing)
        return false;
    drawing->parent()->take(*drawing);
    return true;
}

bool RyvPrmProjectData::removeFiles(const CStringArray& names) {
    if (names.empty())
        return true;
    OwnedItems taken;
    takeFromParents(matchingDrawings(*root_, names), taken);
    for (auto& [address, item] : taken)
        root_->park(std::move(item));
    return !taken.empty();
}

bool RyvPrmProjectData::removeSubfolders(const CStringArray& traces) {
    bool all = true;
    for (std::size_t i = traces.size(); i-- > 0;) {
        const auto [parentTrace, name] = splitTrace(traces[i]);
        const bool topLevel = TraceComponents(parentTrace).next().empty();
        RyvPrmSubfolder* const parent = topLevel ? root_.get() : findSubfolder(parentTrace);
        RyvPrmSubfolder* const found = parent && !name.empty() ? index_->findChild(*parent, name) : nullptr;
        if (!found) {
            all = false;
            continue;
        }
        std::unique_ptr<RyvPrmItem> taken = parent->take(*found);
        if (!topLevel)
            root_->park(std::move(taken));
    }
    return all;
}

bool RyvPrmProjectData::replaceFile(CStringView oldName, CStringView newName) {
    RyvPrmFileDetails* const drawing = findFile(oldName);
    if (drawing)
        drawing->setFileName(newName);
    return drawing != nullptr;
}

bool RyvPrmProjectData::modifyDetailsForFile(const RyvPrmFileDetails& details) {
    RyvPrmFileDetails* const drawing = findFile(details.getFileName());
    if (drawing)
        *drawing = details;
    return drawing != nullptr;
}

bool RyvPrmProjectData::isFileInProject(CStringView name, bool* isReferenceOnly) const {
    const RyvPrmFileDetails* const drawing = findFile(name);
    if (drawing && isReferenceOnly)
        *isReferenceOnly = drawing->isReferenceOnly();
    return drawing != nullptr;
}

RyvPrmFileDetails* RyvPrmProjectData::findFile(CStringView name) const {
    return index_->findDrawing(name);
}

bool RyvPrmProjectData::getDetailsForFiles(const CStringArray& names, CArray<RyvPrmFileDetails>& out) const {
    const auto matches = matchingDrawings(*root_, names);
    for (const RyvPrmItem* const drawing : matches)
        out.push_back(*asFileDetails(drawing));
    return names.empty() || !matches.empty();
}

bool RyvPrmProjectData::getDetailsForSubfolders(
    const CStringArray& traces, CArray<RyvPrmSubfolder*>& out) const {
    out.clear();
    for (const CString& trace : traces)
        if (RyvPrmSubfolder* const subfolder = findSubfolder(trace))
            out.push_back(subfolder);
    return out.size() == traces.size();
}

RyvPrmSubfolder* RyvPrmProjectData::findSubfolder(CStringView trace) const {
    return index_->findSubfolder(*root_, trace);
}

bool RyvPrmProjectData::getSubfolderByTrace(
    CStringView trace, RyvPrmSubfolder*& subfolder, bool create, bool makeUnique) {
    if (trace.empty() || (makeUnique && !create))
        return false;
    RyvPrmSubfolder& start = subfolder ? *subfolder : *root_;
    subfolder = index_->findSubfolder(start, trace);
    if (subfolder && makeUnique)
        subfolder = &addUniqueSibling(*subfolder);
    else if (!subfolder && create)
        subfolder = makeTrace(start, trace);
    return subfolder != nullptr;
}

/// Makes what is missing of a trace, level by level; null when the trace has no component.
RyvPrmSubfolder* RyvPrmProjectData::makeTrace(RyvPrmSubfolder& start, CStringView trace) {
    TraceComponents components(trace);
    RyvPrmSubfolder* level = nullptr;
    for (CStringView name = components.next(); !name.empty(); name = components.next()) {
        RyvPrmSubfolder& parent = level ? *level : start;
        level = index_->findChild(parent, name);
        if (!level)
            level = asSubfolder(&parent.add(std::make_unique<RyvPrmSubfolder>(toUpper(name))));
    }
    return level;
}

/// Makes a subfolder beside one that has the wanted name already.
RyvPrmSubfolder& RyvPrmProjectData::addUniqueSibling(RyvPrmSubfolder& taken) {
    RyvPrmSubfolder& parent = *taken.parent();
    CString name;
    int number = 1;
    do
        name = format(u"%s (%d)", {toUpper(taken.getName()), number++});
    while (index_->findChild(parent, name));
    return *asSubfolder(&parent.add(std::make_unique<RyvPrmSubfolder>(name)));
}

void RyvPrmProjectData::generateFlatFileDetailsArray(CArray<RyvPrmFileDetails*>& out) const {
    TreeWalk walk(*root_);
    while (RyvPrmFileDetails* const drawing = walk.nextDrawing())
        out.push_back(drawing);
}

bool RyvPrmProjectData::operator==(const RyvPrmProjectData& other) const {
    return descriptions_ == other.descriptions_ && defaultSettings_ == other.defaultSettings_ &&
           miscSettings_ == other.miscSettings_ && *root_ == *other.root_;
}

} // namespace ryv
