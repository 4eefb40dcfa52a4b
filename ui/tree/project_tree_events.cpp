// How the project tree follows the projects.
#include "ui/tree/project_tree.h"

#include "base/fold.h"
#include "base/format.h"
#include "base/text.h"
#include "bridge/platform.h"
#include "bridge/waiting.h"
#include "manager/shown_messages.h"
#include "resources/file_reasons.h"
#include "resources/message_numbers.h"
#include "resources/messages.h"

#include <algorithm>
#include <utility>

namespace ryv {

CProjectTree::CProjectTree(int id) : TreeControl(id) {
    attach(focusWatch_);
    setEmptyText(CString(messageText(message::treeEmpty)));
}

CProjectTree::~CProjectTree() {
    UnhookProjectEvents();
}

void CProjectTree::HookProjectEvents() {
    UnhookProjectEvents();
    RyvPrmProjectManager* const manager = GetProjectManager();
    if (!manager)
        return;
    manager->onProjectOpen.subscribe(*this, &CProjectTree::onProjectOpen);
    manager->onProjectClose.subscribe(*this, &CProjectTree::onProjectClose);
    manager->onProjectCloseAllNA.subscribe(*this, &CProjectTree::onProjectCloseAllNA);
    manager->onProjectSetActive.subscribe(*this, &CProjectTree::onProjectSetActive);
    manager->onProjectReRead.subscribe(*this, &CProjectTree::onProjectReRead);
    manager->onDrawingActivate.subscribe(*this, &CProjectTree::onDrawingActivate);
    manager->onProjectLocked.subscribe(*this, &CProjectTree::onLockChanged);
    manager->onProjectUnlocked.subscribe(*this, &CProjectTree::onLockChanged);
    manager->onProjectReadOnlyChanged.subscribe(*this, &CProjectTree::onReadOnlyChanged);
    platform().services.projectDatabase->add(*this);
    for (const CString& projectId : openProjects())
        onProjectOpen(projectId);
}

void CProjectTree::UnhookProjectEvents() {
    platform().services.projectDatabase->remove(*this);
    if (RyvPrmProjectManager* const manager = GetProjectManager())
        manager->__RemoveAllEventHandlers(this);
}

CStringArray CProjectTree::openProjects() {
    CStringArray ids;
    const RyvPrmProjectManager* const manager = GetProjectManager();
    for (int index = 0; manager && index < manager->getProjectCount(); ++index)
        ids.push_back(manager->getProject(index)->getProjectID());
    return ids;
}

void CProjectTree::onProjectOpen(const CString& projectId) {
    if (!GetProjectItem(projectId))
        InsertProjectItem(projectId);
    sortProjectItems();
    rebuild(projectId);
}

void CProjectTree::onProjectClose(const CString& projectId) {
    withdrawMoveOffer(projectId);
    TreeItem* const item = GetProjectItem(projectId);
    if (!item)
        return;
    remove(*item);
    BoldNewActiveDrawingAndSubfolders(activeDrawing_); // another project may list it
    tellDetails();
}

void CProjectTree::onProjectCloseAllNA() {
    const TreeItem* const active = GetActiveProjItem();
    CStringArray gone;
    for (const TreeItem* item = child(nullptr, 0); item; item = item->next())
        if (item != active)
            gone.push_back(projectOfRow(*item));
    for (const CString& projectId : gone)
        onProjectClose(projectId);
}

void CProjectTree::onProjectSetActive(const CString&) {
    boldActiveProject();
    sortProjectItems();
    if (TreeItem* const active = GetActiveProjItem())
        ensureVisible(*active);
    BoldNewActiveDrawingAndSubfolders(activeDrawing_);
}

void CProjectTree::onDrawingActivate(const CString& drawing) {
    BoldNewActiveDrawingAndSubfolders(drawing);
}

void CProjectTree::onProjectReRead(const CString& projectId) {
    withdrawMoveOffer(projectId);
    rebuild(projectId);
}

void CProjectTree::onLockChanged(const CString&) {
    tellDetails();
}

void CProjectTree::onReadOnlyChanged(const CString&, bool) {
    tellDetails();
}

void CProjectTree::Refresh() {
    const AtWork work = atWork();
    const Waiting waiting;
    const SuppressReread untilAllAreRead(*this);
    CString problems;
    for (const CString& projectId : openProjects()) {
        notice_.clearUnlessOffering();
        if (!ProjectWork(*this, projectId).reRead() && !notice_.text().empty())
            problems.append(problems.empty() ? u"" : u" ").append(notice_.text());
        rebuild(projectId); // also when it could not be read: the labels may be others
    }
    if (!problems.empty())
        notice_.tell(std::move(problems));
}

/// While the user types a name, rows that came and went could take the place of the one being named away.
bool CProjectTree::mustWait() const noexcept {
    return suppressed_ > 0 || editedItem() || problems_.isBuilding();
}

void CProjectTree::rebuild(const CString& projectId) {
    if (mustWait()) {
        const auto same = [&](const CString& each) { return equalNoCase(each, projectId); };
        if (std::none_of(pendingRereads_.begin(), pendingRereads_.end(), same))
            pendingRereads_.push_back(projectId);
    } else if (TreeItem* const item = GetProjectItem(projectId)) {
        AddDWGNodes(*item, projectId);
    }
}

/// Each rebuild comes by here at its end; the outermost call works the list off. What a rebuild throws is
/// told and goes no further: it is no fault of whoever happens to be at its end, among them destructors.
void CProjectTree::handlePendingRereads() {
    if (handlingRereads_)
        return;
    struct Handling {
        explicit Handling(bool& set) noexcept : flag(set) { flag = true; }
        Handling(const Handling&) = delete;
        Handling& operator=(const Handling&) = delete;
        ~Handling() { flag = false; }
        bool& flag;
    };
    const Handling handling(handlingRereads_);
    while (!mustWait() && !pendingRereads_.empty()) {
        const CString projectId = pendingRereads_.front();
        pendingRereads_.erase(pendingRereads_.begin());
        try {
            rebuild(projectId);
        } catch (...) {
            problems_.add(format(messageText(message::projectNotReadAgain),
                {shownPath(projectId), fileReason(FileError::other)}));
        }
    }
}

/// While rows are being built, what is said of them waits until that is done.
void CProjectTree::tellDetails() {
    if (problems_.isBuilding())
        detailsDue_ = true;
    else
        detailsChanged.fire();
}

void CProjectTree::onSelectionChanged() {
    tellDetails();
}

CProjectTree::SuppressReread::SuppressReread(CProjectTree& tree) : tree_(tree) {
    ++tree_.suppressed_;
}

CProjectTree::SuppressReread::~SuppressReread() {
    --tree_.suppressed_;
    tree_.handlePendingRereads();
}

} // namespace ryv
