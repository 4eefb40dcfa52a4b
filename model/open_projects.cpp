#include "model/open_projects.h"

namespace ryv {

namespace {
const OpenProjects*& slot() noexcept {
    static const OpenProjects* projects = nullptr;
    return projects;
}
} // namespace

void setOpenProjects(const OpenProjects* projects) noexcept {
    slot() = projects;
}

RyvPrmProject* activeProject() {
    return slot() ? slot()->getActiveProject() : nullptr;
}

} // namespace ryv
