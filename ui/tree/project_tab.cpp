#include "ui/tree/project_tab.h"

#include "base/fold.h"
#include "bridge/command_strings.h"
#include "bridge/platform.h"
#include "resources/message_numbers.h"
#include "resources/messages.h"
#include "ui/dialogs/drawing_list_dialog.h"
#include "ui/tree/tree_commands.h"

#include <algorithm>

namespace ryv {

namespace {

using Tab = RyvPrmProjectTab;

constexpr CStringView helpTopic = u"project_manager_dialog";

/// A button of the row; its name selects its image.
struct TabButton {
    CStringView name;
    int id = 0;
    int tooltip = 0;        ///< number of the text
    bool needsIdle = false; ///< disabled while the host works on something
    bool startsGroup = false;
};

constexpr std::array<TabButton, 9> tabButtons = {{
    {u"NEWPROJ", Tab::newProjectId, message::tabNewProject, true},
    {u"OPENPROJ", Tab::openProjectId, message::tabOpenProject},
    {u"NEWDWG", Tab::newDrawingId, message::tabNewDrawing, true},
    {u"REFRESH", Tab::refreshId, message::tabRefresh, false, true},
    {u"TASKLIST", Tab::taskListId, message::tabTaskList, true},
    {u"RESEQTAG", Tab::resequenceId, message::tabResequence, true},
    {u"DISPCON", Tab::displayId, message::tabDisplay, false, true},
    {u"PUBLISH", Tab::publishId, message::tabPublish, true},
    {u"HELP", Tab::helpId, message::tabHelp, false, true},
}};

bool isDocumentIdle() {
    return platform().host.documents->hasCurrentDocument() && isQuiescent();
}

bool hasPendingTasks() {
    const RyvPrmProjectManager* const manager = GetProjectManager();
    return manager && manager->projectHasTasks();
}

} // namespace

RyvPrmProjectTab::RyvPrmProjectTab(NavState& nav, std::unique_ptr<CProjectTree> tree)
    : nav_(nav), tree_(std::move(tree)), busy_(!isQuiescent()) {
    addButtons();
    page_.setContent(*tree_);
    page_.setNotice(tree_->notice());
    nav_.addBusyListener(*this);
    if (RyvPrmProjectManager* const manager = GetProjectManager()) {
        manager->onProjectSetActive.subscribe(*this, &Tab::onProjectSetActive);
        manager->onProjectOpen.subscribe(*this, &Tab::onProjectOpen);
        manager->onProjectClose.subscribe(*this, &Tab::onProjectClose);
        manager->onProjectTasksAdded.subscribe(*this, &Tab::onProjectTasksChanged);
        manager->onProjectTasksDeleted.subscribe(*this, &Tab::onProjectTasksChanged);
    }
    tree_->HookProjectEvents();
    showActiveProject();
    enableButtons();
}

RyvPrmProjectTab::~RyvPrmProjectTab() {
    nav_.removeBusyListener(*this);
    if (RyvPrmProjectManager* const manager = GetProjectManager())
        manager->__RemoveAllEventHandlers(this);
}

void RyvPrmProjectTab::addButtons() {
    for (const TabButton& each : tabButtons) {
        auto button = std::make_unique<Button>(each.id);
        button->setName(CString(each.name));
        button->setTooltip(CString(messageText(each.tooltip)));
        button->setDropDown(each.id == publishId);
        presses_.push_back(button->pressed.subscribe([this](Button& pressed) { press(pressed.id()); }));
        if (each.startsGroup)
            page_.addGap();
        page_.addButton(*button);
        buttons_.push_back(std::move(button));
    }
}

Button& RyvPrmProjectTab::button(int id) {
    return **std::find_if(
        buttons_.begin(), buttons_.end(), [id](const auto& each) { return each->id() == id; });
}

void RyvPrmProjectTab::press(int id) {
    const AtWork work = tree_->atWork();
    tree_->notice().clearUnlessOffering();
    switch (id) {
    case newProjectId:
        return tree_->EmptySelectMenuNewProject();
    case openProjectId:
        return tree_->EmptySelectMenuOpenProject();
    case newDrawingId:
        return tree_->EmptySelectMenuNewDrawing();
    case refreshId:
        return tree_->Refresh();
    case taskListId:
        return runInApplicationContext(CommandString::runPendingUpdates);
    case resequenceId:
        return runInApplicationContext(CommandString::resequence);
    case displayId:
        return configureDisplay();
    case publishId:
        return publish();
    default:
        return platform().services.help->showTopic(helpTopic);
    }
}

void RyvPrmProjectTab::configureDisplay() {
    CRyvPrmDwgListConfigDlg dialog;
    if (platform().ui->runModal(dialog) == Dialog::idOk)
        tree_->Refresh();
}

/// What is selected may be another thing when the menu has been closed: the command looks again.
void RyvPrmProjectTab::publish() {
    Menu menu(u"publish");
    for (const int id : publishCommands()) {
        const TreeCommand* const command = findTreeCommand(id);
        menu.add(id, CString(messageText(command->text))).enabled = command->isEnabled(*tree_);
    }
    const int chosen = platform().ui->popupMenu(menu, ScreenPoint::atControl());
    if (chosen != 0)
        tree_->runCommand(chosen);
}

void RyvPrmProjectTab::busyChanged(std::int16_t busy) {
    busy_ = busy != 0;
    enableButtons();
}

/// What the user works on now is opened up, and selected when nothing is: once, since afterwards the user
/// decides how it looks.
void RyvPrmProjectTab::showActiveProject() {
    TreeItem* const active = tree_->GetActiveProjItem();
    CString projectId;
    if (!active || !GetProjectManager()->getActiveProjectID(projectId) ||
        !shownProjects_.insert(toUpper(projectId)).second)
        return;
    tree_->expand(*active, true);
    if (tree_->selectionCount() == 0)
        tree_->restoreSelection({active}, active);
}

void RyvPrmProjectTab::onProjectSetActive(const CString&) {
    showActiveProject();
    enableButtons();
}

void RyvPrmProjectTab::onProjectClose(const CString& projectId) {
    shownProjects_.erase(toUpper(projectId));
}

void RyvPrmProjectTab::onProjectTasksChanged(const CString& projectId, const CString&) {
    const RyvPrmProjectManager* const manager = GetProjectManager();
    if (manager && manager->isActiveProject(projectId))
        enableButtons();
}

/// The disk is asked for tasks only when that decides.
void RyvPrmProjectTab::enableButtons() {
    for (const TabButton& each : tabButtons) {
        bool enabled = !each.needsIdle || !busy_;
        if (each.id == taskListId)
            enabled = enabled && isDocumentIdle() && hasPendingTasks();
        button(each.id).setEnabled(enabled);
    }
}

} // namespace ryv
