// Where the program talks to, and what its exit codes mean.
#pragma once

#include "programs/kqp/terminal/output.h"

#include <string_view>

namespace kqp {

enum ExitCode : int {
    done = 0,
    answerIsNo = 1, ///< different, or findings
    failed = 2      ///< bad usage, or a file or the output failed
};

struct Console {
    Output& out;
    Output& error;
};

/// Makes sure that the descriptors 0, 1 and 2 are taken, so that no project file that is opened later can end
/// up there and receive what was meant for a closed output. Writing to one that was closed keeps failing.
void holdStandardDescriptors();

/// Says "kqp: what" on standard error, in one line, whatever `what` holds.
void complain(Console& console, std::string_view what);

/// Ends a command: passes its output on. `code`, or `failed` with a line on standard error when that went
/// wrong.
int finishOutput(Console& console, int code);

} // namespace kqp
