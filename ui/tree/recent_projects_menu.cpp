#include "ui/tree/recent_projects_menu.h"

#include "base/fold.h"
#include "base/paths.h"
#include "base/text.h"
#include "bridge/platform.h"
#include "bridge/project_calls.h"
#include "manager/existing_files.h"
#include "manager/last_project_list.h"
#include "manager/pinned_projects.h"
#include "manager/shown_messages.h"
#include "resources/message_numbers.h"
#include "resources/messages.h"
#include "resources/project_list_message_numbers.h"
#include "toolkit/images.h"
#include "toolkit/menu.h"

#include <algorithm>
#include <unordered_map>

namespace ryv {

namespace {

// Numbers of the menu's commands; answer files know them. Behind the first two the place in the list.
constexpr int firstProject = 1;
constexpr int firstPin = 1001;
constexpr int removeMissing = 2001;
constexpr int askPackage = 2002;

struct RecentProject {
    CString id;
    bool pinned = false;
    bool exists = false;
};

bool holds(const std::vector<RecentProject>& projects, const CString& id) {
    return std::any_of(projects.begin(), projects.end(),
        [&](const RecentProject& each) { return equalNoCase(each.id, id); });
}

/// Asks the disk once for each project, however often the menu comes up again: a share that is not there
/// takes long to say so.
class Looks {
public:
    bool finds(const CString& id) {
        const auto [look, isNew] = found_.try_emplace(toUpper(id));
        if (isNew)
            look->second = exists(id);
        return look->second;
    }

private:
    std::unordered_map<CString, bool> found_;
};

/// The pinned ones first, then the last ones.
std::vector<RecentProject> recentProjects(Looks& looks) {
    std::vector<RecentProject> projects;
    for (const CString& id : readPinnedProjects())
        projects.push_back({id, true, looks.finds(id)});
    RecentProjects last;
    readLastProjects(last);
    for (const CString& stored : last.paths) {
        const CString id = replaceAll(stored, u'/', u'\\');
        if (!id.empty() && !holds(projects, id))
            projects.push_back({id, false, looks.finds(id)});
    }
    return projects;
}

/// "&" is no mark in a name; the first nine have their numbers as letters.
CString itemText(const RecentProject& project, std::size_t index) {
    const CString name = paths::titleOf(project.id) + u"   " + shownPath(paths::folderOf(project.id));
    const CString number = toText(static_cast<long long>(index) + 1);
    CString text = index < 9 ? u"&" + number + u"  " : CString();
    for (const char16_t unit : name)
        text += unit == u'&' ? CString(u"&&") : CString(1, unit);
    return text;
}

void addProjects(Menu& menu, const std::vector<RecentProject>& projects) {
    for (std::size_t i = 0; i < projects.size(); ++i) {
        const RecentProject& project = projects[i];
        if (i > 0 && projects[i - 1].pinned && !project.pinned)
            menu.addSeparator();
        MenuItem& item = menu.add(firstProject + static_cast<int>(i), itemText(project, i));
        item.enabled = project.exists;
        item.image = !project.exists ? images::missing : project.pinned ? images::pinned : images::project;
    }
    if (projects.empty())
        menu.add(firstProject, CString(messageText(message::noRecentProject))).enabled = false;
}

void addPins(Menu& menu, const std::vector<RecentProject>& projects) {
    Menu& pins = menu.addSubmenu(CString(messageText(message::pinRecentProjects)));
    for (std::size_t i = 0; i < projects.size(); ++i)
        pins.add(firstPin + static_cast<int>(i), itemText(projects[i], i)).checked = projects[i].pinned;
}

bool isGone(const RecentProject& project) {
    return !project.exists && !project.pinned;
}

std::unique_ptr<Menu> makeMenu(const std::vector<RecentProject>& projects) {
    auto menu = std::make_unique<Menu>(u"recent_projects");
    addProjects(*menu, projects);
    menu->addSeparator();
    if (!projects.empty())
        addPins(*menu, projects);
    menu->add(removeMissing, CString(messageText(message::removeMissingProjects))).enabled =
        std::any_of(projects.begin(), projects.end(), isGone);
    menu->add(askPackage, CString(messageText(message::moreRecentProjects))).enabled =
        platform().host.documents->hasCurrentDocument();
    return menu;
}

void forgetMissing(const std::vector<RecentProject>& projects) {
    for (const RecentProject& project : projects)
        if (isGone(project))
            recordProject(project.id, last_project::removed);
}

void changePin(const RecentProject& project) {
    if (!pinProject(project.id, !project.pinned))
        showMessage({message::projectNotPinned, message::recentProjectsTitle}, {shownPath(project.id)});
}

CString askPackageForProject() {
    CString chosen;
    return lisp::chooseRecentProject(chosen) ? replaceAll(chosen, u'/', u'\\') : CString();
}

} // namespace

CString chooseRecentProject(ScreenPoint place) {
    for (Looks looks;;) {
        const std::vector<RecentProject> projects = recentProjects(looks);
        const std::unique_ptr<Menu> menu = makeMenu(projects);
        const int chosen = platform().ui->popupMenu(*menu, place);
        const auto count = static_cast<int>(projects.size());
        if (chosen == askPackage)
            return askPackageForProject();
        if (chosen == removeMissing)
            forgetMissing(projects);
        else if (chosen >= firstPin && chosen < firstPin + count)
            changePin(projects[static_cast<std::size_t>(chosen - firstPin)]);
        else if (chosen >= firstProject && chosen < firstProject + count)
            return projects[static_cast<std::size_t>(chosen - firstProject)].id;
        else
            return {};
    }
}

} // namespace ryv
