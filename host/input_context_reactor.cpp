#include "bridge/platform.h"
#include "bridge/recent_projects.h"
#include "host/nav_manager.h"
#include "host/reactors.h"
#include "manager/startup_loader.h"

#include <utility>

namespace ryv {

RyvPrmInputContextReactor::~RyvPrmInputContextReactor() {
    platform().host.documents->detach(*this);
}

void RyvPrmInputContextReactor::attach(DocumentId document) {
    platform().host.documents->attach(document, *this);
}

void RyvPrmInputContextReactor::setBeginIdle(BeginIdle callback) noexcept {
    if (callback)
        beginIdle_ = callback;
}

/// LISP hears of the active project before it is asked to read that again, and whoever waits for the host to
/// be idle comes last, when all of it is done.
void RyvPrmInputContextReactor::beginQuiescentState(DocumentId) {
    loadLastProjects(readRecentProjects);
    owner_.tellBusyListeners(0);
    platform().services.waitCursor->RyvEndWaitCursor();
    if (std::exchange(owner_.makeActivePending, false))
        owner_.tellActiveProject();
    const bool hasReread = owner_.projectReread().isQueued(); // before, and has run by now
    owner_.deferredRequests().flush();
    if (hasReread)
        owner_.projectReread().queuedHasRun();
    if (beginIdle_)
        beginIdle_();
}

void RyvPrmInputContextReactor::endQuiescentState(DocumentId) {
    owner_.tellBusyListeners(1);
}

} // namespace ryv
