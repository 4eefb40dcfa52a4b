// The host's message loop: windows without pixels, with their timers and their posted messages. All of the
// module's work is done inside it, on the main thread.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>

namespace ryv {

/// A window as long as the process lives; a number is never given twice.
enum class WindowHandle : std::uint64_t { none = 0 };

/// What a window does. Both operations are called on the main thread, from the loop or a pump.
class MessageReceiver {
public:
    /// A message that was posted to the window. The result is the window's answer to the system, 0 when it
    /// has none to give.
    virtual std::intptr_t onMessage(std::uint32_t number, std::uintptr_t first, std::intptr_t second) = 0;

    /// The timer `id` of the window has expired; it goes on until it is killed.
    virtual void onTimer(std::uint32_t id) = 0;

protected:
    ~MessageReceiver() = default;
};

/// Main thread only, unless an operation says otherwise.
class MessageLoop {
public:
    virtual ~MessageLoop() = default;

    /// A window whose messages and timers go to `receiver`, which is not owned and stays until the window is
    /// destroyed. None when no window can be made.
    virtual WindowHandle createWindow(MessageReceiver& receiver) = 0;

    /// Ends a window; its timers and the messages still under way to it are dropped. Nothing happens when
    /// there is no such window.
    virtual void destroyWindow(WindowHandle window) = 0;

    virtual bool isWindow(WindowHandle window) = 0;

    /// Starts a timer that expires every `period`, or starts the countdown of a running one again. False when
    /// there is no such window or the system has no timer left.
    virtual bool setTimer(WindowHandle window, std::uint32_t id, std::chrono::milliseconds period) = 0;

    /// Stops a timer; one that has expired but was not told yet is not told any more.
    virtual void killTimer(WindowHandle window, std::uint32_t id) = 0;

    /// Queues a message for a window. Any thread. False when there is no such window; nothing is queued then.
    virtual bool post(
        WindowHandle window, std::uint32_t number, std::uintptr_t first, std::intptr_t second) = 0;

    /// Queues `work` for the main thread. Any thread.
    virtual void call(std::function<void()> work) = 0;

    /// Handles what is pending now, without waiting: messages, calls and expired timers, and what their
    /// handling adds, though not for ever. Anything may have changed when it returns.
    virtual void pump() = 0;
};

/// No window can be made, and nothing is ever run.
class NullMessageLoop : public MessageLoop {
public:
    WindowHandle createWindow(MessageReceiver&) override { return WindowHandle::none; }
    void destroyWindow(WindowHandle) override {}
    bool isWindow(WindowHandle) override { return false; }
    bool setTimer(WindowHandle, std::uint32_t, std::chrono::milliseconds) override { return false; }
    void killTimer(WindowHandle, std::uint32_t) override {}
    bool post(WindowHandle, std::uint32_t, std::uintptr_t, std::intptr_t) override { return false; }
    void call(std::function<void()>) override {}
    void pump() override {}
};

} // namespace ryv
