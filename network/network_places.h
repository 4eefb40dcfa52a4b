// What the module knows of the network: the computers and shares in use, how paths are really spelled, and by
// which path others reach a file of this machine.
#pragma once

#include "network/aged_cache.h"
#include "platform/os/network.h"

namespace ryv {

/// Asks the system once and remembers the answer for a while. Main thread only.
class NetworkPlaces {
public:
    /// How long answers count. Shares come and go seldom; names of files change while people work.
    static constexpr std::chrono::minutes networkAge{5};
    static constexpr std::chrono::seconds nameAge{10};
    static constexpr std::size_t mostNames = 1000;

    /// The ports outlive this object.
    NetworkPlaces(Network& network, Clock& clock);

    /// The computers whose shares this machine uses, and their shares, in ascending order of the names.
    CStringArray computers();
    std::vector<NetworkShare> sharesOf(CStringView computer);

    /// A path as the file system spells it; empty when there is nothing there.
    CString longPathName(CStringView path);

    /// The path "\\computer\share\..." by which other computers reach a file or folder: of one that lies on a
    /// share in use its place there, of one in a folder that this machine shares that share; the innermost
    /// share counts. A network path is its own. Empty for a file that others cannot reach.
    CString networkPathOf(CStringView path);

    /// The next questions go to the system again.
    void forget();

private:
    std::vector<NetworkShare> sharesInUse();
    std::vector<NetworkShare> localShares();

    Network& network_;
    AgedCache<CStringArray> computers_;
    AgedCache<std::vector<NetworkShare>> shares_;
    AgedCache<CString> longNames_;
};

} // namespace ryv
