#include "programs/kqp/watch/stop_signals.h"

#include <atomic>

namespace kqp {

namespace {

std::atomic<drafta::EpollMessageLoop*> stoppable = nullptr; // handlers of signals are given nothing else

void stop(int) {
    if (drafta::EpollMessageLoop* const loop = stoppable)
        loop->quit();
}

} // namespace

StopSignals::StopSignals(drafta::EpollMessageLoop& loop) {
    stoppable = &loop;
    struct sigaction action {};
    action.sa_handler = stop;
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    ::sigaction(SIGINT, &action, &interrupt_);
    ::sigaction(SIGTERM, &action, &terminate_);
}

StopSignals::~StopSignals() {
    ::sigaction(SIGINT, &interrupt_, nullptr);
    ::sigaction(SIGTERM, &terminate_, nullptr);
    stoppable = nullptr;
}

} // namespace kqp
