#include "host/lisp/lisp_project_functions.h"

#include "base/text.h"
#include "manager/last_project_list.h"
#include "manager/nav_state.h"
#include "manager/project_manager.h"
#include "manager/startup_loader.h"

namespace ryv::lisp_functions {

namespace {

constexpr std::int16_t activates = 1;
constexpr std::size_t examinedItems = 4;

CString withBackslashes(CStringView path) {
    return replaceAll(path, u'/', u'\\');
}

/// The project behind the active one in the order of opening; behind the last comes the first.
CString successorOf(const RyvPrmProjectManager& manager, CStringView active) {
    const int next = manager.getProjectIndex(active) + 1;
    const int count = manager.getProjectCount();
    return CString(manager.getProject(next < count ? next : 0)->getProjectID());
}

/// Whether the items of an optional list are texts or nil. Their values have no use, which is deliberate:
/// callers hand over whole lines of the list, of which only the path and the code are kept.
bool areItemsAcceptable(const LispValues& items) {
    for (std::size_t i = 0; i < items.count() && i < examinedItems; ++i)
        if (!items.string(i) && !items.is(i, ResultType::nil))
            return false;
    return true;
}

} // namespace

LispAnswer loadLastProjects(const LispValues&) {
    if (!GetProjectManager())
        return LispAnswer::wrong();
    ryv::loadLastProjects(readRecentProjects);
    return LispAnswer::nil();
}

LispAnswer openProject(const LispValues& arguments) {
    const CString* const path = arguments.string(0);
    const std::int16_t* const flag = arguments.integer(1);
    RyvPrmProjectManager* const manager = GetProjectManager();
    if (!path || !flag || !manager)
        return LispAnswer::wrong();
    return LispAnswer::truth(manager->openProject(withBackslashes(*path), *flag == activates));
}

LispAnswer closeProject(const LispValues& arguments) {
    const CString* const path = arguments.string(0);
    RyvPrmProjectManager* const manager = GetProjectManager();
    CString active;
    if (!path || !manager || !manager->getActiveProjectID(active))
        return LispAnswer::wrong();
    const CString id = withBackslashes(*path);
    if (manager->isActiveProject(id)) {
        if (manager->getProjectCount() < 2)
            return LispAnswer::nil();
        if (!manager->setActiveProject(successorOf(*manager, active)))
            return LispAnswer::wrong();
    }
    RyvPrmProjectManager* const after = GetProjectManager(); // activating has told everybody
    return LispAnswer::truth(after && after->closeProject(id, true));
}

LispAnswer rereadProject(const LispValues& arguments) {
    const CString* const path = arguments.string(0);
    RyvPrmProjectManager* const manager = GetProjectManager();
    if ((!path && !arguments.is(0, ResultType::nil)) || !manager)
        return LispAnswer::wrong();
    if (!path || path->empty())
        return LispAnswer::truth(manager->reReadProject());
    return LispAnswer::truth(manager->reReadProject(withBackslashes(*path)));
}

LispAnswer getActiveProject(const LispValues&) {
    const RyvPrmProjectManager* const manager = GetProjectManager();
    if (!manager)
        return LispAnswer::wrong();
    CString id;
    return manager->getActiveProjectID(id) ? LispAnswer::text(std::move(id)) : LispAnswer::nil();
}

LispAnswer isProjectSameNameAsExisting(const LispValues& arguments) {
    const CString* const path = arguments.string(0);
    const RyvPrmProjectManager* const manager = GetProjectManager();
    if (!path || !manager)
        return LispAnswer::wrong();
    return LispAnswer::number(manager->isProjectSameNameAsExisting(withBackslashes(*path)) ? 1 : 0);
}

LispAnswer isOZMProject(const LispValues&) {
    const RyvPrmProjectManager* const manager = GetProjectManager();
    if (!manager)
        return LispAnswer::wrong();
    const RyvPrmProject* const active = manager->getActiveProject();
    return LispAnswer::number(active && active->isOZMProject() ? 1 : 0);
}

LispAnswer getProjectCount(const LispValues&) {
    const RyvPrmProjectManager* const manager = GetProjectManager();
    return manager ? LispAnswer::number(manager->getProjectCount()) : LispAnswer::wrong();
}

LispAnswer updateLastProjectFile(const LispValues& arguments) {
    const CString* const path = arguments.string(0);
    const CString* const code = arguments.string(1);
    if (!path || !code)
        return LispAnswer::wrong();
    if (const auto items = arguments.list(2); items && !areItemsAcceptable(*items))
        return LispAnswer::wrong();
    return recordProject(withBackslashes(*path), *code) ? LispAnswer::truth(true) : LispAnswer::wrong();
}

} // namespace ryv::lisp_functions
