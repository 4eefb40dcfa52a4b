#include "ui/tree/combo_box.h"

#include "base/at_end.h"
#include "base/fold.h"
#include "bridge/command_strings.h"
#include "bridge/platform.h"
#include "manager/nav_state.h"
#include "manager/shown_messages.h"
#include "resources/message_numbers.h"
#include "resources/messages.h"
#include "resources/project_list_message_numbers.h"
#include "toolkit/images.h"
#include "ui/tree/project_opening.h"
#include "ui/tree/recent_projects_menu.h"

#include <algorithm>

namespace ryv {

namespace {

ryvprmComboDataTag commandEntry(std::int32_t kind, int text) {
    return {kind, {}, CString(messageText(text)), true};
}

/// In the order of their names, since the order of opening says nothing to who looks for one.
CArray<ryvprmComboDataTag> openProjects() {
    CArray<ryvprmComboDataTag> entries;
    const RyvPrmProjectManager* const manager = GetProjectManager();
    for (int index = 0; manager && index < manager->getProjectCount(); ++index) {
        ryvprmComboDataTag entry{combo_entry::project, manager->getProject(index)->getProjectID(), {}, false};
        manager->makeProjectPrettyNameFromID(CStringView(entry.project), entry.text);
        entries.push_back(std::move(entry));
    }
    std::stable_sort(entries.begin(), entries.end(),
        [](const auto& a, const auto& b) { return toUpper(a.text) < toUpper(b.text); });
    return entries;
}

int imageOfCommand(std::int32_t kind) {
    switch (kind) {
    case combo_entry::projectFile:
        return images::recent;
    case combo_entry::openProject:
        return images::openProject;
    case combo_entry::newProject:
        return images::newProject;
    default:
        return images::none;
    }
}

int imageOfLock(_lockStatus status) {
    switch (status) {
    case lockMine:
        return images::ownLock;
    case lockOther:
    case lockUnreadable:
        return images::locked;
    case lockReadOnly:
    case lockFolderReadOnly:
        return images::readOnly;
    case lockMissing:
        return images::missing;
    default:
        return images::project;
    }
}

} // namespace

/// What is chosen is a command or becomes the active project: either way the box shows the active one again,
/// before anything may end it.
RyvPrmComboBox::RyvPrmComboBox(int id) : ComboBox(id) {
    setName(u"projects");
    setMenu(true);
    choices_ = edited.subscribe([this](Control&) {
        const std::optional<std::size_t> row = chosen();
        showActive();
        if (row && *row < entries_.size())
            OnItemSelection(ryvprmComboDataTag(entries_[*row]));
    });
}

RyvPrmComboBox::~RyvPrmComboBox() {
    UnhookProjectEvents();
}

void RyvPrmComboBox::Create() {
    setTooltip(CString(messageText(message::projectListTooltip)));
    HookProjectEvents();
    rebuild();
}

void RyvPrmComboBox::AddDefaultComboList() {
    const CArray<ryvprmComboDataTag> projects = openProjects();
    for (const ryvprmComboDataTag& each : projects)
        InsertItem(entries_.size(), each);
    if (!projects.empty())
        InsertItem(entries_.size(), {});
    InsertItem(entries_.size(), commandEntry(combo_entry::projectFile, message::projectListRecent));
    InsertItem(entries_.size(), {});
    InsertItem(entries_.size(), commandEntry(combo_entry::newProject, message::projectListNew));
    InsertItem(entries_.size(), commandEntry(combo_entry::openProject, message::projectListOpen));
}

void RyvPrmComboBox::InsertItem(std::size_t index, const ryvprmComboDataTag& data) {
    entries_.insert(entries_.begin() + static_cast<std::ptrdiff_t>(std::min(index, entries_.size())), data);
    if (!building_)
        showEntries();
}

void RyvPrmComboBox::showEntries() {
    Choices rows;
    for (const ryvprmComboDataTag& entry : entries_)
        rows.push_back(rowOf(entry));
    if (rows != this->rows())
        setRows(std::move(rows));
    showActive();
}

Choice RyvPrmComboBox::rowOf(const ryvprmComboDataTag& data) {
    if (data.kind == combo_entry::separator)
        return separatorChoice();
    Choice row{data.text};
    row.image = data.kind == combo_entry::project ? imageOf(data.project) : imageOfCommand(data.kind);
    const RyvPrmProjectManager* const manager = GetProjectManager();
    row.marked = data.kind == combo_entry::project && manager && manager->isActiveProject(data.project);
    return row;
}

/// The disk is asked once, and again when something has happened.
int RyvPrmComboBox::imageOf(const CString& projectId) {
    const auto [place, isNew] = images_.try_emplace(toUpper(projectId), images::project);
    RyvPrmProjectManager* const manager = GetProjectManager();
    if (isNew && manager)
        place->second =
            imageOfLock(manager->whoHasProjectFileLocked(CStringView(projectId), nullptr, nullptr, nullptr));
    return place->second;
}

void RyvPrmComboBox::showActive() {
    const auto marked =
        std::find_if(rows().begin(), rows().end(), [](const Choice& row) { return row.marked; });
    if (marked == rows().end())
        setChosen(std::nullopt);
    else
        setChosen(static_cast<std::size_t>(marked - rows().begin()));
}

void RyvPrmComboBox::rebuild() {
    entries_.clear();
    {
        building_ = true;
        const AtEnd built([this] { building_ = false; });
        AddDefaultComboList();
    }
    showEntries();
}

void RyvPrmComboBox::OnItemSelection(const ryvprmComboDataTag& data) {
    if (data.kind == combo_entry::separator)
        return;
    const std::weak_ptr<const bool> alive = alive_;
    RyvPrmProjectManager* const manager = GetProjectManager();
    if (!manager || manager->sendEventVetoCheck() || alive.expired())
        return;
    select(data);
}

void RyvPrmComboBox::select(const ryvprmComboDataTag& data) {
    RyvPrmProjectManager* const manager = GetProjectManager();
    switch (data.kind) {
    case combo_entry::project:
        if (manager && !manager->isActiveProject(data.project))
            manager->setActiveProject(CStringView(data.project));
        return;
    case combo_entry::projectFile:
        if (!platform().host.documents->hasCurrentDocument())
            showMessage(
                {message::workNeedsDrawing, message::recentProjectsTitle, MessageIcon::information}, {});
        else if (data.project.empty())
            DoSSMRUMenu(ScreenPoint::atControl());
        else
            openOrReplaceProject(data.project);
        return;
    case combo_entry::openProject:
        if (const CString chosen = chooseProjectFile(); !chosen.empty())
            openOrReplaceProject(chosen);
        return;
    case combo_entry::newProject:
        return CreateProject();
    default:
        return;
    }
}

void RyvPrmComboBox::CreateProject() {
    runInApplicationContext(CommandString::newProject);
}

bool RyvPrmComboBox::DoSSMRUMenu(ScreenPoint point) {
    const CString chosen = chooseRecentProject(point);
    return !chosen.empty() && openOrReplaceProject(chosen);
}

} // namespace ryv
