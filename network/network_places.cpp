#include "network/network_places.h"

#include "network/local_share_iterator.h"

#include <algorithm>
#include <optional>

namespace ryv {

namespace {

constexpr std::size_t mostComputers = 200;
constexpr CStringView networkRoot = u"\\\\";
constexpr CStringView ownShares = u"\\"; // a name that no computer has

bool isNetworkPath(CStringView path) {
    return path.starts_with(networkRoot) && path.size() > networkRoot.size() && path[2] != u'\\';
}

/// The rest of a path behind a folder, with its separator; nothing when it lies elsewhere. A root folder
/// holds everything.
std::optional<CStringView> restBehind(CStringView path, CStringView folder, bool exactCase) {
    while (folder.ends_with(u'\\'))
        folder.remove_suffix(1);
    if (path.size() < folder.size())
        return std::nullopt;
    const CStringView start = path.substr(0, folder.size());
    const CStringView rest = path.substr(folder.size());
    const bool same = exactCase ? start == folder : equalNoCase(start, folder);
    return same && (rest.empty() || rest.front() == u'\\') ? std::optional(rest) : std::nullopt;
}

/// By the share whose folder is the innermost one around the path.
CString pathThrough(const std::vector<NetworkShare>& shares, CStringView path, bool exactCase) {
    const NetworkShare* best = nullptr;
    CStringView bestRest;
    for (const NetworkShare& share : shares) {
        const std::optional<CStringView> rest = restBehind(path, share.folder, exactCase);
        if (rest && (!best || rest->size() < bestRest.size())) {
            best = &share;
            bestRest = *rest;
        }
    }
    return best ? CString(networkRoot) + best->computer + u'\\' + best->name + CString(bestRest) : CString();
}

} // namespace

NetworkPlaces::NetworkPlaces(Network& network, Clock& clock)
    : network_(network), computers_(clock, networkAge, 1), shares_(clock, networkAge, mostComputers),
      longNames_(clock, nameAge, mostNames) {}

CStringArray NetworkPlaces::computers() {
    return computers_.get({}, [this] {
        CStringArray names = network_.computers();
        std::sort(names.begin(), names.end(),
            [](const CString& a, const CString& b) { return toUpper(a) < toUpper(b); });
        return names;
    });
}

std::vector<NetworkShare> NetworkPlaces::sharesOf(CStringView computer) {
    return shares_.get(computer, [&] {
        std::vector<NetworkShare> shares = network_.sharesOf(computer);
        std::sort(shares.begin(), shares.end(),
            [](const NetworkShare& a, const NetworkShare& b) { return toUpper(a.name) < toUpper(b.name); });
        return shares;
    });
}

std::vector<NetworkShare> NetworkPlaces::sharesInUse() {
    std::vector<NetworkShare> all;
    for (const CString& computer : computers())
        for (NetworkShare& share : sharesOf(computer))
            all.push_back(std::move(share));
    return all;
}

std::vector<NetworkShare> NetworkPlaces::localShares() {
    return shares_.get(ownShares, [this] {
        std::vector<NetworkShare> shares;
        LocalShareIterator each(network_);
        for (NetworkShare share; each.next(share);)
            shares.push_back(share);
        return shares;
    });
}

CString NetworkPlaces::longPathName(CStringView path) {
    return longNames_.get(path, [&] { return network_.longPathName(path); });
}

CString NetworkPlaces::networkPathOf(CStringView path) {
    if (path.empty() || isNetworkPath(path))
        return CString(path);
    const CString real = longPathName(path);
    const CStringView known = real.empty() ? path : CStringView(real);
    const CString used = pathThrough(sharesInUse(), known, !real.empty());
    return used.empty() ? pathThrough(localShares(), known, !real.empty()) : used;
}

void NetworkPlaces::forget() {
    computers_.clear();
    shares_.clear();
    longNames_.clear();
}

} // namespace ryv
