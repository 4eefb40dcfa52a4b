// The observers of a scripted port: they hear the newest first and may come and go during a notice.
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace ryv::test {

template <class Observer>
class ScriptedObservers {
public:
    void add(Observer& observer) {
        if (!has(observer))
            all_.push_back(&observer);
    }
    void remove(Observer& observer) { std::erase(all_, &observer); }
    bool has(Observer& observer) const {
        return std::find(all_.begin(), all_.end(), &observer) != all_.end();
    }
    std::size_t count() const noexcept { return all_.size(); }

    /// Calls `notice` with each that is there now and still there when its turn comes.
    template <class Notice>
    void tell(Notice notice) {
        const std::vector<Observer*> now = all_;
        for (auto each = now.rbegin(); each != now.rend(); ++each)
            if (has(**each))
                notice(**each);
    }

private:
    std::vector<Observer*> all_;
};

} // namespace ryv::test
