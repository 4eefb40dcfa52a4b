#include "programs/drafta/host_signals.h"

#include "embedded/documents/host.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <ctime>

namespace drafta {

namespace {

std::atomic<Host*> signalled = nullptr;
std::atomic<int> endingSignal = 0;
timer_t insistence{};
constexpr itimerspec everySecond{{1, 0}, {1, 0}};
constexpr itimerspec never{};

extern "C" void onInterrupt(int) {
    if (Host* const host = signalled.load())
        host->interrupt();
}

/// Comes again each second until the host has left: LISP that began in the meantime is broken off as well.
extern "C" void onEnd(int signal) {
    const int error = errno; // belongs to what was interrupted
    int none = 0;
    if (Host* const host = signalled.load()) {
        if (endingSignal.compare_exchange_strong(none, signal))
            ::timer_settime(insistence, 0, &everySecond, nullptr);
        host->leave();
    }
    errno = error;
}

/// Without SA_RESTART, so that waiting for a line ends as well.
void handle(int signal, void (*handler)(int)) {
    struct sigaction action {};
    ::sigaction(signal, nullptr, &action);
    if (action.sa_handler == SIG_IGN)
        return;
    action = {};
    action.sa_handler = handler;
    ::sigaction(signal, &action, nullptr);
}

} // namespace

HostSignals::HostSignals(Host& host) {
    sigevent event{};
    event.sigev_notify = SIGEV_SIGNAL;
    event.sigev_signo = SIGTERM;
    ::timer_create(CLOCK_MONOTONIC, &event, &insistence);
    signalled = &host;
    handle(SIGINT, onInterrupt);
    handle(SIGTERM, onEnd);
    handle(SIGHUP, onEnd);
}

/// The handlers stay: a signal that comes while the host ends is not to break that off.
HostSignals::~HostSignals() {
    signalled = nullptr;
    ::timer_settime(insistence, 0, &never, nullptr);
    ::timer_delete(insistence);
}

int HostSignals::ending() const noexcept {
    return endingSignal;
}

} // namespace drafta
