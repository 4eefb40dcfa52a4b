// Adding drawings and subfolders to a project.

#include "base/paths.h"
#include "bridge/command_strings.h"
#include "bridge/platform.h"
#include "manager/shown_messages.h"
#include "resources/message_numbers.h"
#include "resources/messages.h"
#include "ui/tree/item_selection.h"
#include "ui/tree/open_documents.h"
#include "ui/tree/project_work.h"
#include "ui/tree/row_name.h"

#include <algorithm>

namespace ryv {

namespace {

constexpr CStringView newSubfolderName = u"NEW FOLDER";

CString nameOfProject(CStringView projectId) {
    CString name;
    if (const RyvPrmProjectManager* const manager = GetProjectManager())
        manager->makeProjectPrettyNameFromID(projectId, name);
    return name;
}

CArray<RyvPrmFileDetails> chooseDrawings(const CString& projectId) {
    FileRequest request;
    request.title = message::addDrawingsTitle;
    request.text = format(messageText(request.title), {nameOfProject(projectId)});
    request.folder = paths::folderOf(projectId);
    request.extension = u".dwg";
    request.many = true;
    CArray<RyvPrmFileDetails> drawings;
    for (const CString& path : platform().ui->chooseFiles(request))
        drawings.emplace_back(path);
    return drawings;
}

/// A question may outlast the subfolder that it is about, which nobody wants to have made again.
bool stillHas(const ProjectWork& work, const CString& trace) {
    return trace.empty() || work.project()->getProjectData().findSubfolder(trace);
}

void tellListedBefore(CProjectTree& tree, const CString& projectId, std::size_t added, std::size_t before) {
    tree.notice().tell(
        format(messageText(message::drawingsListedBefore), {added, nameOfProject(projectId), before}));
}

void selectAdded(CProjectTree& tree, const RowName& target, const CArray<RyvPrmFileDetails>& drawings,
    const std::vector<bool>& added) {
    std::vector<CString> paths;
    for (std::size_t number = 0; number < drawings.size(); ++number)
        if (added[number])
            paths.emplace_back(drawings[number].getFileName());
    selectDrawings(tree, target.projectId, target.key, paths);
}

/// Drawings that the project has already are left out, and the user is told how many these are.
void addChosen(CProjectTree& tree, const RowName& target) {
    const CArray<RyvPrmFileDetails> drawings = chooseDrawings(target.projectId);
    ProjectWork work(tree, target.projectId);
    if (drawings.empty() || !work.lock())
        return;
    if (!stillHas(work, target.key))
        return work.tellGone();
    std::vector<bool> added;
    const bool done =
        GetProjectManager()->addFilesToProject(drawings, added, target.projectId, target.key, true);
    const auto count = static_cast<std::size_t>(std::count(added.begin(), added.end(), true));
    const std::size_t before = added.size() - count;
    const bool written = work.settle(done);
    if (written)
        selectAdded(tree, target, drawings, added);
    if (before > 0 && (written || count == 0) && work.project())
        tellListedBefore(tree, target.projectId, count, before);
}

/// Makes a subfolder below the one of a trace and gives its own trace; empty when it cannot be made.
CString makeSubfolder(RyvPrmProject& project, const CString& above) {
    RyvPrmSubfolder* made = nullptr;
    const CString wanted =
        above.empty() ? CString(newSubfolderName) : above + u'/' + CString(newSubfolderName);
    if (!project.editProjectData().getSubfolderByTrace(wanted, made, true, true))
        return {};
    return above.empty() ? made->getName() : above + u'/' + made->getName();
}

} // namespace

void CProjectTree::ProjectMenuAddDrawings() {
    addChosen(*this, rowNameOf(contextRow(*this)));
}

void CProjectTree::SubfolderMenuAddDrawings() {
    addChosen(*this, rowNameOf(contextRow(*this)));
}

void CProjectTree::ProjectMenuAddActiveDrawing() {
    const CString drawing = currentDrawing();
    ProjectWork work(*this, GetProjectOfItem(contextRow(*this)));
    if (drawing.empty() || !work.lock())
        return;
    if (work.project()->isFileInProject(drawing))
        return tellListedBefore(*this, work.projectId(), 0, 1);
    RyvPrmProjectManager& manager = *GetProjectManager();
    manager.SetNewDwgSubfolderTrace({});
    if (!work.settle(
            manager.addFileToProject(std::make_unique<RyvPrmFileDetails>(drawing), work.projectId(), true)))
        return;
    selectDrawings(*this, work.projectId(), {}, {drawing});
    runInApplicationContext(CommandString::rereadDrawingParameters);
}

/// The editing of the name locks the files anew, so they are given up before. A filter that hides the new
/// subfolder goes: nobody can name what is not shown.
void CProjectTree::MenuAddSubFolder() {
    const RowName target = rowNameOf(contextRow(*this));
    ProjectWork work(*this, target.projectId);
    if (!work.lock())
        return;
    if (!stillHas(work, target.key))
        return work.tellGone();
    const CString trace = makeSubfolder(*work.project(), target.key);
    if (trace.empty() || !work.write())
        return;
    work.unlock();
    const RowName made{target.projectId, TreeItemType::subfolder, trace};
    if (const TreeItem* const hidden = findRow(*this, made); hidden && !hidden->shown())
        setFilter({});
    TreeItem* const row = findRow(*this, made);
    if (!row)
        return work.tellGone();
    ensureVisible(*row);
    setSelection({row});
    editLabel(*row);
}

} // namespace ryv
