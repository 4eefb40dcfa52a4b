// Answers that are slow to get and stay true for a while.
#pragma once

#include "base/fold.h"
#include "platform/os/clock.h"

#include <chrono>
#include <cstddef>
#include <unordered_map>
#include <utility>

namespace ryv {

/// Keeps one value for each name, without regard to case, until it is older than the limit. Never holds more
/// than `most` values.
template <class Value>
class AgedCache {
public:
    /// The clock outlives the cache.
    AgedCache(Clock& clock, std::chrono::milliseconds maxAge, std::size_t most)
        : clock_(clock), maxAge_(maxAge), most_(most) {}

    /// The value of a name; `read` is called without arguments when it is not known or too old.
    template <class Read>
    Value get(CStringView name, Read read) {
        const CString key = toUpper(name);
        const std::chrono::milliseconds now = clock_.steady();
        if (const auto hit = values_.find(key); hit != values_.end() && isFresh(hit->second, now))
            return hit->second.value;
        Value value = read();
        makeRoom(now);
        values_.insert_or_assign(key, Entry{value, now});
        return value;
    }

    std::size_t size() const noexcept { return values_.size(); }
    void clear() noexcept { values_.clear(); }

private:
    struct Entry {
        Value value;
        std::chrono::milliseconds read;
    };
    bool isFresh(const Entry& entry, std::chrono::milliseconds now) const {
        return now - entry.read < maxAge_;
    }
    /// What is in use is asked for again soon, so no order of use is kept.
    void makeRoom(std::chrono::milliseconds now) {
        if (values_.size() < most_)
            return;
        std::erase_if(values_, [&](const auto& each) { return !isFresh(each.second, now); });
        if (values_.size() >= most_)
            values_.clear();
    }

    Clock& clock_;
    std::chrono::milliseconds maxAge_;
    std::size_t most_;
    std::unordered_map<CString, Entry> values_;
};

} // namespace ryv
