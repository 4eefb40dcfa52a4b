#include "embedded/monitor/file_mark.h"

#include <ctime>
#include <sys/stat.h>

namespace drafta {

namespace {

constexpr std::int64_t second = 1'000'000'000;
constexpr std::int64_t coarsestStep = 2 * second; // of the file systems in use

std::int64_t nanoseconds(const timespec& time) {
    return static_cast<std::int64_t>(time.tv_sec) * second + time.tv_nsec;
}

} // namespace

FileMark markOf(const std::string& native) noexcept {
    struct stat status {};
    if (::stat(native.c_str(), &status) == -1)
        return {};
    return {true, status.st_dev, status.st_ino, static_cast<std::uint64_t>(status.st_size),
        nanoseconds(status.st_mtim), nanoseconds(status.st_ctim), status.st_mode};
}

bool isFresh(const FileMark& mark) noexcept {
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    return mark.isThere && nanoseconds(now) - mark.modifiedNanoseconds < coarsestStep;
}

} // namespace drafta
