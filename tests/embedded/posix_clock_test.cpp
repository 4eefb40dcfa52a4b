#include "embedded/os/posix_clock.h"

#include "resources/language.h"
#include "tests/support/text.h"

#include <ctime>
#include <gtest/gtest.h>

namespace ryv::test {
namespace {

/// "2026-11-21T02:05:09"
LocalTime parseTime(const CString& text) {
    const auto number = [&text](std::size_t at, std::size_t size) {
        return static_cast<int>(parseInteger(CStringView(text).substr(at, size)).value());
    };
    return {number(0, 4), number(5, 2), number(8, 2), number(11, 2), number(14, 2), number(17, 2)};
}

TEST(PosixClock, recordedMoments_areWrittenAsRecorded) {
    drafta::PosixClock clock;
    for (const Row& row : readTable(RYV_TEST_DATA "/../base/vectors/date_time_en_us.tsv", 3)) {
        const LocalTime time = parseTime(row.cells[0]);
        EXPECT_EQ(clock.longDate(time), row.cells[1]) << "line " << row.line;
        EXPECT_EQ(clock.timeOfDay(time), row.cells[2]) << "line " << row.line;
    }
}

TEST(PosixClock, moments_areWrittenInTheLanguageThatIsSpoken) {
    drafta::PosixClock clock;
    setLanguage(Language::german);
    EXPECT_EQ(clock.longDate({2026, 3, 7, 0, 5, 9}), u"Samstag, 7. M\u00E4rz 2026");
    EXPECT_EQ(clock.timeOfDay({2026, 3, 7, 0, 5, 9}), u"00:05:09");
    EXPECT_EQ(clock.longDate({2026, 2, 29, 0, 0, 0}), u"");
    setLanguage(Language::english);
}

TEST(PosixClock, momentsThatDoNotExist_areEmpty) {
    drafta::PosixClock clock;
    EXPECT_EQ(clock.longDate({2026, 2, 29, 0, 0, 0}), u"");
    EXPECT_EQ(clock.longDate({2026, 13, 1, 0, 0, 0}), u"");
    EXPECT_EQ(clock.longDate({2026, 0, -1, 0, 0, 0}), u"");
    EXPECT_EQ(clock.timeOfDay({2026, 1, 1, 24, 0, 0}), u"");
    EXPECT_EQ(clock.timeOfDay({2026, 1, 1, 0, -1, 0}), u"");
}

std::time_t momentOf(const LocalTime& time) {
    std::tm parts{};
    parts.tm_year = time.year - 1900;
    parts.tm_mon = time.month - 1;
    parts.tm_mday = time.day;
    parts.tm_hour = time.hour;
    parts.tm_min = time.minute;
    parts.tm_sec = time.second;
    parts.tm_isdst = -1;
    return std::mktime(&parts);
}

TEST(PosixClock, localTime_isTheSystemsWithinAMoment) {
    EXPECT_NEAR(std::difftime(std::time(nullptr), momentOf(drafta::PosixClock().localTime())), 0, 5);
}

TEST(PosixClock, localTimeOf_isThatMomentInTheUsersZone) {
    for (const std::int64_t moment : {-86'400'001LL, 0LL, 1'600'000'000LL, 4'102'444'799LL})
        EXPECT_EQ(momentOf(drafta::PosixClock().localTimeOf(moment)), moment);
}

} // namespace
} // namespace ryv::test
