#include "ui/dialogs/creation/new_project.h"

#include "base/fold.h"
#include "bridge/platform.h"
#include "manager/project_manager.h"
#include "manager/shown_messages.h"
#include "resources/creation_message_numbers.h"
#include "ui/dialogs/creation/new_project_dialog.h"
#include "ui/dialogs/creation/project_maker.h"
#include "ui/dialogs/work/project_properties.h"

namespace ryv {

namespace {

/// The user hears of what keeps it from being opened.
bool open(const CString& path) {
    RyvPrmProjectManager* const manager = GetProjectManager();
    CString namesake;
    if (manager && manager->isProjectSameNameAsExisting(path, &namesake) && !equalNoCase(namesake, path))
        return manager->replaceOpenProjectWithPrompt(namesake, path, true);
    const bool opened = manager && manager->openProject(path, true);
    if (!opened)
        showMessage({message::newProjectNotOpened, message::newProjectTitle, MessageIcon::warning},
            {shownPath(path)});
    return opened;
}

} // namespace

CString makeNewProject() {
    RyvPrmProjectManager* const manager = GetProjectManager();
    if (!manager || manager->sendEventVetoCheck())
        return {};
    CRyvCfgProjNewDlg dialog(makeProject);
    if (platform().ui->runModal(dialog) != Dialog::idOk)
        return {};
    const NewProjectValues& values = dialog.values();
    if (!open(values.path))
        return {};
    if (values.showsProperties)
        showProjectProperties(values.path);
    return values.path;
}

} // namespace ryv
