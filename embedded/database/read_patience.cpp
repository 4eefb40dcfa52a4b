#include "embedded/database/read_patience.h"

#include <algorithm>

namespace drafta {

namespace {

constexpr int limitsOfPause = 6;
constexpr int longestPause = 64; // in first pauses; so as many files as are kept all get their turn
constexpr int shareInHurry = 10; // of the time limit

} // namespace

ReadPatience::Time ReadPatience::pause() const {
    return limit_ * limitsOfPause;
}

bool ReadPatience::mayRetry(const File& file) const {
    const Time now = now_();
    return now >= nextRetryAt_ && now >= file.tryAgainAt;
}

void ReadPatience::retry(File& file) {
    file.isRetried = true;
    nextRetryAt_ = now_() + pause();
}

ReadPatience::Time ReadPatience::limitFor(const File& file) const {
    return file.isRetried || now_() >= hurryUntil_ ? limit_ : limit_ / shareInHurry;
}

void ReadPatience::timedOut(File& file) {
    const Time now = now_();
    hurryUntil_ = nextRetryAt_ = now + pause();
    file.tryAgainAt = now + pause() * file.pauses;
    file.pauses = std::min(file.pauses * 2, longestPause);
    file.isRetried = false;
}

} // namespace drafta
