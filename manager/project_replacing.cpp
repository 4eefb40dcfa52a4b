// Putting one project in the place of an open one.

#include "base/text.h"
#include "bridge/platform.h"
#include "manager/project_manager.h"
#include "manager/shown_messages.h"
#include "resources/message_numbers.h"

namespace ryv {

namespace {

constexpr CStringView sameNameDialog = u"RyvPageMan.BrowseOpenLastProjSameName";
constexpr CStringView projectNameVariable = u"ProjectName";

bool userReplacesProject(const CString& name) {
    const ShownMessage question{message::replaceOpenProject, message::replaceOpenProjectTitle,
        MessageIcon::warning, MessageButtons::yesNo};
    return showMessage(question, {}, {name}) == Answer::yes;
}

void tellThatLastProjectStays(const CString& name) {
    TaskDialogRequest request;
    if (platform().services.taskDialogs->load(
            sameNameDialog, {{CString(projectNameVariable), name}}, request))
        platform().ui->taskDialog(request);
}

} // namespace

bool RyvPrmProjectManager::activateNextOf(CStringView projectId) {
    const std::size_t index = indexOf(projectId);
    if (index == projects_.size())
        return false;
    const CString next = projects_[(index + 1) % projects_.size()]->getProjectID();
    return setActiveProject(next);
}

bool RyvPrmProjectManager::replaceOpenProject(CStringView oldId, CStringView newId, bool activate) {
    if (oldId.empty() || newId.empty() || projects_.size() <= 1)
        return false;
    const CString replaced = replaceAll(oldId, u'/', u'\\');
    const CString replacement = replaceAll(newId, u'/', u'\\');
    if (getActiveProject() && isActiveProject(replaced) && !activateNextOf(replaced))
        return false;
    return closeProject(replaced, false) && openProject(replacement, activate, false);
}

bool RyvPrmProjectManager::replaceOpenProjectWithPrompt(CStringView oldId, CStringView newId, bool activate) {
    if (oldId.empty() || newId.empty())
        return false;
    const CString replaced(oldId);
    const CString replacement(newId);
    CString name;
    makeProjectPrettyNameFromID(replacement, name);
    if (projects_.size() > 1)
        return userReplacesProject(name) && replaceOpenProject(replaced, replacement, activate);
    tellThatLastProjectStays(name);
    return false;
}

bool RyvPrmProjectManager::projectMoved(CStringView oldId, CStringView newId) {
    const CString replaced(oldId);
    const CString replacement = replaceAll(newId, u'/', u'\\');
    const bool wasActive = isActiveProject(replaced);
    RyvPrmKQPFiler filer(replacement, false, true);
    if (filer.isOpen()) {
        filer.CleanupProjectData();
        filer.closeProject();
    }
    return replaceOpenProject(replaced, replacement, wasActive);
}

} // namespace ryv
