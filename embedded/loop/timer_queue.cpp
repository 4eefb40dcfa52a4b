#include "embedded/loop/timer_queue.h"

#include <algorithm>
#include <limits>

namespace drafta {

using std::chrono::milliseconds;

namespace {

constexpr milliseconds shortest{1};
constexpr milliseconds longest{std::numeric_limits<std::int32_t>::max()};

} // namespace

void TimerQueue::schedule(Timer timer, Running& running, Time now) {
    due_.erase(running.due);
    running.due = {now + running.period, ++started_, timer};
    due_.insert(running.due);
}

void TimerQueue::start(Timer timer, milliseconds period, Time now) {
    Running& running = running_[timer];
    running.period = std::clamp(period, shortest, longest);
    schedule(timer, running, now);
}

void TimerQueue::kill(Timer timer) {
    const auto running = running_.find(timer);
    if (running == running_.end())
        return;
    due_.erase(running->second.due);
    running_.erase(running);
}

void TimerQueue::killAll(ryv::WindowHandle window) {
    auto running = running_.lower_bound({window, 0});
    while (running != running_.end() && running->first.window == window) {
        due_.erase(running->second.due);
        running = running_.erase(running);
    }
}

std::optional<TimerQueue::Time> TimerQueue::due() const {
    if (due_.empty())
        return std::nullopt;
    return due_.begin()->time;
}

std::optional<TimerQueue::Timer> TimerQueue::expire(Time limit, Time now) {
    if (due_.empty() || due_.begin()->time > limit)
        return std::nullopt;
    const Timer timer = due_.begin()->timer;
    schedule(timer, running_.at(timer), now);
    return timer;
}

} // namespace drafta
