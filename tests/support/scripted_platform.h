// A platform whose ports answer what a test has written down, and which remember what they were asked.
#pragma once

#include "bridge/platform.h"
#include "tests/support/scripted_documents.h"
#include "tests/support/scripted_host.h"
#include "tests/support/scripted_lisp.h"
#include "tests/support/scripted_loop.h"
#include "tests/support/scripted_os.h"
#include "tests/support/scripted_palettes.h"
#include "tests/support/scripted_services.h"
#include "tests/support/scripted_ui.h"

namespace ryv::test {

/// Installed for as long as it lives; no document is open at first. Files, paths and drawings are null
/// objects unless the test supplies them.
class ScriptedPlatform {
public:
    explicit ScriptedPlatform(Files* files = nullptr) {
        installHost();
        installOs(files);
        installServices();
        ports.ui = &ui;
        setPlatform(&ports);
    }
    ScriptedPlatform(const ScriptedPlatform&) = delete;
    ScriptedPlatform& operator=(const ScriptedPlatform&) = delete;
    ~ScriptedPlatform() { setPlatform(nullptr); }

    /// What is installed, for a test that brings ports of its own.
    Platform ports;

    ScriptedLisp lisp;
    ScriptedDocuments documents;
    ScriptedCommands commands;
    ScriptedConsole console;
    ScriptedHostFiles hostFiles;
    ScriptedEditor editor;
    ScriptedProfile profile;
    ScriptedMainWindow mainWindow;

    ScriptedIdentity identity;
    ScriptedClock clock;
    ScriptedEnvironment environment;
    ScriptedUniqueIds uniqueIds;
    ScriptedRegistry registry;
    ScriptedMessageLoop messages{clock};
    ScriptedFileMonitor monitor;
    ScriptedNetwork network;
    ScriptedPalettes palettes{messages};

    ScriptedVariables variables;
    ScriptedUserFolders userFolders;
    ScriptedPackageSettings settings;
    ScriptedProjectDatabase projectDatabase;
    ScriptedLockCheck lockCheck;
    ScriptedTaskDialogs taskDialogs;
    ScriptedClientManager clientManager;
    ScriptedCatalogBrowser catalogBrowser;
    ScriptedWaitCursor waitCursor;
    ScriptedHelp help;
    ScriptedMenuHook menuHook;
    ScriptedEventLog eventLog;

    ScriptedUserInterface ui;

private:
    void installHost() {
        ports.host.lisp = &lisp;
        ports.host.documents = &documents;
        ports.host.commands = &commands;
        ports.host.console = &console;
        ports.host.files = &hostFiles;
        ports.host.editor = &editor;
        ports.host.profile = &profile;
        ports.host.mainWindow = &mainWindow;
        ports.host.palettes = &palettes;
    }
    void installOs(Files* files) {
        if (files)
            ports.os.files = files;
        ports.os.identity = &identity;
        ports.os.clock = &clock;
        ports.os.environment = &environment;
        ports.os.uniqueIds = &uniqueIds;
        ports.os.registry = &registry;
        ports.os.messages = &messages;
        ports.os.monitor = &monitor;
        ports.os.network = &network;
    }
    void installServices() {
        ports.services = {&variables, &userFolders, &settings, &projectDatabase, &lockCheck, &taskDialogs,
            &clientManager, &catalogBrowser, &waitCursor, &help, &menuHook, &eventLog};
    }
};

} // namespace ryv::test
