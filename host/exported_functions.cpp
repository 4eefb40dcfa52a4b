#include "host/exported_functions.h"

#include "bridge/command_strings.h"
#include "bridge/platform.h"
#include "host/client_reactor.h"
#include "host/nav_manager.h"
#include "host/reactors.h"

namespace ryv {

void registerBeginQuiescentStateCB(void (*callback)()) {
    RyvPrmNavManager* const manager = GetNavManager();
    if (manager && manager->inputContextReactor())
        manager->inputContextReactor()->setBeginIdle(callback);
}

void registerSaveCompleteCB(void (*callback)(bool)) {
    RyvPrmNavManager* const manager = GetNavManager();
    if (manager && manager->editorReactor())
        manager->editorReactor()->setSaveComplete(callback);
}

void registerOZMCompUpdate() {
    RyvOZMClientReactor::instance().add();
}

void unregisterOZMCompUpdate() {
    RyvOZMClientReactor::instance().remove();
}

bool checkClientQueueStatus() {
    return platform().services.clientManager->isAvailable() &&
           RyvOZMClientReactor::instance().updateRequested();
}

bool checkQuiescentState() {
    return isQuiescent();
}

bool checkZeroDocState() {
    return platform().host.documents->activeDocument() != DocumentId::none;
}

void removeLocationPalette(HostPalette* palette) {
    RyvPrmNavManager* const manager = GetNavManager();
    if (manager && palette)
        manager->removePalette(*palette);
}

} // namespace ryv
