// The time of day, and how the system writes it for people.
#pragma once

#include "base/strings.h"

#include <chrono>
#include <cstdint>

namespace ryv {

/// A moment in the user's own time zone. month 1 to 12, day 1 to 31, hour 0 to 23, minute and second 0 to 59.
struct LocalTime {
    int year = 1970;
    int month = 1;
    int day = 1;
    int hour = 0;
    int minute = 0;
    int second = 0;
};

class Clock {
public:
    virtual ~Clock() = default;

    virtual LocalTime localTime() = 0;

    /// The moment so many seconds after the beginning of 1970 (UTC), before it when negative.
    virtual LocalTime localTimeOf(std::int64_t seconds) = 0;

    /// Time that only ever goes forward, from an arbitrary start.
    virtual std::chrono::milliseconds steady() = 0;

    /// The date in the locale's long form ("Saturday, November 21, 2026") and the time in its usual form
    /// ("2:05:09 AM").
    virtual CString longDate(const LocalTime& time) = 0;
    virtual CString timeOfDay(const LocalTime& time) = 0;
};

/// Time stands still at the beginning of 1970; nothing is formatted.
class NullClock final : public Clock {
public:
    LocalTime localTime() override { return {}; }
    LocalTime localTimeOf(std::int64_t) override { return {}; }
    std::chrono::milliseconds steady() override { return std::chrono::milliseconds(0); }
    CString longDate(const LocalTime&) override { return {}; }
    CString timeOfDay(const LocalTime&) override { return {}; }
};

} // namespace ryv
