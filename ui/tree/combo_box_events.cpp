// How the list of open projects follows the projects.
#include "ui/tree/combo_box.h"

#include "base/fold.h"
#include "manager/nav_state.h"

namespace ryv {

void RyvPrmComboBox::HookProjectEvents() {
    UnhookProjectEvents();
    if (NavState* const state = navState())
        listUpdates_ = state->onListNeedsUpdate.subscribe([this] { onListNeedsUpdate(); });
    RyvPrmProjectManager* const manager = GetProjectManager();
    if (!manager)
        return;
    using Box = RyvPrmComboBox;
    manager->onProjectOpen.subscribe(*this, &Box::onProjectOpen);
    manager->onProjectClose.subscribe(*this, &Box::onProjectClose);
    manager->onProjectCloseAllNA.subscribe(*this, &Box::onProjectCloseAllNA);
    manager->onProjectSetActive.subscribe(*this, &Box::onProjectSetActive);
    manager->onProjectLocked.subscribe(*this, &Box::onProjectLocked);
    manager->onProjectUnlocked.subscribe(*this, &Box::onProjectUnlocked);
    manager->onProjectReadOnlyChanged.subscribe(*this, &Box::onProjectReadOnlyChanged);
}

void RyvPrmComboBox::UnhookProjectEvents() {
    listUpdates_.reset();
    if (RyvPrmProjectManager* const manager = GetProjectManager())
        manager->__RemoveAllEventHandlers(this);
}

void RyvPrmComboBox::onProjectOpen(const CString& projectId) {
    images_.erase(toUpper(projectId));
    rebuild();
}

void RyvPrmComboBox::onProjectClose(const CString& projectId) {
    images_.erase(toUpper(projectId));
    rebuild();
}

void RyvPrmComboBox::onProjectCloseAllNA() {
    images_.clear();
    rebuild();
}

void RyvPrmComboBox::onProjectSetActive(const CString&) {
    rebuild();
}

void RyvPrmComboBox::onProjectLocked(const CString& projectId) {
    OnProjectLockChanged(projectId);
}

void RyvPrmComboBox::onProjectUnlocked(const CString& projectId) {
    OnProjectLockChanged(projectId);
}

void RyvPrmComboBox::onProjectReadOnlyChanged(const CString& projectId, bool) {
    OnProjectLockChanged(projectId);
}

void RyvPrmComboBox::onListNeedsUpdate() {
    rebuild();
}

void RyvPrmComboBox::OnProjectLockChanged(CStringView projectId) {
    ReloadLockerImage(projectId);
}

void RyvPrmComboBox::ReloadLockerImage(CStringView projectId) {
    if (projectId.empty())
        images_.clear();
    else
        images_.erase(toUpper(projectId));
    showEntries();
}

} // namespace ryv
