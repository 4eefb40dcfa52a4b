#include "ui/dialogs/work/project_store.h"

#include "base/fold.h"
#include "manager/project_manager.h"
#include "manager/shown_messages.h"
#include "resources/file_reasons.h"

namespace ryv {

namespace {

constexpr int mostAttempts = 5; // while others keep changing the file

CString textOf(FileError error) {
    return fileReason(error);
}

/// Whether a project was read again while this object lives.
class RereadWatch {
public:
    RereadWatch(RyvPrmProjectManager& manager, const CString& projectId)
        : manager_(manager), projectId_(projectId) {
        manager_.onProjectReRead.subscribe(*this, &RereadWatch::reRead);
    }
    RereadWatch(const RereadWatch&) = delete;
    RereadWatch& operator=(const RereadWatch&) = delete;
    ~RereadWatch() { manager_.onProjectReRead.unsubscribe(*this, &RereadWatch::reRead); }

    bool happened() const noexcept { return happened_; }

private:
    void reRead(const CString& projectId) { happened_ = happened_ || equalNoCase(projectId, projectId_); }

    RyvPrmProjectManager& manager_;
    const CString& projectId_;
    bool happened_ = false;
};

} // namespace

StoreResult ProjectStore::store(const Change& change, const Undo& undo) {
    StoreResult result{StoreResult::Kind::failed, shownPath(projectId_), textOf(FileError::busy)};
    Step step = Step::again;
    for (int attempt = 0; step == Step::again && attempt < mostAttempts; ++attempt)
        step = tryOnce(change, undo, result);
    return step == Step::done ? StoreResult() : result;
}

/// A project that was read again while it was changed has lost the change or part of it, and the rest was
/// made of what is not so any more.
ProjectStore::Step ProjectStore::tryOnce(const Change& change, const Undo& undo, StoreResult& result) {
    RyvPrmProjectManager* const manager = GetProjectManager();
    const auto project = manager ? manager->holdProject(projectId_) : nullptr;
    if (!project) {
        result.kind = StoreResult::Kind::closed;
        return Step::failed;
    }
    project->forgetLastError();
    const RereadWatch watch(*manager, projectId_);
    const bool changed = change(*project);
    const bool isOpen = manager->holdProject(projectId_) == project;
    if (watch.happened() || !isOpen)
        return isOpen && !manager->reReadProject(projectId_) ? fail(*project, undo, result) : Step::again;
    if (!changed)
        return Step::done;
    project->writeProject();
    return project->getLastError() == RyvPmUtilsKQPFiler::noError ? Step::done : fail(*project, undo, result);
}

/// What could not be written is not left in memory, where others would take it for the project.
ProjectStore::Step ProjectStore::fail(RyvPrmProject& project, const Undo& undo, StoreResult& result) {
    result.kind = StoreResult::Kind::failed;
    result.file = shownPath(project.lastFile().empty() ? project.getProjectID() : project.lastFile());
    result.reason = textOf(project.lastStatus().error);
    const bool changedOutside = project.getLastError() == RyvPmUtilsKQPFiler::changedOutside;
    RyvPrmProjectManager* const manager = GetProjectManager();
    const bool isRead = manager && manager->reReadProject(projectId_);
    if (!isRead && manager && manager->holdProject(projectId_).get() == &project)
        undo(project);
    return changedOutside && isRead ? Step::again : Step::failed;
}

} // namespace ryv
