#include "manager/deferred_requests.h"

#include "base/at_end.h"
#include "bridge/platform.h"
#include "bridge/project_reread.h"
#include "manager/last_project_list.h"
#include "manager/nav_state.h"
#include "manager/project_manager.h"

#include <algorithm>

namespace ryv {

namespace {

bool isReread(const DeferredRequest& request) {
    return request.kind == DeferredRequest::Kind::rereadInLisp;
}

} // namespace

void DeferredRequests::add(DeferredRequest request) {
    const std::lock_guard lock(mutex_);
    const bool waits = std::any_of(queue_.begin(), queue_.end(), isReread);
    if (isReread(request) && waits)
        return; // one re-read serves all who asked for it
    queue_.push_back(std::move(request));
}

std::size_t DeferredRequests::count() const {
    const std::lock_guard lock(mutex_);
    return queue_.size();
}

bool DeferredRequests::flush() {
    if (platform().host.documents->activeDocument() == DocumentId::none || !beginPass())
        return false;
    const AtEnd end([this] { endPass(); });
    while (const std::optional<DeferredRequest> request = takeFirst())
        run(*request);
    return true;
}

void DeferredRequests::finish() {
    while (const std::optional<DeferredRequest> request = takeFirst())
        if (!isReread(*request))
            run(*request);
}

bool DeferredRequests::beginPass() {
    const std::lock_guard lock(mutex_);
    if (processing_ || queue_.empty())
        return false;
    processing_ = true;
    return true;
}

void DeferredRequests::endPass() {
    const std::lock_guard lock(mutex_);
    processing_ = false;
}

std::optional<DeferredRequest> DeferredRequests::takeFirst() {
    const std::lock_guard lock(mutex_);
    if (queue_.empty())
        return std::nullopt;
    DeferredRequest first = std::move(queue_.front());
    queue_.pop_front();
    return first;
}

void DeferredRequests::run(const DeferredRequest& request) {
    if (request.kind == DeferredRequest::Kind::rereadInLisp) {
        reread_.queue();
        return;
    }
    const CString* const project = request.data.stringAt(0);
    const std::int16_t* const state = request.data.integerAt(1);
    if (!project || !state)
        return;
    RyvPrmProjectManager* const manager = GetProjectManager();
    if (*state == last_project::open && manager)
        manager->recordOpenState(*project); // it may have been activated or closed since
    else
        recordProject(*project, *state);
}

} // namespace ryv
