#include "ui/tree/project_opening.h"

#include "base/fold.h"
#include "bridge/environment.h"
#include "bridge/platform.h"
#include "manager/project_manager.h"
#include "manager/shown_messages.h"
#include "resources/message_numbers.h"
#include "resources/messages.h"

namespace ryv {

CString chooseProjectFile() {
    FileRequest request;
    request.title = message::openProjectTitle;
    request.text = messageText(request.title);
    request.extension = u".kqp";
    readEnvironment(u"KQ_PICKPRJDLG", request.folder);
    const std::vector<CString> chosen = platform().ui->chooseFiles(request);
    return chosen.empty() ? CString() : chosen.front();
}

bool openOrReplaceProject(const CString& projectId) {
    RyvPrmProjectManager* const manager = GetProjectManager();
    if (!manager)
        return false;
    CString existing;
    const bool sameName = manager->isProjectSameNameAsExisting(projectId, &existing);
    if (sameName && !equalNoCase(existing, projectId))
        return manager->replaceOpenProjectWithPrompt(existing, projectId, true);
    if (manager->openProject(projectId, true))
        return true;
    showMessage({message::projectNotOpened, message::projectNotOpenedTitle}, {shownPath(projectId)});
    return false;
}

} // namespace ryv
