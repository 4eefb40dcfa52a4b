#include "manager/startup_loader.h"

#include "manager/nav_state.h"
#include "manager/project_manager.h"

namespace ryv {

namespace {

constexpr CStringView openCode = u"1";
constexpr CStringView activeCode = u"2";

bool hasCode(const RecentProjects& list, std::size_t index, CStringView code) {
    return index < list.flags.size() && list.flags[index] == code;
}

/// A handler may end the module's project manager, so it is asked for again at each step.
void openListed(const RecentProjects& list) {
    for (std::size_t i = 0; i < list.paths.size(); ++i) {
        RyvPrmProjectManager* const manager = GetProjectManager();
        if (!manager)
            return;
        const bool hasNoCode = i >= list.flags.size();
        const bool activate =
            hasNoCode ? manager->getActiveProject() == nullptr : hasCode(list, i, activeCode);
        if (hasNoCode || activate || hasCode(list, i, openCode))
            manager->openProject(list.paths[i], activate, false);
    }
}

void activateFirst(const RecentProjects& list) {
    for (std::size_t i = 0; i < list.paths.size(); ++i) {
        RyvPrmProjectManager* const manager = GetProjectManager();
        if (!manager || manager->getActiveProject())
            return;
        if (hasCode(list, i, openCode) && manager->setActiveProject(list.paths[i]))
            return;
    }
}

} // namespace

void loadLastProjects(ProjectListReader reader) {
    const RyvPrmProjectManager* const before = GetProjectManager();
    if (!before || before->InitialOpenComplete())
        return;
    RecentProjects list;
    const bool read = reader(list);
    if (read) {
        openListed(list);
        activateFirst(list);
    }
    if (NavState* const state = navState())
        state->afterStartupLoading();
    RyvPrmProjectManager* const manager = GetProjectManager();
    if (!read || !manager)
        return;
    manager->StartupProjectLoadingComplete();
    manager->setInitialOpenCompleteTrue();
}

} // namespace ryv
