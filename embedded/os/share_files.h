// The files in which a machine says which of its folders it shares.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace drafta {

/// A folder that this machine shares; native bytes.
struct SharedFolder {
    std::string name;   ///< with "/" between components
    std::string folder; ///< a full path, without "/" at its end
    bool operator==(const SharedFolder&) const = default;
};

/// Those in the text of a Samba configuration. Printers, home folders, shares that are switched off and
/// folders that depend on who asks are left out, and so is what makes no sense. Other files that it includes
/// are not read.
std::vector<SharedFolder> sambaShares(std::string_view text);

/// Those in the text of /etc/exports; each has its folder as its name.
std::vector<SharedFolder> nfsExports(std::string_view text);

} // namespace drafta
