// Notifications: handlers run newest first, and may come and go while one is being fired.
#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace ryv {

/// Keeps a handler subscribed for as long as it lives; may outlive the event.
class Subscription {
public:
    Subscription() = default;
    explicit Subscription(std::shared_ptr<bool> alive) : alive_(std::move(alive)) {}
    Subscription(Subscription&& other) noexcept = default;
    Subscription& operator=(Subscription&& other) noexcept {
        if (this != &other) {
            reset();
            alive_ = std::move(other.alive_);
        }
        return *this;
    }
    Subscription(const Subscription&) = delete;
    Subscription& operator=(const Subscription&) = delete;
    ~Subscription() { reset(); }

    /// Ends the subscription: the handler is not called again, not even by a firing that is under way.
    void reset() noexcept {
        if (alive_)
            *alive_ = false;
        alive_.reset();
    }

private:
    std::shared_ptr<bool> alive_;
};

/// A list of handlers that take `Args`. Not thread-safe: everything happens on the main thread.
template <class... Args>
class Event {
public:
    using Handler = std::function<void(Args...)>;

    Event() = default;
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;

    [[nodiscard]] Subscription subscribe(Handler handler) {
        sweep();
        auto alive = std::make_shared<bool>(true);
        entries_.push_back(std::make_shared<Entry>(Entry{alive, std::move(handler)}));
        return Subscription(std::move(alive));
    }

    /// Calls the handlers that are subscribed now, newest first. One subscribed meanwhile is not called by
    /// this firing; one that ended meanwhile is not called any more. A handler may destroy the event itself.
    void fire(Args... args) const {
        const auto handlers = entries_;
        for (auto entry = handlers.rbegin(); entry != handlers.rend(); ++entry)
            if (*(*entry)->alive)
                (*entry)->handler(args...);
    }

    std::size_t handlerCount() const {
        return static_cast<std::size_t>(
            std::count_if(entries_.begin(), entries_.end(), [](const auto& e) { return *e->alive; }));
    }

private:
    struct Entry {
        std::shared_ptr<bool> alive;
        Handler handler;
    };
    void sweep() {
        std::erase_if(entries_, [](const auto& entry) { return !*entry->alive; });
    }
    std::vector<std::shared_ptr<Entry>> entries_;
};

} // namespace ryv
