// The functions of a module that wait in the host's queues.
#pragma once

#include <functional>
#include <memory>

namespace drafta {

/// Keeps the functions themselves, so that they end before the library in which their code lies; the queues
/// get functions of the host that stand for them.
class ModuleWork {
public:
    ModuleWork();
    ModuleWork(const ModuleWork&) = delete;
    ModuleWork& operator=(const ModuleWork&) = delete;
    ~ModuleWork() { drop(); }

    /// What is queued in the place of `work`: it runs that once, or does nothing when it was dropped. It may
    /// outlive this object; when it ends without having run, `work` ends too. Any thread.
    std::function<void()> keep(std::function<void()> work);

    /// Ends the functions that still wait. What they do in their end may keep further ones.
    void drop();

private:
    class Waiting;
    class Ticket;
    std::shared_ptr<Waiting> waiting_;
};

} // namespace drafta
