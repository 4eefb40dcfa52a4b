// Computers of the network, the folders that they share, and how names are really spelled.
#pragma once

#include "base/strings.h"

#include <vector>

namespace ryv {

/// A folder that a computer shares with others.
struct NetworkShare {
    CString computer; ///< its name; other forms ("fileserver.example", an address) stay as they were given
    CString name;     ///< of the share, with "\\" between components when it has several
    CString folder;   ///< module path of the folder on this machine, without a separator at its end
    bool operator==(const NetworkShare&) const = default;
};

/// Main thread only. Nothing is kept: every question goes to the system, and may take long where a server
/// does not answer.
class Network {
public:
    virtual ~Network() = default;

    /// The computers whose shares this machine uses now, each once, in no order.
    virtual CStringArray computers() = 0;

    /// The shares of a computer that this machine uses now. Case does not count in the name.
    virtual std::vector<NetworkShare> sharesOf(CStringView computer) = 0;

    /// The folders that this machine shares with others.
    virtual std::vector<NetworkShare> localShares() = 0;

    /// A path with every component as the file system spells it, links followed; empty when there is nothing
    /// at the path.
    virtual CString longPathName(CStringView path) = 0;
};

/// There is no network.
class NullNetwork final : public Network {
public:
    CStringArray computers() override { return {}; }
    std::vector<NetworkShare> sharesOf(CStringView) override { return {}; }
    std::vector<NetworkShare> localShares() override { return {}; }
    CString longPathName(CStringView) override { return {}; }
};

} // namespace ryv
