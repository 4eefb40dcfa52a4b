#include "ui/tree/project_work.h"

#include "bridge/waiting.h"
#include "manager/project_manager.h"
#include "manager/shown_messages.h"
#include "resources/file_reasons.h"
#include "resources/message_numbers.h"
#include "resources/messages.h"
#include "ui/tree/project_tree.h"

namespace ryv {

namespace {

CString reasonOf(const RyvPrmProject& project) {
    return fileReason(project.lastStatus().error);
}

CString fileOf(const RyvPrmProject& project) {
    return shownPath(project.lastFile().empty() ? project.getProjectID() : project.lastFile());
}

} // namespace

ProjectWork::ProjectWork(CProjectTree& tree, CStringView projectId)
    : tree_(tree), atWork_(tree.atWork()), locks_(projectId) {}

bool ProjectWork::lock(const CStringArray& drawings) {
    if (!project()) {
        tellGone();
        return false;
    }
    const bool locked = locks_.lockProject(drawings);
    const auto held = project();
    if (locked && held) {
        held->forgetLastError();
        return true;
    }
    unlock();
    if (locked)
        tellGone();
    else
        tellRefusal();
    return false;
}

void ProjectWork::tellRefusal() {
    if (!locks_.refusal().empty())
        tree_.notice().tell(locks_.refusal());
}

std::shared_ptr<RyvPrmProject> ProjectWork::project() const {
    const RyvPrmProjectManager* const manager = GetProjectManager();
    return manager ? manager->holdProject(projectId()) : nullptr;
}

CString ProjectWork::projectName() const {
    CString name;
    if (const RyvPrmProjectManager* const manager = GetProjectManager())
        manager->makeProjectPrettyNameFromID(projectId(), name);
    return name;
}

void ProjectWork::tellGone() {
    if (!projectId().empty())
        tree_.notice().tell(format(
            messageText(project() ? message::workItemsGone : message::workProjectGone), {projectName()}));
}

bool ProjectWork::write() {
    const Waiting waiting;
    const auto held = project();
    return settle(held && held->writeProject());
}

bool ProjectWork::settle(bool done) {
    written_ = done;
    const auto held = project();
    if (!held) {
        if (!done)
            tellGone();
        return false;
    }
    if (!done && held->getLastError() != RyvPmUtilsKQPFiler::noError) {
        tellWriteFailure(*held);
        return false;
    }
    tree_.onProjectReRead(projectId());
    return done;
}

/// The project is put right first: while the box stands, others may work with it.
void ProjectWork::tellWriteFailure(const RyvPrmProject& project) {
    const CString file = fileOf(project);
    const CString reason = reasonOf(project);
    RyvPrmProjectManager* const manager = GetProjectManager();
    if (manager && manager->reReadProject(projectId())) {
        showMessage({message::projectNotWritten, message::projectNotWrittenTitle}, {file, reason});
    } else if (this->project()) {
        tree_.onProjectReRead(projectId());
        showMessage({message::projectNotWrittenStale, message::projectNotWrittenTitle},
            {file, reason, reasonOf(project)});
    }
}

bool ProjectWork::reRead() {
    RyvPrmProjectManager* const manager = GetProjectManager();
    const auto held = project();
    if (!held)
        return false;
    if (manager->reReadProject(projectId()))
        return project() != nullptr;
    if (project())
        tree_.notice().tell(
            format(messageText(message::projectNotReadAgain), {fileOf(*held), reasonOf(*held)}));
    return false;
}

std::unique_ptr<RyvPrmProject> readAside(CStringView projectId) {
    auto project = std::make_unique<RyvPrmProject>();
    return project->readProject(projectId) ? std::move(project) : nullptr;
}

} // namespace ryv
