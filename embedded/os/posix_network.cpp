#include "embedded/os/posix_network.h"

#include "base/encoding.h"
#include "base/fold.h"
#include "base/text.h"
#include "embedded/os/mount_table.h"
#include "embedded/os/share_files.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <memory>

namespace drafta {

namespace {

constexpr std::size_t mostBytes = std::size_t{4} << 20; // no such file is that long

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::string text;
    char part[4096];
    while (text.size() < mostBytes && (file.read(part, sizeof part), file.gcount() > 0))
        text.append(part, static_cast<std::size_t>(file.gcount()));
    return text;
}

ryv::CString shareName(const std::string& name) {
    return ryv::replaceAll(ryv::nameFromBytes(name), u'/', u'\\');
}

} // namespace

PosixNetwork::PosixNetwork(ryv::SystemPaths& paths, ryv::Identity& identity, NetworkFiles files)
    : paths_(paths), identity_(identity), files_(std::move(files)) {}

ryv::CStringArray PosixNetwork::computers() {
    ryv::CStringArray names;
    for (const MountedShare& share : mountedShares(contentOf(files_.mounts))) {
        const ryv::CString name = ryv::nameFromBytes(share.computer);
        if (std::none_of(names.begin(), names.end(),
                [&](const ryv::CString& each) { return ryv::equalNoCase(each, name); }))
            names.push_back(name);
    }
    return names;
}

std::vector<ryv::NetworkShare> PosixNetwork::sharesOf(ryv::CStringView computer) {
    std::vector<ryv::NetworkShare> shares;
    for (const MountedShare& share : mountedShares(contentOf(files_.mounts)))
        if (const ryv::CString name = ryv::nameFromBytes(share.computer); ryv::equalNoCase(name, computer))
            shares.push_back({name, shareName(share.share), paths_.fromNative(share.folder)});
    return shares;
}

std::vector<ryv::NetworkShare> PosixNetwork::localShares() {
    const ryv::CString computer = identity_.computerName();
    std::vector<ryv::NetworkShare> shares;
    if (computer.empty())
        return shares;
    std::vector<SharedFolder> folders = sambaShares(contentOf(files_.samba));
    for (SharedFolder& folder : nfsExports(contentOf(files_.exports)))
        folders.push_back(std::move(folder));
    for (const SharedFolder& folder : folders)
        shares.push_back({computer, shareName(folder.name), paths_.fromNative(folder.folder)});
    return shares;
}

ryv::CString PosixNetwork::longPathName(ryv::CStringView path) {
    const std::unique_ptr<char, decltype(&std::free)> real(
        ::realpath(paths_.toNative(path).c_str(), nullptr), &std::free);
    return real ? paths_.fromNative(real.get()) : ryv::CString();
}

} // namespace drafta
