#include "ui/dialogs/creation/project_maker.h"

#include "base/paths.h"
#include "base/text.h"
#include "bridge/platform.h"
#include "manager/existing_files.h"
#include "manager/shown_messages.h"
#include "model/kqp_filer.h"
#include "resources/creation_message_numbers.h"
#include "resources/file_reasons.h"

namespace ryv {

namespace {

constexpr int ownSetting = 9;
constexpr int linkedProjectSetting = 39; // the outside tool's project

bool tell(int text, CStringView path, FileStatus status) {
    showMessage(
        {text, message::newProjectTitle, MessageIcon::warning}, {shownPath(path), fileReason(status.error)});
    return false;
}

bool tell(int text, const RyvPrmKQPFiler& filer) {
    const CString& file = filer.lastFile();
    return tell(text, file.empty() ? filer.projectPath() : file, filer.lastStatus());
}

bool makeFolderOf(const CString& path) {
    CString failed;
    const FileStatus status = createFolders(paths::folderOf(path), failed);
    return status.ok() || tell(message::newProjectFolderNotMade, failed, status);
}

bool readSource(const CString& path, RyvPrmProjectData& data) {
    RyvPrmKQPFiler filer(path, false, true);
    if (filer.isOpen())
        filer.readProject(data);
    return filer.getLastError() == RyvPmUtilsKQPFiler::noError || tell(message::newProjectNotRead, filer);
}

void adapt(RyvPrmProjectData& data, const NewProjectValues& values) {
    data.removeAllFiles();
    data.setProjDescriptions({values.descriptions.begin(), values.descriptions.end()});
    RyvPmMiscProjSettings misc = data.getMiscProjSettings();
    if (values.setting9)
        misc.setValue(ownSetting, &*values.setting9);
    const CString noLink;
    misc.setValue(linkedProjectSetting, &noLink);
    data.setMiscProjSettings(misc);
}

bool write(const CString& path, const RyvPrmProjectData& data) {
    RyvPrmKQPFiler filer(path, true, true);
    filer.expectContent(Fingerprint()); // no file
    return (filer.isOpen() && filer.writeProject(data)) || tell(message::newProjectNotWritten, filer);
}

} // namespace

FileStatus createFolders(CStringView path, CString& failed) {
    CString folder(trim(path));
    if (folder.ends_with(u'\\'))
        folder.pop_back();
    CStringArray missing;
    while (!folder.empty() && !folder.ends_with(u':') && !exists(folder)) {
        missing.push_back(folder);
        if (!paths::removeFileSpec(folder))
            break; // a drive or share that is not there
    }
    for (auto each = missing.rbegin(); each != missing.rend(); ++each) {
        const FileStatus status = platform().os.files->createFolder(*each);
        if (!status.ok() && status.error != FileError::exists) { // somebody else was faster
            failed = *each;
            return status;
        }
    }
    return {};
}

bool makeProject(const NewProjectValues& values) {
    RyvPrmProjectData data;
    if (!makeFolderOf(values.path) || !readSource(values.source, data))
        return false;
    adapt(data, values);
    return write(values.path, data);
}

} // namespace ryv
