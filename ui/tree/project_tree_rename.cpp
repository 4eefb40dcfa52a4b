// Renaming subfolders and drawings in place.
#include "ui/tree/project_tree.h"

#include "base/at_end.h"
#include "base/file_names.h"
#include "base/fold.h"
#include "base/paths.h"
#include "base/text.h"
#include "bridge/platform.h"
#include "manager/shown_messages.h"
#include "resources/file_reasons.h"
#include "resources/message_numbers.h"
#include "resources/messages.h"
#include "siblings/rename_file.h"
#include "toolkit/tree_item_watch.h"
#include "ui/tree/item_names.h"
#include "ui/tree/other_projects.h"
#include "ui/tree/project_work.h"
#include "ui/tree/task_questions.h"

#include <utility>

namespace ryv {

namespace {

CString forbiddenText(TreeItemType type) {
    CString characters;
    for (const char16_t unit :
        type == TreeItemType::drawing ? forbiddenInFileNames : forbiddenInSubfolderNames)
        characters.append(characters.empty() ? u"" : u" ").append(1, unit);
    return format(messageText(message::nameForbidden), {characters});
}

CString problemText(NameProblem problem, TreeItemType type, CStringView name) {
    switch (problem) {
    case NameProblem::none:
        break;
    case NameProblem::noName:
        return CString(messageText(message::nameEmpty));
    case NameProblem::forbidden:
        return forbiddenText(type);
    case NameProblem::tooLong:
        return CString(messageText(message::nameTooLong));
    case NameProblem::taken:
        return format(messageText(message::nameTaken), {name});
    }
    return {};
}

bool isOnDisk(CStringView path) {
    FileInformation found;
    return platform().os.files->information(path, found).ok();
}

/// False when the subfolder is gone. Those whose names differ in case are one row, and one name for the user.
bool renameInProject(RyvPrmProjectData& project, CStringView trace, const CString& name) {
    const std::vector<RyvPrmSubfolder*> folders = foldersOf(project, trace);
    for (RyvPrmSubfolder* const folder : folders)
        folder->setName(name);
    return !folders.empty();
}

/// The database follows files by their names, so it hears of each rename from its beginning.
bool renameAnnounced(
    CProjectTree& tree, const RyvPrmProject& project, CStringView from, CStringView to, std::int32_t fileId) {
    ProjectDatabase& database = *platform().services.projectDatabase;
    const CString projectId = project.getProjectID();
    database.PmRenameStarted(projectId, from, fileId);
    const bool renamed = tree.DoActualFileRename(from, to, false);
    database.PmRenameCompleted(projectId, renamed ? to : CStringView());
    return renamed;
}

} // namespace

CString CProjectTree::editText(const TreeItem& item) const {
    const _itemdatastruct* const record = GetItemData(&item);
    if (!record || record->type != TreeItemType::drawing)
        return TreeControl::editText(item);
    return CString(paths::findFileName(record->key));
}

bool CProjectTree::onBeginLabelEdit(TreeItem& item) {
    const TreeItemType type = GetItemType(&item);
    if (editWork_ || (type != TreeItemType::drawing && type != TreeItemType::subfolder))
        return false;
    notice_.clearUnlessOffering();
    rejectedItem_ = nullptr;
    CStringArray written;
    if (type == TreeItemType::drawing)
        written.push_back(GetItemData(&item)->key);
    bool locked = false;
    const AtEnd giveUp([&] {
        if (!locked)
            editWork_.reset();
    });
    editWork_ = std::make_unique<ProjectWork>(*this, GetProjectOfItem(&item));
    locked = editWork_->lock(written); // nothing else is edited while LISP is at it
    return locked;
}

bool CProjectTree::onEndLabelEdit(TreeItem& item, const CString& text) {
    const TreeItemWatch watch(*this, item);
    const bool isSubfolder = GetItemType(&item) == TreeItemType::subfolder;
    nameRejected_ = false;
    if (RenameTreeItem(item, text) && watch.item())
        setLabel(*watch.item(), isSubfolder ? subfolderNameOf(text) : CString(trim(text)));
    if (nameRejected_ && watch.item()) {
        rejectedItem_ = watch.item();
        rejectedText_ = text;
    }
    return false; // the label is never the text as it was typed
}

/// What came in meanwhile is handled while the files are still locked, and a break that was meant for the
/// editing does not end what is run next.
void CProjectTree::onLabelEditEnded() {
    {
        const AtEnd unlock([this] { editWork_.reset(); });
        platform().os.messages->pump();
        platform().host.editor->takeUserBreak();
    }
    handlePendingRereads();
    if (TreeItem* const item = std::exchange(rejectedItem_, nullptr))
        editLabel(*item, std::exchange(rejectedText_, {}));
}

bool CProjectTree::RenameTreeItem(TreeItem& item, const CString& text) {
    if (!editWork_)
        return false;
    if (GetItemType(&item) == TreeItemType::subfolder)
        return renameSubfolder(item, text);
    if (GetItemType(&item) == TreeItemType::drawing)
        renameDrawing(item, text);
    return false; // the label of a drawing comes with what it is made of
}

bool CProjectTree::renameSubfolder(TreeItem& item, const CString& text) {
    const CString trace = GetSubfolderTraceForItem(&item);
    const CString name = subfolderNameOf(text);
    const auto project = editWork_->project();
    if (!project || name.empty() || equalNoCase(name, GetItemData(&item)->key))
        return false;
    switch (problemOfSubfolderName(project->getProjectData(), trace, name)) {
    case NameProblem::forbidden:
        askTask(u"RyvPageMan.InvalidCharForSubfolderName",
            {{u"InvalidChars", CString(forbiddenInSubfolderNames)}});
        rejectName();
        return false;
    case NameProblem::taken:
        askTask(u"RyvPageMan.SubfolderNameExists");
        rejectName();
        return false;
    default:
        break;
    }
    const TreeItemWatch watch(*this, item);
    const SuppressReread rowKeepsItsPlace(*this);
    if (!renameInProject(project->editProjectData(), trace, name)) {
        notice_.tell(format(messageText(message::renamedItemGone), {item.label()}));
        return false;
    }
    if (!editWork_->write())
        return false;
    if (auto* const record = dynamic_cast<_subfolderdatastruct*>(GetItemData(watch.item()))) {
        record->key = name;
        record->subfolder.setName(name);
        setLabel(*watch.item(), name);
    }
    return true;
}

void CProjectTree::renameDrawing(TreeItem& item, const CString& text) {
    const CString from = GetItemData(&item)->key;
    const auto project = editWork_->project();
    if (!project || equalNoCase(trim(text), paths::findFileName(from)))
        return;
    const NameProblem problem = problemOfDrawingName(project->getProjectData(), from, text);
    if (problem == NameProblem::noName) {
        askTask(u"RyvPageMan.RenameDrawingNoFileName");
        return;
    }
    if (problem != NameProblem::none) {
        showMessage({message::fileNotRenamed, message::fileNotRenamedTitle},
            {shownPath(from), problemText(problem, TreeItemType::drawing, trim(text))});
        return rejectName();
    }
    const CString to = renamedDrawing(from, text).value();
    if (equalNoCase(from, to))
        return;
    const TreeItemWatch watch(*this, item);
    const SuppressReread rowKeepsItsPlace(*this);
    const bool renamed = renameListedDrawing(from, to);
    if (!renamed && isOnDisk(from) && isOnDisk(to))
        rejectName(); // the user was told that the name is taken
    auto* const record = dynamic_cast<_dwgdatastruct*>(GetItemData(watch.item()));
    if (renamed && record) {
        record->key = to;
        record->details.setFileName(to);
    }
    if (renamed && equalNoCase(activeDrawing_, from))
        BoldNewActiveDrawingAndSubfolders(to);
    if (renamed || editWork_->wasWritten())
        renameInOtherProjects(*this, CString(editWork_->projectId()), from, to);
}

/// On disk and in the project, or neither. A project may list a drawing more than once.
bool CProjectTree::renameListedDrawing(CStringView from, CStringView to) {
    const auto project = editWork_->project();
    if (!project || !project->isFileInProject(from)) {
        notice_.tell(format(messageText(message::renamedItemGone), {paths::findFileName(from)}));
        return false;
    }
    const std::int32_t fileId = project->GetFileId(from);
    if (!renameAnnounced(*this, *project, from, to, fileId))
        return false;
    RyvPrmProjectManager* const manager = GetProjectManager();
    if (const auto open = editWork_->project())
        renameRepeated(open->editProjectData(), from, to);
    if (manager && manager->renameFileInProject(from, to, editWork_->projectId()))
        return editWork_->settle(true);
    renameAnnounced(*this, *project, to, from, fileId);
    return editWork_->settle(false);
}

bool CProjectTree::DoActualFileRename(CStringView oldPath, CStringView newPath, bool caseOnly) {
    if (oldPath == newPath || (equalNoCase(oldPath, newPath) && !caseOnly))
        return false;
    HostDocuments& documents = *platform().host.documents;
    const DocumentId document = documents.documentOfFile(oldPath);
    const FileStatus status = document == DocumentId::none
                                  ? renameWithoutReplacing(*platform().os.files, oldPath, newPath)
                                  : documents.renameFile(document, newPath);
    lastRenameError_ = status.error;
    if (!status.ok() && !caseOnly) {
        const CString reason = status.error == FileError::exists
                                   ? format(messageText(message::nameTaken), {paths::findFileName(newPath)})
                                   : fileReason(status.error);
        showMessage({message::fileNotRenamed, message::fileNotRenamedTitle}, {shownPath(oldPath), reason});
    }
    return status.ok();
}

CString CProjectTree::problemOfName(const TreeItem& item, const CString& text) const {
    const RyvPrmProjectManager* const manager = GetProjectManager();
    const RyvPrmProject* const project = manager ? manager->getProject(GetProjectOfItem(&item)) : nullptr;
    const _itemdatastruct* const record = GetItemData(&item);
    if (!project || !record)
        return {};
    const RyvPrmProjectData& data = project->getProjectData();
    if (record->type == TreeItemType::subfolder) {
        const CString name = subfolderNameOf(text);
        const NameProblem problem = problemOfSubfolderName(data, GetSubfolderTraceForItem(&item), name);
        return problemText(problem, record->type, name);
    }
    NameProblem problem = problemOfDrawingName(data, record->key, text);
    const std::optional<CString> path = renamedDrawing(record->key, text);
    if (problem == NameProblem::none && !equalNoCase(*path, record->key) && isOnDisk(*path))
        problem = NameProblem::taken;
    return problemText(problem, record->type, paths::findFileName(path.value_or(text)));
}

} // namespace ryv
