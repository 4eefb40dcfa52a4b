#include "manager/path_check.h"

#include "base/format.h"
#include "base/paths.h"
#include "bridge/platform.h"
#include "manager/existing_files.h"
#include "manager/shown_messages.h"
#include "resources/message_numbers.h"
#include "resources/messages.h"
#include "siblings/ut_file.h"

namespace ryv {

namespace {

constexpr CStringView drawingExtension = u".dwg";

CString nameOf(CStringView path) {
    return CString(paths::findFileName(path));
}

CString inFolder(CStringView folder, CStringView drawing) {
    CString path(folder);
    if (!path.ends_with(u'\\'))
        path += u'\\';
    return path + nameOf(drawing);
}

CStringArray drawingsOf(const RyvPrmProject& project) {
    CArray<RyvPrmFileDetails*> drawings;
    project.getProjectData().generateFlatFileDetailsArray(drawings);
    CStringArray names;
    for (const RyvPrmFileDetails* drawing : drawings)
        names.emplace_back(drawing->getFileName());
    return names;
}

CString firstMissing(const RyvPrmProject& project) {
    for (const CString& drawing : drawingsOf(project))
        if (!exists(drawing))
            return drawing;
    return {};
}

bool userAgrees(int text, int title, std::initializer_list<FormatArgument> arguments) {
    return showMessage({text, title, MessageIcon::question, MessageButtons::okCancel}, arguments) ==
           Answer::ok;
}

/// The folder of the file that the user picks; empty when none is picked. The front end shows the file dialog
/// that fits: its own while a document is current, otherwise the one for navigating.
CString folderFromUser(CStringView drawing, const CString& projectFolder) {
    FileRequest request;
    request.title = message::locateDrawingTitle;
    request.text = format(messageText(message::locateDrawingTitle), {nameOf(drawing)});
    request.folder = projectFolder;
    request.name = nameOf(drawing);
    request.extension = drawingExtension;
    const std::vector<CString> picked = platform().ui->chooseFiles(request);
    return picked.empty() ? CString() : paths::folderOf(picked.front());
}

enum class Pass { searchAgain, repaired, cancelled, stopped };

Pass repairIn(RyvPrmProject& project, const CString& folder) {
    return repairPaths(project, folder) ? Pass::repaired : Pass::searchAgain;
}

/// Asks about one missing drawing.
Pass askAbout(RyvPrmProject& project, const CString& missing, const CString& projectFolder) {
    using namespace message;
    if (allFoundAtPath(project, projectFolder))
        return userAgrees(allFoundInFolder, allFoundInFolderTitle,
                   {shownPath(paths::folderOf(missing)), shownPath(projectFolder)})
                   ? repairIn(project, projectFolder)
                   : Pass::cancelled;
    if (exists(inFolder(projectFolder, missing)))
        return userAgrees(oneFoundInFolder, oneFoundInFolderTitle, {shownPath(projectFolder)})
                   ? repairIn(project, projectFolder)
                   : Pass::cancelled;
    const CString name = RyvUtFile::ProjectNameOf(project.getProjectID());
    if (!userAgrees(drawingNotFound, drawingNotFoundTitle, {shownPath(missing), name}))
        return Pass::cancelled;
    const CString folder = folderFromUser(missing, projectFolder);
    return folder.empty() ? Pass::stopped : repairIn(project, folder);
}

} // namespace

bool allFoundAtPath(const RyvPrmProject& project, CStringView folder) {
    for (const CString& drawing : drawingsOf(project))
        if (!paths::isRelative(drawing) && !exists(inFolder(folder, drawing)))
            return false;
    return true;
}

bool repairPaths(RyvPrmProject& project, CStringView folder) {
    bool allFound = true;
    for (const CString& drawing : drawingsOf(project)) {
        if (paths::isRelative(drawing) || exists(drawing))
            continue;
        const CString found = inFolder(folder, drawing);
        if (exists(found))
            project.replaceFile(drawing, found, true);
        else
            allFound = false;
    }
    return allFound;
}

PathCheck findMissingDrawings(RyvPrmProject& project) {
    const CString folder = paths::folderOf(project.getProjectID());
    if (folder.empty())
        return PathCheck::nothingMissing;
    for (;;) {
        const CString missing = firstMissing(project);
        if (missing.empty())
            return PathCheck::nothingMissing;
        switch (askAbout(project, missing, folder)) {
        case Pass::searchAgain:
            break;
        case Pass::repaired:
            project.pathsRepaired = true;
            return PathCheck::repaired;
        case Pass::cancelled:
            project.pathCheckCancelled = true;
            return PathCheck::cancelled;
        case Pass::stopped:
            return PathCheck::nothingMissing;
        }
    }
}

} // namespace ryv
