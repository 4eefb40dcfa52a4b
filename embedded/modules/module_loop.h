// The message loop and the file monitor as one module has them.
#pragma once

#include "base/strings.h"
#include "embedded/modules/left_behind.h"
#include "embedded/modules/module_work.h"
#include "platform/os/file_monitor.h"
#include "platform/os/message_loop.h"

namespace drafta {

class ModuleMessages final : public ryv::MessageLoop {
public:
    explicit ModuleMessages(ryv::MessageLoop& loop) noexcept : loop_(loop) {}

    /// Destroys the windows, with their timers, and forgets the calls that have not begun.
    void drop();

    ryv::WindowHandle createWindow(ryv::MessageReceiver& receiver) override;
    void destroyWindow(ryv::WindowHandle window) override;
    bool isWindow(ryv::WindowHandle window) override { return loop_.isWindow(window); }
    bool setTimer(ryv::WindowHandle window, std::uint32_t id, std::chrono::milliseconds period) override {
        return loop_.setTimer(window, id, period);
    }
    void killTimer(ryv::WindowHandle window, std::uint32_t id) override { loop_.killTimer(window, id); }
    bool post(
        ryv::WindowHandle window, std::uint32_t number, std::uintptr_t first, std::intptr_t second) override {
        return loop_.post(window, number, first, second);
    }
    void call(std::function<void()> work) override;
    void pump() override { loop_.pump(); }

private:
    ryv::MessageLoop& loop_;
    ModuleWork work_;
    LeftBehind<ryv::WindowHandle> windows_;
};

class ModuleMonitor final : public ryv::FileMonitor {
public:
    explicit ModuleMonitor(ryv::FileMonitor& monitor) noexcept : monitor_(monitor) {}

    /// Ends the notices to the module, and takes its files off the watch list.
    void drop();

    ryv::FileStatus start(ryv::FileMonitorReceiver& receiver) override;
    /// Nothing happens when it was another module that has started it.
    void stop() override;
    bool isRunning() override { return monitor_.isRunning(); }
    ryv::FileStatus watch(ryv::CStringView path) override;
    bool unwatch(ryv::CStringView path) override;

private:
    ryv::FileMonitor& monitor_;
    bool hasStarted_ = false;
    LeftBehind<ryv::CString> watched_; // in upper case
};

} // namespace drafta
