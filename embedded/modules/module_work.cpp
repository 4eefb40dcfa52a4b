#include "embedded/modules/module_work.h"

#include <cstdint>
#include <map>
#include <mutex>
#include <utility>

namespace drafta {

class ModuleWork::Waiting {
public:
    std::uint64_t add(std::function<void()> work) {
        const std::lock_guard lock(mutex_);
        functions_.emplace(++last_, std::move(work));
        return last_;
    }
    /// Empty when it has run or was dropped.
    std::function<void()> take(std::uint64_t number) {
        const std::lock_guard lock(mutex_);
        const auto hit = functions_.find(number);
        return hit == functions_.end() ? nullptr : std::move(functions_.extract(hit).mapped());
    }
    std::map<std::uint64_t, std::function<void()>> takeAll() {
        const std::lock_guard lock(mutex_);
        return std::exchange(functions_, {});
    }

private:
    std::mutex mutex_;
    std::map<std::uint64_t, std::function<void()>> functions_;
    std::uint64_t last_ = 0;
};

class ModuleWork::Ticket {
public:
    Ticket(std::shared_ptr<Waiting> waiting, std::uint64_t number)
        : waiting_(std::move(waiting)), number_(number) {}
    Ticket(const Ticket&) = delete;
    Ticket& operator=(const Ticket&) = delete;
    ~Ticket() { waiting_->take(number_); }

    void run() const {
        if (const std::function<void()> work = waiting_->take(number_))
            work();
    }

private:
    std::shared_ptr<Waiting> waiting_;
    std::uint64_t number_;
};

ModuleWork::ModuleWork() : waiting_(std::make_shared<Waiting>()) {}

std::function<void()> ModuleWork::keep(std::function<void()> work) {
    if (!work)
        return nullptr;
    const std::uint64_t number = waiting_->add(std::move(work));
    return [ticket = std::make_shared<const Ticket>(waiting_, number)] { ticket->run(); };
}

void ModuleWork::drop() {
    waiting_->takeAll(); // they end here, outside of the lock
}

} // namespace drafta
