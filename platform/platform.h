// Everything that the module asks of its surroundings, by role. A program or a test fills in what it
// supplies; the rest keeps null objects that do nothing and answer "no".
#pragma once

#include "platform/host/commands.h"
#include "platform/host/console.h"
#include "platform/host/documents.h"
#include "platform/host/drawings.h"
#include "platform/host/editor.h"
#include "platform/host/host_files.h"
#include "platform/host/lisp.h"
#include "platform/host/main_window.h"
#include "platform/host/palettes.h"
#include "platform/host/profile.h"
#include "platform/os/clock.h"
#include "platform/os/environment.h"
#include "platform/os/file_monitor.h"
#include "platform/os/files.h"
#include "platform/os/identity.h"
#include "platform/os/message_loop.h"
#include "platform/os/network.h"
#include "platform/os/registry.h"
#include "platform/os/system_paths.h"
#include "platform/os/unique_ids.h"
#include "platform/services/catalog_browser.h"
#include "platform/services/client_manager.h"
#include "platform/services/event_log.h"
#include "platform/services/global_variables.h"
#include "platform/services/help.h"
#include "platform/services/lock_check.h"
#include "platform/services/menu_hook.h"
#include "platform/services/package_settings.h"
#include "platform/services/project_database.h"
#include "platform/services/task_dialogs.h"
#include "platform/services/user_folders.h"
#include "platform/services/wait_cursor.h"
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
    NullHostEditor editor;
    NullHostProfile profile;
    NullHostMainWindow mainWindow;
    NullHostPalettes palettes;
    NullFiles files;
    NullSystemPaths paths;
    NullIdentity identity;
    NullClock clock;
    NullEnvironment environment;
    NullUniqueIds uniqueIds;
    NullRegistry registry;
    NullMessageLoop messages;
    NullFileMonitor monitor;
    NullNetwork network;
    NullGlobalVariables globalVariables;
    NullUserFolders userFolders;
    NullPackageSettings settings;
    NullProjectDatabase projectDatabase;
    NullLockCheck lockCheck;
    NullTaskDialogs taskDialogs;
    NullClientManager clientManager;
    NullCatalogBrowserModule catalogBrowser;
    NullWaitCursor waitCursor;
    NullHelp help;
    NullMenuHook menuHook;
    NullEventLog eventLog;
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
        HostEditor* editor;
        HostProfile* profile;
        HostMainWindow* mainWindow;
        HostPalettes* palettes;
    } host{&null_.lisp, &null_.documents, &null_.commands, &null_.console, &null_.hostFiles, &null_.drawings,
        &null_.editor, &null_.profile, &null_.mainWindow, &null_.palettes};

    struct Os {
        Files* files;
        SystemPaths* paths;
        Identity* identity;
        Clock* clock;
        Environment* environment;
        UniqueIds* uniqueIds;
        Registry* registry;
        MessageLoop* messages;
        FileMonitor* monitor;
        Network* network;
    } os{&null_.files, &null_.paths, &null_.identity, &null_.clock, &null_.environment, &null_.uniqueIds,
        &null_.registry, &null_.messages, &null_.monitor, &null_.network};

    struct Services {
        GlobalVariables* globalVariables;
        UserFolders* userFolders;
        PackageSettings* settings;
        ProjectDatabase* projectDatabase;
        LockCheck* lockCheck;
        TaskDialogs* taskDialogs;
        RyvPdsClientManager* clientManager;
        CatalogBrowserModule* catalogBrowser;
        WaitCursor* waitCursor;
        Help* help;
        MenuHook* menuHook;
        EventLog* eventLog;
    } services{&null_.globalVariables, &null_.userFolders, &null_.settings, &null_.projectDatabase,
        &null_.lockCheck, &null_.taskDialogs, &null_.clientManager, &null_.catalogBrowser, &null_.waitCursor,
        &null_.help, &null_.menuHook, &null_.eventLog};

    UserInterface* ui = &null_.ui;
};

} // namespace ryv
