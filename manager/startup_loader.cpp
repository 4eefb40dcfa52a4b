#include "manager/startup_loader.h"

#include "base/at_end.h"
#include "manager/nav_state.h"
#include "manager/project_manager.h"

namespace ryv {

namespace {

constexpr CStringView openCode = u"1";
constexpr CStringView activeCode = u"2";

bool hasCode(const RecentProjects& list, std::size_t index, CStringView code) {
    return index < list.flags.size() && list.flags[index] == code;
}

void openListed(RyvPrmProjectManager& manager, const RecentProjects& list) {
    for (std::size_t i = 0; i < list.paths.size(); ++i) {
        const bool hasNoCode = i >= list.flags.size();
        const bool activate = hasNoCode ? !manager.getActiveProject() : hasCode(list, i, activeCode);
        if (hasNoCode || activate || hasCode(list, i, openCode))
            manager.openProject(list.paths[i], activate, false);
    }
}

void activateFirst(RyvPrmProjectManager& manager, const RecentProjects& list) {
    for (std::size_t i = 0; i < list.paths.size() && !manager.getActiveProject(); ++i)
        if (hasCode(list, i, openCode))
            manager.setActiveProject(list.paths[i]);
}

} // namespace

void loadLastProjects(ProjectListReader reader) {
    RyvPrmProjectManager* const manager = GetProjectManager();
    if (!manager || manager->InitialOpenComplete())
        return;
    // What is opened may ask the user, and the host may come here meanwhile.
    if (!manager->beginStartupLoading())
        return;
    const AtEnd end([manager] { manager->endStartupLoading(); });
    RecentProjects list;
    const bool read = reader(list);
    if (read) {
        openListed(*manager, list);
        activateFirst(*manager, list);
    }
    if (NavState* const state = navState())
        state->afterStartupLoading();
    if (!read)
        return;
    manager->StartupProjectLoadingComplete();
    manager->setInitialOpenCompleteTrue();
}

} // namespace ryv
