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

/// What is opened may ask the user, and meanwhile the host may come here again.
class Loading {
public:
    explicit Loading(RyvPrmProjectManager& manager)
        : manager_(manager), begun_(manager.beginStartupLoading()) {}
    Loading(const Loading&) = delete;
    Loading& operator=(const Loading&) = delete;
    ~Loading() {
        if (begun_)
            manager_.endStartupLoading();
    }
    bool hasBegun() const noexcept { return begun_; }

private:
    RyvPrmProjectManager& manager_;
    bool begun_;
};

} // namespace

void loadLastProjects(ProjectListReader reader) {
    RyvPrmProjectManager* const manager = GetProjectManager();
    if (!manager || manager->InitialOpenComplete())
        return;
    const Loading loading(*manager);
    if (!loading.hasBegun())
        return;
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
