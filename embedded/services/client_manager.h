// The package's client manager. There is no other tool that the host is linked to: the user announces its
// updates.
#pragma once

#include "platform/services/client_manager.h"

#include <vector>

namespace drafta {

class ClientManager final : public ryv::RyvPdsClientManager {
public:
    /// Tells the reactors, newest first, each only while it is still there.
    void announceUpdate();
    void announceCompletion();

    bool isAvailable() override { return true; }
    void addReactor(ryv::RyvPdsClientReactor& reactor) override;
    void removeReactor(ryv::RyvPdsClientReactor& reactor) override { std::erase(reactors_, &reactor); }

private:
    void tell(void (ryv::RyvPdsClientReactor::*notice)());

    std::vector<ryv::RyvPdsClientReactor*> reactors_;
};

} // namespace drafta
