// Having the package's LISP code read the active project again.
#pragma once

namespace ryv {

/// A re-read never enters itself: what LISP does on its way (saving, closing, telling the module of it) may
/// ask for another one, which is then not started. One object serves the whole module.
class ProjectReread {
public:
    ProjectReread() = default;
    ProjectReread(const ProjectReread&) = delete;
    ProjectReread& operator=(const ProjectReread&) = delete;

    /// Re-reads at once and returns when it is done. False when LISP fails, without a current document and
    /// while a re-read runs.
    bool run();

    /// Asks for a re-read once the host is idle. Nothing happens when the current document is not at rest,
    /// and while a re-read runs.
    void queue();

    /// True while LISP is at work in run().
    bool isRunning() const noexcept { return running_; }

private:
    bool running_ = false;
};

} // namespace ryv
