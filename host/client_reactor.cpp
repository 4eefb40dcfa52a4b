#include "host/client_reactor.h"

#include "bridge/command_strings.h"
#include "bridge/platform.h"

namespace ryv {

RyvOZMClientReactor& RyvOZMClientReactor::instance() noexcept {
    static RyvOZMClientReactor reactor;
    return reactor;
}

void RyvOZMClientReactor::add() {
    updateRequested_ = false;
    if (platform().services.clientManager->isAvailable())
        platform().services.clientManager->addReactor(*this);
}

void RyvOZMClientReactor::remove() {
    updateRequested_ = false;
    if (platform().services.clientManager->isAvailable())
        platform().services.clientManager->removeReactor(*this);
}

void RyvOZMClientReactor::onCompletion() {
    if (updateRequested_ && platform().host.documents->activeDocument() != DocumentId::none)
        queueCommandString(CommandString::updateComponent);
}

} // namespace ryv
