#include "embedded/services/client_manager.h"

#include <algorithm>

namespace drafta {

void ClientManager::tell(void (ryv::RyvPdsClientReactor::*notice)()) {
    const std::vector<ryv::RyvPdsClientReactor*> told = reactors_;
    for (auto reactor = told.rbegin(); reactor != told.rend(); ++reactor)
        if (std::find(reactors_.begin(), reactors_.end(), *reactor) != reactors_.end())
            ((*reactor)->*notice)();
}

void ClientManager::announceUpdate() {
    tell(&ryv::RyvPdsClientReactor::onUpdate);
}

void ClientManager::announceCompletion() {
    tell(&ryv::RyvPdsClientReactor::onCompletion);
}

void ClientManager::addReactor(ryv::RyvPdsClientReactor& reactor) {
    if (std::find(reactors_.begin(), reactors_.end(), &reactor) == reactors_.end())
        reactors_.push_back(&reactor);
}

} // namespace drafta
