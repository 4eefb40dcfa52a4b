// The folders that this machine shares, one after the other.
#pragma once

#include "platform/os/network.h"

#include <cstddef>

namespace ryv {

/// Walks over the shares as they are when it is made. Those that a computer keeps for its own management,
/// whose names end with "$", are left out.
class LocalShareIterator {
public:
    explicit LocalShareIterator(Network& network) : shares_(network.localShares()) {}

    /// Gives the next one; false, with `share` left alone, behind the last.
    bool next(NetworkShare& share);

private:
    std::vector<NetworkShare> shares_;
    std::size_t next_ = 0;
};

} // namespace ryv
