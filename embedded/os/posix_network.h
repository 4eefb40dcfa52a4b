// The network, as far as this machine knows it from its own files: shares that are mounted and folders that
// it shares itself. No server is asked.
#pragma once

#include "platform/os/identity.h"
#include "platform/os/network.h"
#include "platform/os/system_paths.h"

#include <string>

namespace drafta {

/// Where it is written; native paths. Files that are missing or cannot be read say nothing.
struct NetworkFiles {
    std::string mounts = "/proc/self/mountinfo";
    std::string samba = "/etc/samba/smb.conf";
    std::string exports = "/etc/exports";
};

class PosixNetwork final : public ryv::Network {
public:
    /// The ports outlive this object.
    PosixNetwork(ryv::SystemPaths& paths, ryv::Identity& identity, NetworkFiles files = {});

    ryv::CStringArray computers() override;
    std::vector<ryv::NetworkShare> sharesOf(ryv::CStringView computer) override;
    std::vector<ryv::NetworkShare> localShares() override;
    ryv::CString longPathName(ryv::CStringView path) override;

private:
    ryv::SystemPaths& paths_;
    ryv::Identity& identity_;
    NetworkFiles files_;
};

} // namespace drafta
