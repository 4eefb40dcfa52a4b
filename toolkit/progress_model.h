// How far a long operation has come, and whether the user wants it to end.
#pragma once

#include "base/event.h"
#include "base/strings.h"

#include <algorithm>
#include <cstddef>

namespace ryv {

class ProgressModel {
public:
    /// `count` is the number of steps; 0 when it is not known.
    ProgressModel(CString title, std::size_t count) : title_(std::move(title)), count_(count) {}

    const CString& title() const noexcept { return title_; }
    std::size_t count() const noexcept { return count_; }
    std::size_t done() const noexcept { return done_; }
    /// What is at work now.
    const CString& item() const noexcept { return item_; }
    /// How much is done, in percent from 0 to 100; 0 while the number of steps is not known.
    int percent() const noexcept { return count_ == 0 ? 0 : static_cast<int>(done_ * 100 / count_); }

    /// The program has come so far; more than there is counts as all. False once the user has cancelled.
    bool step(std::size_t done, CStringView item) {
        done_ = count_ == 0 ? done : std::min(done, count_);
        item_ = item;
        changed.fire(*this);
        return !cancelled_;
    }

    /// The user has cancelled; the program learns it at its next step.
    void cancel() {
        cancelled_ = true;
        changed.fire(*this);
    }
    bool isCancelled() const noexcept { return cancelled_; }

    Event<const ProgressModel&> changed;

private:
    CString title_;
    CString item_;
    std::size_t count_;
    std::size_t done_ = 0;
    bool cancelled_ = false;
};

} // namespace ryv
