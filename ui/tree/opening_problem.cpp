#include "ui/tree/opening_problem.h"

#include "base/format.h"
#include "base/paths.h"
#include "bridge/platform.h"
#include "manager/nav_state.h"
#include "manager/project_manager.h"
#include "manager/shown_messages.h"
#include "resources/file_reasons.h"
#include "resources/message_numbers.h"
#include "resources/messages.h"

namespace ryv {

namespace {

CString problemOfFile(CStringView drawing) {
    Files& files = *platform().os.files;
    const CStringView name = paths::findFileName(drawing);
    FileInformation found;
    FileStatus status = files.information(drawing, found);
    if (status.ok() && found.isFolder)
        status.error = FileError::isFolder;
    if (status.ok())
        return {};
    if (status.error != FileError::missing)
        return format(messageText(message::drawingNotOpened), {name, fileReason(status.error)});
    const CString folder = paths::folderOf(drawing);
    const bool hasFolder = files.information(folder, found).ok();
    return format(messageText(hasFolder ? message::drawingFileNotFound : message::drawingFolderNotFound),
        {name, shownPath(folder)});
}

} // namespace

CString problemOfOpening(CStringView drawing) {
    if (CString problem = problemOfFile(drawing); !problem.empty())
        return problem;
    RyvPrmProjectManager* const manager = GetProjectManager();
    CString holder;
    const _lockStatus status =
        manager ? manager->whoHasProjectFileLocked(drawing, &holder, nullptr, nullptr) : lockInvalid;
    const CStringView name = paths::findFileName(drawing);
    if (status == lockOther)
        return format(messageText(message::drawingHeld), {name, holder});
    return status == lockUnreadable ? format(messageText(message::drawingLockUnreadable), {name}) : CString();
}

} // namespace ryv
