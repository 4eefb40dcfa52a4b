// Work that must not run while the host is at a command: it waits in a queue until the host is idle.
#pragma once

#include "platform/host/result_buffer.h"

#include <deque>
#include <mutex>
#include <optional>

namespace ryv {

class ProjectReread;

struct DeferredRequest {
    enum class Kind : std::int32_t {
        rereadInLisp = 1, ///< LISP reads the active project again; no data
        /// Data: the path of a project, and its state as recordProject() takes it. "Open" stands for what the
        /// project is when the request is run: open or active; nothing is recorded of one that was closed
        /// meanwhile, which has recorded that itself.
        recordLastProject = 2
    };
    Kind kind = Kind::rereadInLisp;
    HostResultBuffer data;
};

class DeferredRequests {
public:
    explicit DeferredRequests(ProjectReread& reread) noexcept : reread_(reread) {}
    DeferredRequests(const DeferredRequests&) = delete;
    DeferredRequests& operator=(const DeferredRequests&) = delete;

    /// Any thread. A request that a running one adds is run in the same pass. A re-read is not added when one
    /// waits already.
    void add(DeferredRequest request);

    /// Runs all requests, one at a time, and lets them go. Main thread. False, and nothing is run, when there
    /// is none, when a pass is under way already, and while the host has no active document.
    bool flush();

    /// For the module's end: records what waits to be recorded, whatever document is active, and forgets the
    /// rest. Main thread.
    void finish();

    /// How many wait. Any thread.
    std::size_t count() const;

private:
    bool beginPass();
    void endPass();
    std::optional<DeferredRequest> takeFirst();
    void run(const DeferredRequest& request);

    ProjectReread& reread_;
    mutable std::mutex mutex_; // guards the queue and the flag; never held while a request runs
    std::deque<DeferredRequest> queue_;
    bool processing_ = false;
};

} // namespace ryv
