// Programs that read a file in place of the host, and may fail at that in any way.
#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace drafta {

struct ReaderLimits {
    std::chrono::milliseconds time{5000};               ///< from start to end
    std::size_t bytes = std::size_t{256} * 1024 * 1024; ///< of output
};

enum class ReaderEnd {
    complete,  ///< it ended by itself and found no fault
    timedOut,  ///< it was killed after its time
    tooMuch,   ///< it was killed for writing too much
    failed,    ///< it crashed, or ended with an exit code other than 0
    notStarted ///< there is no such program, or no process can be made
};

/// Runs a program with an open file as standard input, without any environment and without messages, and
/// collects what it writes to standard output. Waits for its end; no process is left behind.
ReaderEnd runReader(const std::string& program, const std::vector<std::string>& arguments, int input,
    const ReaderLimits& limits, std::string& output);

} // namespace drafta
