// The message loop of this host: timers, posted messages and calls, and descriptors of the system, all behind
// one descriptor.
#pragma once

#include "embedded/loop/descriptor.h"
#include "embedded/loop/message_queue.h"
#include "embedded/loop/timer_queue.h"
#include "platform/os/message_loop.h"

#include <atomic>
#include <memory>
#include <optional>

namespace drafta {

/// Handles things in rounds: first the messages and calls that came before the round began, in their order,
/// then the timers that were due by then, then the descriptors that were readable. What comes in between
/// waits for the next round, so none of the three keeps the others waiting. Handlers may do anything,
/// including pumping the loop. A timer that is late is told once.
///
/// Everything belongs to the main thread, but for post(), call() and quit().
class EpollMessageLoop final : public ryv::MessageLoop {
public:
    EpollMessageLoop();
    EpollMessageLoop(const EpollMessageLoop&) = delete;
    EpollMessageLoop& operator=(const EpollMessageLoop&) = delete;

    /// False when the system had no descriptors left for the loop. No window can be made then, and no wait
    /// waits; calls are still run by pump().
    bool isUsable() const noexcept { return usable_; }

    ryv::WindowHandle createWindow(ryv::MessageReceiver& receiver) override;
    void destroyWindow(ryv::WindowHandle window) override;
    bool isWindow(ryv::WindowHandle window) override;
    bool setTimer(ryv::WindowHandle window, std::uint32_t id, std::chrono::milliseconds period) override;
    void killTimer(ryv::WindowHandle window, std::uint32_t id) override;
    bool post(
        ryv::WindowHandle window, std::uint32_t number, std::uintptr_t first, std::intptr_t second) override;
    void call(std::function<void()> work) override;

    /// Rounds until nothing is pending, what the handled things caused included; 16 at most, so that a
    /// handler that always finds more to do keeps the caller from nothing.
    void pump() override;

    /// Readable while something is pending: for another loop to wait for, which then calls pump(). -1 when
    /// the loop is not usable.
    int descriptor() const noexcept { return epoll_.get(); }

    /// Waits until something is pending, at most for the given time (nothing: for ever), and handles one
    /// round. False when nothing was handled: the time was over, a signal came, or quit() was called.
    bool wait(std::optional<std::chrono::milliseconds> atMost);

    /// Waits and handles until quit().
    void run();

    /// Ends the innermost run(), or the next one when none runs. Any thread, and any handler of a signal.
    void quit() noexcept;

    /// Calls `readable` in every round in which the descriptor has something to be read. The descriptor stays
    /// the caller's, who removes it before closing it. False when it cannot be waited for, or is here
    /// already.
    bool addDescriptor(int descriptor, std::function<void()> readable);
    void removeDescriptor(int descriptor);

private:
    struct Source {
        int descriptor = -1;
        std::shared_ptr<const std::function<void()>> readable; // shared: one that runs may be removed
    };

    bool watch(int descriptor, std::uint64_t source);
    bool round(int atMost);
    bool handleMessages();
    bool handleTimers();
    bool handleReadable(std::uint64_t source);
    void armTimer();

    Descriptor epoll_;
    Descriptor timer_;
    Descriptor wake_; // for quit()
    MessageQueue queue_;
    bool usable_ = false;

    std::uint64_t lastWindow_ = 0;
    std::map<ryv::WindowHandle, ryv::MessageReceiver*> windows_;
    TimerQueue timers_;
    std::optional<TimerQueue::Time> armed_;

    std::uint64_t lastSource_ = 0;
    std::map<std::uint64_t, Source> sources_; // numbers are never given twice: reports may be stale

    std::atomic<bool> quit_{false};
    static_assert(std::atomic<bool>::is_always_lock_free, "quit() is called by handlers of signals");
};

} // namespace drafta
