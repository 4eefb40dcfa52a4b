// The log of project events as lines on the terminal.
#pragma once

#include "platform/services/event_log.h"

#include <functional>

namespace drafta {

/// Hands each event on as a line with its end: the event and its details with tabs between them, paths as
/// people know them. Control characters, which names of files may hold, become "?": an event is one line,
/// and nothing in it moves the cursor.
class PrintedEventLog final : public ryv::EventLog {
public:
    /// `shown` turns a path of the module into a native one.
    PrintedEventLog(
        std::function<void(ryv::CStringView)> print, std::function<ryv::CString(ryv::CStringView)> shown)
        : print_(std::move(print)), shown_(std::move(shown)) {}

    void log(ryv::CStringView event, const ryv::CStringArray& details) override;

private:
    std::function<void(ryv::CStringView)> print_;
    std::function<ryv::CString(ryv::CStringView)> shown_;
};

} // namespace drafta
