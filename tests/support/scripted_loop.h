// A message loop on a clock that the test moves by hand; nothing ever waits.
#pragma once

#include "platform/os/clock.h"
#include "platform/os/message_loop.h"

#include <algorithm>
#include <deque>
#include <map>
#include <utility>

namespace ryv::test {

class ScriptedClock final : public Clock {
public:
    LocalTime local{2026, 11, 21, 8, 5, 9};
    std::chrono::milliseconds now{0};
    CString date = u"Saturday, November 21, 2026";
    CString time = u"8:05:09 AM";
    std::int64_t askedFor = 0; ///< the moment that was asked for last, in seconds

    LocalTime localTime() override { return local; }
    LocalTime localTimeOf(std::int64_t seconds) override {
        askedFor = seconds;
        return local;
    }
    std::chrono::milliseconds steady() override { return now; }
    CString longDate(const LocalTime&) override { return date; }
    CString timeOfDay(const LocalTime&) override { return time; }
};

/// Unlike the port in general, it belongs to the main thread in all its operations.
class ScriptedMessageLoop final : public MessageLoop {
public:
    explicit ScriptedMessageLoop(ScriptedClock& clock) : clock_(clock) {}

    bool hasTimers = true; ///< otherwise the system has none left

    /// Moves the clock on, step by step, and handles what falls due on the way, in its order.
    void advance(std::chrono::milliseconds time) {
        const std::chrono::milliseconds end = clock_.now + time;
        pump();
        for (auto next = nextTimer(); next != timers_.end() && next->second.due <= end; next = nextTimer()) {
            clock_.now = std::max(clock_.now, next->second.due);
            pump();
        }
        clock_.now = std::max(clock_.now, end);
    }
    std::size_t pending() const noexcept { return queue_.size(); }
    std::size_t timerCount() const noexcept { return timers_.size(); }
    std::size_t windowCount() const noexcept { return windows_.size(); }

    WindowHandle createWindow(MessageReceiver& receiver) override {
        const auto window = static_cast<WindowHandle>(++last_);
        windows_[window] = &receiver;
        return window;
    }
    void destroyWindow(WindowHandle window) override {
        windows_.erase(window);
        std::erase_if(timers_, [window](const auto& each) { return each.first.first == window; });
    }
    bool isWindow(WindowHandle window) override { return windows_.contains(window); }
    bool setTimer(WindowHandle window, std::uint32_t id, std::chrono::milliseconds period) override {
        if (!isWindow(window) || !hasTimers)
            return false;
        period = std::max(period, std::chrono::milliseconds(1));
        timers_[{window, id}] = {clock_.now + period, period};
        return true;
    }
    void killTimer(WindowHandle window, std::uint32_t id) override { timers_.erase({window, id}); }
    bool post(
        WindowHandle window, std::uint32_t number, std::uintptr_t first, std::intptr_t second) override {
        if (!isWindow(window))
            return false;
        queue_.push_back([=, this] {
            if (isWindow(window))
                windows_[window]->onMessage(number, first, second);
        });
        return true;
    }
    void call(std::function<void()> work) override { queue_.push_back(std::move(work)); }
    void pump() override {
        do {
            while (!queue_.empty()) {
                const std::function<void()> work = std::move(queue_.front());
                queue_.pop_front();
                work();
            }
        } while (fireTimer());
    }

private:
    struct Timer {
        std::chrono::milliseconds due{0};
        std::chrono::milliseconds period{0};
    };
    using Timers = std::map<std::pair<WindowHandle, std::uint32_t>, Timer>;

    Timers::iterator nextTimer() {
        return std::min_element(timers_.begin(), timers_.end(),
            [](const auto& a, const auto& b) { return a.second.due < b.second.due; });
    }
    /// Tells of the timer that is due first, if one is.
    bool fireTimer() {
        const auto next = nextTimer();
        if (next == timers_.end() || next->second.due > clock_.now)
            return false;
        next->second.due = clock_.now + next->second.period;
        const auto [window, id] = next->first;
        windows_[window]->onTimer(id);
        return true;
    }

    ScriptedClock& clock_;
    std::uint64_t last_ = 0;
    std::map<WindowHandle, MessageReceiver*> windows_;
    Timers timers_;
    std::deque<std::function<void()>> queue_;
};

} // namespace ryv::test
