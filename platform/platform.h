// Everything that the module asks of its surroundings, by role. A program or a test fills in what it
// supplies; the rest keeps null objects that do nothing and answer "no".
#pragma once

#include "platform/host/commands.h"
#include "platform/host/console.h"
#include "platform/host/documents.h"
#include "platform/host/drawings.h"
#include "platform/host/host_files.h"
#include "platform/host/lisp.h"
#include "platform/os/clock.h"
#include "platform/os/files.h"
#include "platform/os/identity.h"
#include "platform/os/system_paths.h"
#include "platform/services/global_variables.h"
#include "platform/ui/user_interface.h"

namespace ryv {

namespace detail {
struct NullPorts {
    NullHostLisp lisp;
    NullHostDocuments documents;
    NullHostCommands commands;
    NullHostConsole console;
    NullHostFiles hostFiles;
    NullHostDrawings drawings;
    NullFiles files;
    NullSystemPaths paths;
    NullIdentity identity;
    NullClock clock;
    NullGlobalVariables globalVariables;
    NullUserInterface ui;
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
        HostCommands* commands;
        HostConsole* console;
        HostFiles* files;
        HostDrawings* drawings;
    } host{&null_.lisp, &null_.documents, &null_.commands, &null_.console, &null_.hostFiles, &null_.drawings};

    struct Os {
        Files* files;
        SystemPaths* paths;
        Identity* identity;
        Clock* clock;
    } os{&null_.files, &null_.paths, &null_.identity, &null_.clock};

    struct Services {
        GlobalVariables* globalVariables;
    } services{&null_.globalVariables};

    UserInterface* ui = &null_.ui;
};

} // namespace ryv
