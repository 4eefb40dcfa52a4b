// The log of project events as lines for people or for programs.
#pragma once

#include "embedded/loop/epoll_message_loop.h"
#include "platform/services/event_log.h"
#include "programs/kqp/terminal/console.h"

namespace kqp {

enum class EventForm { text, json };

/// Prints each event when it comes: its name and details in one line of text with tabs between them and
/// native paths, or as one JSON object. Notices of the file monitoring are no events and go to standard
/// error. When the output fails, the loop is ended.
class EventLines final : public ryv::EventLog {
public:
    /// `console` and `loop` outlive the log.
    EventLines(EventForm form, Console& console, drafta::EpollMessageLoop& loop)
        : form_(form), console_(console), loop_(loop) {}

    void log(ryv::CStringView event, const ryv::CStringArray& details) override;

private:
    void printText(ryv::CStringView event, const ryv::CStringArray& details);
    void printJson(ryv::CStringView event, const ryv::CStringArray& details);

    EventForm form_;
    Console& console_;
    drafta::EpollMessageLoop& loop_;
};

} // namespace kqp
