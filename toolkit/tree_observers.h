// The views of a tree, which may come and go while they are being told something.
#pragma once

#include "toolkit/tree_observer.h"

#include <algorithm>
#include <vector>

namespace ryv {

class TreeObservers {
public:
    void attach(TreeObserver& observer) { observers_.push_back(&observer); }

    /// Nothing is told to it any more, not even by a notice under way.
    void detach(const TreeObserver& observer) {
        std::replace(observers_.begin(), observers_.end(), const_cast<TreeObserver*>(&observer),
            static_cast<TreeObserver*>(nullptr));
        sweep();
    }

    template <class Notice>
    void tell(Notice notice) {
        const Under under(*this);
        tellFirst(observers_.size(), notice);
    }

    /// Tells what is about to happen, lets it happen, tells that it did. One that comes between the two is
    /// told that everything may be different.
    template <class Before, class Change, class After>
    void tellAround(Before before, Change change, After after) {
        const Under under(*this);
        const std::size_t count = observers_.size();
        tellFirst(count, before);
        change();
        tellFirst(count, after);
        for (std::size_t i = count; i < observers_.size(); ++i) {
            if (observers_[i])
                observers_[i]->aboutToReset();
            if (observers_[i])
                observers_[i]->reset();
        }
    }

private:
    /// Places stay as they are while something is being told.
    struct Under {
        explicit Under(TreeObservers& its) : observers(its) { ++observers.depth_; }
        Under(const Under&) = delete;
        Under& operator=(const Under&) = delete;
        ~Under() {
            --observers.depth_;
            observers.sweep();
        }
        TreeObservers& observers;
    };

    template <class Notice>
    void tellFirst(std::size_t count, Notice& notice) {
        for (std::size_t i = 0; i < count; ++i)
            if (observers_[i])
                notice(*observers_[i]);
    }
    void sweep() {
        if (depth_ == 0)
            std::erase(observers_, nullptr);
    }

    std::vector<TreeObserver*> observers_;
    int depth_ = 0;
};

} // namespace ryv
