// The time of this machine, written in the manner of American English.
#pragma once

#include "platform/os/clock.h"

namespace drafta {

class PosixClock final : public ryv::Clock {
public:
    ryv::LocalTime localTime() override;
    ryv::LocalTime localTimeOf(std::int64_t seconds) override;
    std::chrono::milliseconds steady() override;
    /// Both are empty for a day or hour that no calendar or clock has.
    ryv::CString longDate(const ryv::LocalTime& time) override;
    ryv::CString timeOfDay(const ryv::LocalTime& time) override;
};

} // namespace drafta
