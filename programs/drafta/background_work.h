// What the host has to do while somebody waits for input: timers, notices of changed files, queued commands.
#pragma once

#include <functional>

namespace drafta {

struct BackgroundWork {
    int descriptor = -1;       ///< becomes readable when there is something to do; -1: there never is
    std::function<bool()> run; ///< does it, without waiting; false when no input is wanted any more
};

/// What ended a wait.
enum class Wake {
    input,      ///< there is input, or its end
    work,       ///< there is work, and no input
    interrupted ///< a signal came
};

/// Waits for input or work; neither is taken. Input comes first, so that keys that are typed together, or
/// sent as one sequence, stay together.
Wake waitForInput(int input, int work);

} // namespace drafta
