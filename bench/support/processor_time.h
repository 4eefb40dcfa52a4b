// The processor time that this process has used.
#pragma once

#include <sys/resource.h>

namespace bench {

/// In seconds, of all threads, for the program and for the system on its behalf.
inline double processorSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

} // namespace bench
