// The names that stand in a folder, found without regard to case.
#pragma once

#include "base/strings.h"

#include <cstdint>
#include <mutex>
#include <string>
#include <sys/types.h>
#include <unordered_map>

namespace drafta {

/// Whoever asks for thousands of names that are not there, as for the lock files of a project's drawings,
/// would have the folder listed as often. So the last listing is kept, as long as the folder's own time says
/// that it is still right. Any thread.
class FolderNames {
public:
    /// The entry of a folder that equals `name` when case is ignored, the first in byte order; empty when
    /// there is none.
    std::string find(const std::string& folder, ryv::CStringView name);

    /// How often a folder was listed so far.
    std::size_t listings() const noexcept { return listings_; }

private:
    struct State {
        dev_t device = 0;
        ino_t inode = 0;
        std::int64_t modified = 0; // nanoseconds
        std::int64_t changed = 0;  // the same, of attributes too: some tools set the other one back
        bool operator==(const State&) const = default;
    };
    bool isKept(const std::string& folder, const State& now) const;
    bool list(const std::string& folder);

    std::mutex mutex_;
    std::string folder_;
    State state_;
    bool settled_ = false; // a change behind the listing would show in the folder's time
    std::unordered_map<ryv::CString, std::string> names_; // by the folded name
    std::size_t listings_ = 0;
};

} // namespace drafta
