// The host's log of what happens to projects, for people and programs that follow along.
#pragma once

#include "base/strings.h"

namespace ryv {

class EventLog {
public:
    virtual ~EventLog() = default;

    /// Notes an event, such as "onProjectOpen", and what it concerns: absolute paths and plain words.
    virtual void log(CStringView event, const CStringArray& details) = 0;
};

/// Nobody follows.
class NullEventLog final : public EventLog {
public:
    void log(CStringView, const CStringArray&) override {}
};

} // namespace ryv
