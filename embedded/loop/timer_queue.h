// Which timer is due next. Time is handed in; nothing here looks at a clock.
#pragma once

#include "platform/os/message_loop.h"

#include <map>
#include <optional>
#include <set>

namespace drafta {

/// The running timers of all windows, by the time at which they are due; of those due at one time, the one
/// started first comes first.
class TimerQueue {
public:
    using Time = std::chrono::steady_clock::time_point;

    struct Timer {
        ryv::WindowHandle window = ryv::WindowHandle::none;
        std::uint32_t id = 0;

        auto operator<=>(const Timer&) const = default;
    };

    /// Starts a timer, or starts a running one anew. Periods are taken as at least 1 ms and at most about 25
    /// days (2^31 - 1 ms).
    void start(Timer timer, std::chrono::milliseconds period, Time now);
    void kill(Timer timer);
    void killAll(ryv::WindowHandle window);

    /// When the first timer is due; nothing without timers.
    std::optional<Time> due() const;

    /// The first timer that was due at `limit` or before. However late it is, it counts once, and is due
    /// again one period after `now`.
    std::optional<Timer> expire(Time limit, Time now);

private:
    struct Due {
        Time time;
        std::uint64_t order = 0;
        Timer timer;

        auto operator<=>(const Due&) const = default;
    };
    struct Running {
        std::chrono::milliseconds period{0};
        Due due;
    };

    void schedule(Timer timer, Running& running, Time now);

    std::uint64_t started_ = 0;
    std::map<Timer, Running> running_;
    std::set<Due> due_;
};

} // namespace drafta
