// The quiet period before a changed project is read again: a burst of writes causes one re-read.
#pragma once

#include "base/strings.h"
#include "platform/os/message_loop.h"

#include <chrono>

namespace ryv {

/// One project that waits for its re-read.
struct _filetimer { // NOLINT(bugprone-reserved-identifier): sibling modules know it by this name
    CString projectId;
    std::uint32_t timerId = 0;
};

/// The palette window's message that reads a project again; its first parameter is the project's index.
inline constexpr std::uint32_t rereadMessage = 2987;

/// The number of the palette window's own timer, which no re-read gets.
inline constexpr std::uint32_t timerOfPalette = 100;

/// How long a project's file has to be left alone before it is read again.
inline constexpr std::chrono::milliseconds quietPeriod{100};

class RereadTimers {
public:
    /// Starts the quiet period of a project, or starts it again. Without a palette window, and when the
    /// system has no timer left, the change is dropped. Always true.
    bool start(CStringView projectId, WindowHandle window);

    /// A timer of the window has fired: stops it, and gives the project that waited for it. Empty when no
    /// project did.
    CString fired(WindowHandle window, std::uint32_t timerId);

    /// The projects that wait, in the order in which they began to.
    CList<_filetimer>& list() noexcept { return timers_; }

private:
    CList<_filetimer> timers_;
    std::uint32_t lastId_ = 0;
};

} // namespace ryv
