// Wakes the window up while LISP is at work for long.
#pragma once

#include <ctime>

namespace drafta {

class Host;

/// One a process. Between start() and stop() the host's LISP is asked for a breath after half a second, and
/// ten times a second from then on. A signal of the main thread asks, so nothing can end under its feet.
class BusyAlarm {
public:
    static constexpr int firstAfter = 500; ///< milliseconds

    /// Made on the main thread; the host outlives it.
    explicit BusyAlarm(Host& host);
    BusyAlarm(const BusyAlarm&) = delete;
    BusyAlarm& operator=(const BusyAlarm&) = delete;
    ~BusyAlarm();

    void start() noexcept;
    void stop() noexcept;

private:
    timer_t timer_{};
    bool usable_ = false;
};

} // namespace drafta
