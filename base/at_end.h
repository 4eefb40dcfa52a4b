// Work that is to be done at the end of a scope, whichever way it is left.
#pragma once

#include <utility>

namespace ryv {

/// Calls `end` when it goes, also when what runs in between throws. `end` does not throw.
template <class End>
class AtEnd {
public:
    explicit AtEnd(End end) : end_(std::move(end)) {}
    AtEnd(const AtEnd&) = delete;
    AtEnd& operator=(const AtEnd&) = delete;
    ~AtEnd() { end_(); }

private:
    End end_;
};

} // namespace ryv
