// The processor time that this process has used.
#pragma once

#include <sys/resource.h>

#include <algorithm>
#include <limits>

namespace bench {

/// In seconds, of all threads, for the program and for the system on its behalf; with RUSAGE_CHILDREN of the
/// processes that it has waited for.
inline double processorSeconds(int whose = RUSAGE_SELF) {
    rusage usage{};
    getrusage(whose, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// What some work takes in this process and in those that it starts and waits for.
template <class Work>
double processorSecondsOf(const Work& work) {
    const auto now = [] { return processorSeconds() + processorSeconds(RUSAGE_CHILDREN); };
    const double start = now();
    work();
    return now() - start;
}

/// The least of what several runs took, since other programs at work only ever add.
class Least {
public:
    template <class Work>
    void measure(const Work& work) {
        add(processorSecondsOf(work));
    }
    void add(double seconds) { seconds_ = std::min(seconds_, seconds); }
    double seconds() const { return seconds_; }
    double milliseconds() const { return seconds_ * 1e3; }

private:
    double seconds_ = std::numeric_limits<double>::max();
};

} // namespace bench
