#include "embedded/os/posix_clock.h"

#include "base/format.h"
#include "resources/language.h"

#include <array>
#include <ctime>

namespace drafta {

using ryv::CString;
using ryv::CStringView;
using ryv::LocalTime;

namespace {

constexpr std::array<CStringView, 7> weekdays = {
    u"Sunday", u"Monday", u"Tuesday", u"Wednesday", u"Thursday", u"Friday", u"Saturday"};
constexpr std::array<CStringView, 12> months = {u"January", u"February", u"March", u"April", u"May", u"June",
    u"July", u"August", u"September", u"October", u"November", u"December"};
constexpr std::array<CStringView, 7> germanWeekdays = {
    u"Sonntag", u"Montag", u"Dienstag", u"Mittwoch", u"Donnerstag", u"Freitag", u"Samstag"};
constexpr std::array<CStringView, 12> germanMonths = {u"Januar", u"Februar", u"M\u00E4rz", u"April", u"Mai",
    u"Juni", u"Juli", u"August", u"September", u"Oktober", u"November", u"Dezember"};

bool isGerman() {
    return ryv::language() == ryv::Language::german;
}

CString twoDigits(int number) {
    return {static_cast<char16_t>(u'0' + number / 10), static_cast<char16_t>(u'0' + number % 10)};
}

bool within(int number, int first, int last) {
    return number >= first && number <= last;
}

} // namespace

LocalTime PosixClock::localTime() {
    return localTimeOf(std::time(nullptr));
}

LocalTime PosixClock::localTimeOf(std::int64_t seconds) {
    const std::time_t moment = seconds;
    std::tm parts{};
    if (!::localtime_r(&moment, &parts))
        return {};
    // A leap second, where the system counts them, is the last second of its minute.
    const int second = parts.tm_sec > 59 ? 59 : parts.tm_sec;
    return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min, second};
}

std::chrono::milliseconds PosixClock::steady() {
    return std::chrono::duration_cast<std::chrono::milliseconds>(
        std::chrono::steady_clock::now().time_since_epoch());
}

CString PosixClock::longDate(const LocalTime& time) {
    if (!within(time.month, 1, 12) || !within(time.day, 1, 31))
        return {};
    const std::chrono::year_month_day date{std::chrono::year(time.year),
        std::chrono::month(static_cast<unsigned>(time.month)),
        std::chrono::day(static_cast<unsigned>(time.day))};
    if (!date.ok())
        return {};
    const std::size_t weekday = std::chrono::weekday(std::chrono::sys_days(date)).c_encoding();
    const auto month = static_cast<std::size_t>(time.month - 1);
    if (isGerman())
        return ryv::format(
            u"%s, %d. %s %d", {germanWeekdays[weekday], time.day, germanMonths[month], time.year});
    return ryv::format(u"%s, %s %d, %d", {weekdays[weekday], months[month], time.day, time.year});
}

CString PosixClock::timeOfDay(const LocalTime& time) {
    if (!within(time.hour, 0, 23) || !within(time.minute, 0, 59) || !within(time.second, 0, 59))
        return {};
    if (isGerman())
        return twoDigits(time.hour) + u":" + twoDigits(time.minute) + u":" + twoDigits(time.second);
    const int hour = time.hour % 12 == 0 ? 12 : time.hour % 12;
    return ryv::format(u"%d:%s:%s %s",
        {hour, twoDigits(time.minute), twoDigits(time.second), CStringView(time.hour < 12 ? u"AM" : u"PM")});
}

} // namespace drafta
