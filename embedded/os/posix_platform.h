// All ports of the operating system, ready to be used.
#pragma once

#include "embedded/os/posix_clock.h"
#include "embedded/os/posix_environment.h"
#include "embedded/os/posix_files.h"
#include "embedded/os/posix_identity.h"
#include "embedded/os/posix_network.h"
#include "embedded/os/posix_paths.h"
#include "embedded/os/posix_unique_ids.h"
#include "platform/platform.h"

namespace drafta {

/// Owns the ports of the operating system and a Platform that has them filled in; the other ports are null
/// objects until a program fills them in as well.
class PosixPlatform {
public:
    PosixPlatform() {
        platform_.os.files = &files_;
        platform_.os.paths = &paths_;
        platform_.os.identity = &identity_;
        platform_.os.clock = &clock_;
        platform_.os.environment = &environment_;
        platform_.os.uniqueIds = &uniqueIds_;
        platform_.os.network = &network_;
    }
    PosixPlatform(const PosixPlatform&) = delete;
    PosixPlatform& operator=(const PosixPlatform&) = delete;

    ryv::Platform& platform() noexcept { return platform_; }

    /// For drives and shares that the command line or the settings name.
    PathMapper& mapper() noexcept { return mapper_; }

private:
    PathMapper mapper_;
    PosixFiles files_{mapper_};
    PosixPaths paths_{mapper_};
    PosixIdentity identity_;
    PosixClock clock_;
    PosixEnvironment environment_;
    PosixUniqueIds uniqueIds_;
    PosixNetwork network_{paths_, identity_};
    ryv::Platform platform_;
};

} // namespace drafta
