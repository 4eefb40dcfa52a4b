#include "embedded/modules/module_seat.h"

namespace drafta {

ModuleSeat::ModuleSeat(const ryv::Platform& platform, SeatHost& host)
    : lisp_(*platform.host.lisp, host), commands_(*platform.host.commands, host),
      documents_(*platform.host.documents), editor_(*platform.host.editor),
      mainWindow_(*platform.host.mainWindow), messages_(*platform.os.messages),
      monitor_(*platform.os.monitor), clientManager_(*platform.services.clientManager),
      projectDatabase_(*platform.services.projectDatabase) {
    platform_.host = platform.host;
    platform_.os = platform.os;
    platform_.services = platform.services;
    platform_.ui = platform.ui;
    platform_.host.lisp = &lisp_;
    platform_.host.commands = &commands_;
    platform_.host.documents = &documents_;
    platform_.host.editor = &editor_;
    platform_.host.mainWindow = &mainWindow_;
    platform_.os.messages = &messages_;
    platform_.os.monitor = &monitor_;
    platform_.services.clientManager = &clientManager_;
    platform_.services.projectDatabase = &projectDatabase_;
    context_.platform = &platform_;
}

/// First what can call the module, last the functions, whose end is its code too.
void ModuleSeat::drop() {
    editor_.drop();
    mainWindow_.drop();
    clientManager_.drop();
    projectDatabase_.drop();
    monitor_.drop();
    commands_.drop();
    lisp_.drop();
    messages_.drop();
    documents_.drop();
}

} // namespace drafta
