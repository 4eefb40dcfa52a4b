// Copying a drawing to a new file that a project gets.

#include "base/fold.h"
#include "base/paths.h"
#include "bridge/lisp.h"
#include "bridge/platform.h"
#include "manager/nav_state.h"
#include "manager/shown_messages.h"
#include "resources/file_reasons.h"
#include "resources/message_numbers.h"
#include "resources/messages.h"
#include "siblings/copy_file.h"
#include "ui/tree/item_address.h"
#include "ui/tree/item_selection.h"
#include "ui/tree/new_to_project.h"
#include "ui/tree/open_documents.h"
#include "ui/tree/project_work.h"
#include "ui/tree/row_name.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace ryv {

namespace {

constexpr CStringView drawingEnd = u".dwg";
constexpr CStringView projectField = u"project";

/// The one that the menu handed over, else the selected one; without a path when there is none.
ListedDrawing takeOriginal(const CProjectTree& tree) {
    if (NavState* const state = navState(); state && !state->drawingToCopy.path.empty())
        return std::exchange(state->drawingToCopy, {});
    return listedDrawingOf(contextRow(tree));
}

/// What its project says of it now; nothing when it is not there any more.
std::optional<RyvPrmFileDetails> detailsOf(const ListedDrawing& drawing) {
    const RyvPrmProject* const project = GetProjectManager()->getProject(drawing.projectId);
    if (!project)
        return std::nullopt;
    const auto found = ItemFinder(project->getProjectData()).find({drawing.trace, drawing.path});
    const RyvPrmFileDetails* const details = found.empty() ? nullptr : asFileDetails(found.front());
    return details ? std::optional(*details) : std::nullopt;
}

/// The copy is made of the file, so the current drawing's changes go there first; false when the user does
/// not save.
bool saveIfCurrent(const CString& drawing) {
    if (!equalNoCase(currentDrawing(), drawing))
        return true;
    int accepted = 0;
    return evaluateLisp(u"(c:kq_9_do_qsave)") == LispStatus::success &&
           readLispGlobal(u"GBL_QSave_accept", accepted) && accepted != 0;
}

/// One of the open projects, asked for when there are several; empty when the user cancels.
CString chooseProject(const ListedDrawing& original) {
    RyvPrmProjectManager& manager = *GetProjectManager();
    if (manager.getProjectCount() <= 1)
        return original.projectId;
    FormRequest form;
    form.name = u"copy_drawing";
    form.title = format(messageText(message::copyDrawingTitle), {paths::findFileName(original.path)});
    FormField& field = form.fields.emplace_back();
    field.kind = FormField::Kind::choice;
    field.name = projectField;
    field.label = messageText(message::copyIntoProject);
    CStringArray ids;
    for (int i = 0; i < manager.getProjectCount(); ++i) {
        ids.push_back(manager.getProject(i)->getProjectID());
        manager.makeProjectPrettyNameFromID(ids.back(), field.choices.emplace_back());
        if (equalNoCase(ids.back(), original.projectId))
            field.values = {field.choices.back()};
    }
    if (!platform().ui->fillForm(form) || form.fields[0].values.empty())
        return {};
    const CStringArray& names = form.fields[0].choices;
    const auto hit = std::find(names.begin(), names.end(), form.fields[0].values[0]);
    return hit == names.end() ? CString() : ids[static_cast<std::size_t>(hit - names.begin())];
}

CString chooseFile(const ListedDrawing& original) {
    FileRequest request;
    request.title = message::copyDrawingTitle;
    request.text = format(messageText(request.title), {paths::findFileName(original.path)});
    request.folder = paths::folderOf(original.path);
    request.name = paths::findFileName(original.path);
    request.extension = drawingEnd;
    request.save = true;
    request.confirmsReplacing = false; // nothing is replaced
    const std::vector<CString> chosen = platform().ui->chooseFiles(request);
    if (chosen.empty())
        return {};
    const bool named = equalNoCase(paths::findExtension(chosen.front()), drawingEnd);
    return named ? chosen.front() : chosen.front() + CString(drawingEnd);
}

bool copyOnDisk(const CString& from, const CString& to) {
    const FileStatus status = copyFile(*platform().os.files, from, to);
    if (status.error == FileError::exists)
        showMessage({message::drawingExists, message::commandRefusedTitle}, {shownPath(to)});
    else if (!status.ok())
        showMessage({message::drawingNotCopied, message::commandRefusedTitle},
            {shownPath(to), fileReason(status.error)});
    return status.ok();
}

bool addCopy(ProjectWork& work, const CString& folder, const RyvPrmFileDetails& its, const CString& path) {
    auto details = std::make_unique<RyvPrmFileDetails>(its);
    details->setFileName(path);
    details->setFileId(0); // the project gives it one of its own
    RyvPrmProjectManager& manager = *GetProjectManager();
    manager.SetNewDwgSubfolderTrace(folder);
    const bool added = manager.addFileToProject(std::move(details), work.projectId(), true);
    work.settle(added);
    return added;
}

/// A copy that nobody knows of goes again; what LISP or another program has listed meanwhile stays.
void removeUnlisted(const ProjectWork& work, const CString& path) {
    const auto open = work.project();
    const auto file = readAside(work.projectId());
    if (file && !file->isFileInProject(path) && !(open && open->isFileInProject(path)))
        static_cast<void>(platform().os.files->remove(path));
}

} // namespace

void CProjectTree::copySelectedDrawing() {
    notice().clearUnlessOffering();
    const AtWork underWay = atWork();
    const ListedDrawing original = takeOriginal(*this);
    if (original.path.empty() || !saveIfCurrent(original.path) || !GetProjectManager())
        return;
    const CString project = chooseProject(original);
    const CString path = project.empty() ? CString() : chooseFile(original);
    ProjectWork work(*this, project);
    if (path.empty() || !work.lock())
        return;
    const std::optional<RyvPrmFileDetails> details = detailsOf(original);
    if (!details)
        return ProjectWork(*this, original.projectId).tellGone();
    if (!isNewToProject(*work.project(), path) || !copyOnDisk(original.path, path))
        return;
    const CString folder = equalNoCase(project, original.projectId) ? original.trace : CString();
    if (!addCopy(work, folder, *details, path))
        return removeUnlisted(work, path);
    selectDrawings(*this, project, folder, {path});
    notice().tell(format(
        messageText(message::drawingCopied), {paths::findFileName(path), paths::titleOf(work.projectId())}));
}

} // namespace ryv
