#include "embedded/qt/window/busy_alarm.h"

#include "embedded/documents/host.h"

#include <atomic>
#include <csignal>
#include <sys/syscall.h>
#include <unistd.h>

namespace drafta {

namespace {

constexpr itimerspec halfASecond{{0, 100'000'000}, {0, BusyAlarm::firstAfter * 1'000'000}};
constexpr itimerspec never{};

std::atomic<Host*> alarmed = nullptr;

extern "C" void onAlarm(int) {
    if (Host* const host = alarmed.load())
        host->requestBreath();
}

} // namespace

/// System calls that the signal meets go on by themselves.
BusyAlarm::BusyAlarm(Host& host) {
    alarmed = &host;
    struct sigaction action {};
    action.sa_handler = onAlarm;
    action.sa_flags = SA_RESTART;
    ::sigaction(SIGRTMIN, &action, nullptr);
    sigevent event{};
    event.sigev_notify = SIGEV_THREAD_ID;
    event.sigev_signo = SIGRTMIN;
    event._sigev_un._tid = static_cast<pid_t>(::syscall(SYS_gettid));
    usable_ = ::timer_create(CLOCK_MONOTONIC, &event, &timer_) == 0;
}

BusyAlarm::~BusyAlarm() {
    if (usable_)
        ::timer_delete(timer_);
    alarmed = nullptr;
}

void BusyAlarm::start() noexcept {
    if (usable_)
        ::timer_settime(timer_, 0, &halfASecond, nullptr);
}

void BusyAlarm::stop() noexcept {
    if (usable_)
        ::timer_settime(timer_, 0, &never, nullptr);
}

} // namespace drafta
