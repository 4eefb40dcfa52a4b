// Having the package's LISP code read the active project again.
#pragma once

namespace ryv {

/// A re-read never leads to another one: what LISP does on its way (saving, closing, telling the module of
/// it) may ask for one, which is then not started. One object serves the whole module.
class ProjectReread {
public:
    ProjectReread() = default;
    ProjectReread(const ProjectReread&) = delete;
    ProjectReread& operator=(const ProjectReread&) = delete;

    /// Re-reads at once and returns when it is done. False when LISP fails, without a current document and
    /// while a re-read runs.
    bool run();

    /// Asks for a re-read once the host is idle. Nothing happens when the current document is not at rest,
    /// while a re-read runs, and while one that was asked for here has not come to its end.
    void queue();

    /// True from queue() until its caller knows that what was queued has run, and says so: when the host has
    /// come to rest again and what was asked for meanwhile has been looked at.
    bool isQueued() const noexcept { return queued_; }
    void queuedHasRun() noexcept { queued_ = false; }

    /// True while LISP is at work in run().
    bool isRunning() const noexcept { return running_; }

private:
    bool running_ = false;
    bool queued_ = false;
};

} // namespace ryv
