// Counting what is under way.
#pragma once

namespace ryv {

/// One more as long as it lives. The count outlives it.
class AtWork {
public:
    explicit AtWork(int& works) noexcept : works_(works) { ++works_; }
    AtWork(const AtWork&) = delete;
    AtWork& operator=(const AtWork&) = delete;
    ~AtWork() { --works_; }

private:
    int& works_;
};

} // namespace ryv
