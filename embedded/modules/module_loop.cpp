#include "embedded/modules/module_loop.h"

#include "base/fold.h"

namespace drafta {

ryv::WindowHandle ModuleMessages::createWindow(ryv::MessageReceiver& receiver) {
    const ryv::WindowHandle window = loop_.createWindow(receiver);
    windows_.add(window);
    return window;
}

void ModuleMessages::destroyWindow(ryv::WindowHandle window) {
    loop_.destroyWindow(window);
    windows_.remove(window);
}

void ModuleMessages::call(std::function<void()> work) {
    loop_.call(work_.keep(std::move(work)));
}

void ModuleMessages::drop() {
    work_.drop();
    windows_.drop([&](ryv::WindowHandle window) { loop_.destroyWindow(window); });
}

ryv::FileStatus ModuleMonitor::start(ryv::FileMonitorReceiver& receiver) {
    const ryv::FileStatus status = monitor_.start(receiver);
    hasStarted_ = hasStarted_ || status.ok();
    return status;
}

void ModuleMonitor::stop() {
    if (std::exchange(hasStarted_, false))
        monitor_.stop();
}

ryv::FileStatus ModuleMonitor::watch(ryv::CStringView path) {
    const ryv::FileStatus status = monitor_.watch(path);
    if (status.ok())
        watched_.add(ryv::toUpper(path));
    return status;
}

bool ModuleMonitor::unwatch(ryv::CStringView path) {
    watched_.remove(ryv::toUpper(path));
    return monitor_.unwatch(path);
}

void ModuleMonitor::drop() {
    stop();
    watched_.drop([&](const ryv::CString& path) { monitor_.unwatch(path); });
}

} // namespace drafta
