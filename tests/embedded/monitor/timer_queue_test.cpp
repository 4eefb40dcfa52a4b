#include "embedded/loop/timer_queue.h"

#include <gtest/gtest.h>
#include <string>

namespace {

using drafta::TimerQueue;
using std::chrono::milliseconds;

constexpr auto window = static_cast<ryv::WindowHandle>(1);
constexpr auto otherWindow = static_cast<ryv::WindowHandle>(2);

class TimerQueueTest : public testing::Test {
protected:
    void start(std::uint32_t id, int period, ryv::WindowHandle of = window) {
        queue.start({of, id}, milliseconds(period), now);
    }
    /// Moves the time on at one go and gives the timers that expire then, in their order.
    std::string after(int time) {
        now += milliseconds(time);
        const TimerQueue::Time limit = now;
        std::string expired;
        while (const auto timer = queue.expire(limit, now))
            expired += std::to_string(timer->id) + ' ';
        return expired;
    }

    TimerQueue queue;
    TimerQueue::Time now{std::chrono::hours(1)};
};

TEST_F(TimerQueueTest, expire_severalTimers_firstDueFirstAndFirstStartedFirst) {
    start(1, 30);
    start(2, 10);
    start(3, 10);
    EXPECT_EQ(queue.due(), now + milliseconds(10));
    EXPECT_EQ(after(9), "");
    EXPECT_EQ(after(1), "2 3 ");
    EXPECT_EQ(after(20), "2 3 1 ") << "2 and 3 were due before 1, and count once";
}

TEST_F(TimerQueueTest, start_runningTimer_beginsToCountAnew) {
    start(1, 100);
    EXPECT_EQ(after(99), "");
    start(1, 100);
    EXPECT_EQ(after(99), "");
    EXPECT_EQ(after(1), "1 ");
    start(1, 10);
    EXPECT_EQ(after(10), "1 ") << "with another period";
}

TEST_F(TimerQueueTest, expire_timerManyPeriodsLate_toldOnceThenAPeriodLater) {
    start(1, 10);
    EXPECT_EQ(after(1000), "1 ");
    EXPECT_EQ(after(9), "");
    EXPECT_EQ(after(1), "1 ");
}

TEST_F(TimerQueueTest, kill_oneOrAllOfAWindow_othersGoOn) {
    start(1, 10);
    start(2, 10);
    start(3, 10, otherWindow);
    start(4, 10, otherWindow);
    queue.kill({window, 1});
    queue.kill({window, 7});
    queue.killAll(otherWindow);
    EXPECT_EQ(after(10), "2 ");
    queue.killAll(window);
    EXPECT_EQ(queue.due(), std::nullopt);
}

TEST_F(TimerQueueTest, start_uselessPeriods_broughtIntoReach) {
    queue.start({window, 1}, milliseconds(-5), now);
    EXPECT_EQ(queue.due(), now + milliseconds(1));
    queue.start({window, 1}, milliseconds::max(), now);
    EXPECT_EQ(queue.due(), now + milliseconds(0x7FFFFFFF));
}

} // namespace
