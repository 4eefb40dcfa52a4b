// Whoever reads our output through a pipe.
#pragma once

#include "embedded/loop/epoll_message_loop.h"
#include "programs/kqp/terminal/output.h"

namespace kqp {

/// Ends the loop, with a failed output, as soon as the other end of a pipe is closed, and not only when the
/// next event finds it so. Does nothing for files and terminals.
class OutputReader {
public:
    /// Both outlive the object.
    OutputReader(drafta::EpollMessageLoop& loop, Output& out);
    OutputReader(const OutputReader&) = delete;
    OutputReader& operator=(const OutputReader&) = delete;
    ~OutputReader();

private:
    void look();

    drafta::EpollMessageLoop& loop_;
    Output& out_;
};

} // namespace kqp
