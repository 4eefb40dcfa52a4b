#include "ui/tree/item_removal.h"

#include "base/text.h"
#include "ui/tree/item_address.h"

#include <unordered_map>

namespace ryv {

namespace {

std::vector<RyvPrmSubfolder*> subfoldersOf(const RyvPrmProjectData& project, const CStringArray& traces) {
    std::vector<RyvPrmSubfolder*> folders;
    ItemFinder finder(project);
    for (const CString& trace : traces) {
        const std::size_t slash = trace.rfind(u'/');
        const bool isNested = slash != CString::npos;
        const ItemAddress address{
            isNested ? trace.substr(0, slash) : CString(), trace.substr(isNested ? slash + 1 : 0), true};
        for (RyvPrmItem* const item : finder.find(address))
            folders.push_back(asSubfolder(item));
    }
    return folders;
}

bool isInside(const RyvPrmSubfolder& folder, const std::unordered_set<const RyvPrmSubfolder*>& others) {
    const RyvPrmSubfolder* above = folder.parent();
    while (above && !others.contains(above))
        above = above->parent();
    return above != nullptr;
}

} // namespace

ItemRemoval::ItemRemoval(
    const RyvPrmProjectData& project, const CStringArray& drawings, const CStringArray& traces) {
    const std::vector<RyvPrmSubfolder*> asked = subfoldersOf(project, traces);
    const std::unordered_set<const RyvPrmSubfolder*> known(asked.begin(), asked.end());
    std::unordered_map<CString, std::size_t> wanted; // entries of each drawing
    for (const CString& drawing : drawings)
        ++wanted[itemKey(false, drawing)];
    std::unordered_set<const RyvPrmSubfolder*> outermost;
    for (RyvPrmSubfolder* const folder : asked)
        if (!isInside(*folder, known) && outermost.insert(folder).second)
            folders_.push_back(folder);
    std::vector<const RyvPrmSubfolder*> waiting(folders_.begin(), folders_.end());
    while (!waiting.empty()) {
        const RyvPrmSubfolder* const folder = waiting.back();
        waiting.pop_back();
        for (const auto& item : folder->getItems()) {
            if (const RyvPrmSubfolder* const below = asSubfolder(item.get())) {
                findsMore_ = findsMore_ || !known.contains(below);
                waiting.push_back(below);
            } else if (std::size_t& left = wanted[itemKey(*item)]; left > 0) {
                --left;
                inside_.emplace_back(asFileDetails(item.get())->getFileName());
            } else {
                findsMore_ = true;
            }
        }
    }
    for (const CString& drawing : drawings)
        if (std::size_t& left = wanted[itemKey(false, drawing)]; left > 0) {
            --left;
            if (project.isFileInProject(replaceAll(drawing, u'/', u'\\')))
                elsewhere_.push_back(replaceAll(drawing, u'/', u'\\'));
        }
}

CArray<RyvPrmFileDetails> ItemRemoval::details(const RyvPrmProject& project) const {
    CStringArray drawings = inside_;
    drawings.insert(drawings.end(), elsewhere_.begin(), elsewhere_.end());
    CArray<RyvPrmFileDetails> details;
    project.getDetailsForFiles(drawings, details);
    return details;
}

/// Drawings that went with their subfolder are named once more, so that their identifiers go as well.
void ItemRemoval::apply(RyvPrmProject& project) const {
    project.editProjectData();
    for (RyvPrmSubfolder* const folder : folders_)
        folder->parent()->take(*folder);
    CStringArray drawings = elsewhere_;
    for (const CString& drawing : inside_)
        if (!project.isFileInProject(drawing))
            drawings.push_back(drawing);
    project.removeFiles(drawings);
}

} // namespace ryv
