// How long reads may take, and when those that took too long are tried again.
#pragma once

#include <chrono>
#include <functional>

namespace drafta {

/// A read that took too long may be the fault of a slow disk, so it is tried again: after a pause of six time
/// limits, which doubles with each failure of the file up to sixty-four of these, and one file at a time. In
/// the pause after a failure, whichever file it was, reads of other files get a tenth of the time: when a
/// disk hangs, a row of files costs little more than one.
class ReadPatience {
public:
    using Time = std::chrono::milliseconds;
    using Clock = std::function<Time()>; ///< goes on only

    /// What is kept of each file.
    struct File {
        int pauses = 1; ///< how many first pauses the next one is as long as
        Time tryAgainAt{0};
        bool isRetried = false;
    };

    ReadPatience(Time limit, Clock now) : limit_(limit), now_(std::move(now)) {}

    /// Whether a read of the file that took too long may be tried again now.
    bool mayRetry(const File& file) const;
    /// It is going to be.
    void retry(File& file);

    /// How long a read of the file may take now.
    Time limitFor(const File& file) const;
    void timedOut(File& file);

private:
    Time pause() const;

    Time limit_;
    Clock now_;
    Time hurryUntil_{0};
    Time nextRetryAt_{0};
};

} // namespace drafta
