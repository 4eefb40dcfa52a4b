// The signals by which a person or a script ends the program.
#pragma once

#include "embedded/loop/epoll_message_loop.h"

#include <csignal>

namespace kqp {

/// While it lives, SIGINT and SIGTERM end the loop instead of the program. Each does so once; the next one of
/// its kind ends the program at once, even while it hangs on an output that nobody takes. One object at a
/// time.
class StopSignals {
public:
    explicit StopSignals(drafta::EpollMessageLoop& loop);
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;
    ~StopSignals();

private:
    struct sigaction interrupt_ {}; // what was set before
    struct sigaction terminate_ {};
};

} // namespace kqp
