// Everything that the module asks of its surroundings, by role. A program or a test fills in what it
// supplies; the rest keeps null objects that do nothing and answer "no".
#pragma once

#include "platform/host/documents.h"
#include "platform/host/lisp.h"
#include "platform/os/clock.h"
#include "platform/os/files.h"
#include "platform/os/identity.h"
#include "platform/os/system_paths.h"
#include "platform/services/global_variables.h"

namespace ryv {

namespace detail {
struct NullPorts {
    NullHostLisp lisp;
    NullHostDocuments documents;
    NullFiles files;
    NullSystemPaths paths;
    NullIdentity identity;
    NullClock clock;
    NullGlobalVariables globalVariables;
};
} // namespace detail

/// The ports, as pointers that are never null and are not owned: what they point to outlives the Platform.
class Platform {
    detail::NullPorts null_;

public:
    Platform() = default;
    Platform(const Platform&) = delete;
    Platform& operator=(const Platform&) = delete;

    struct Host {
        HostLisp* lisp;
        HostDocuments* documents;
    } host{&null_.lisp, &null_.documents};

    struct Os {
        Files* files;
        SystemPaths* paths;
        Identity* identity;
        Clock* clock;
    } os{&null_.files, &null_.paths, &null_.identity, &null_.clock};

    struct Services {
        GlobalVariables* globalVariables;
    } services{&null_.globalVariables};
};

} // namespace ryv
