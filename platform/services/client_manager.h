// The package's client manager, through which an electromechanical link announces its updates.
#pragma once

namespace ryv {

/// Hears of updates, on the main thread.
class RyvPdsClientReactor {
public:
    /// An update has been asked for.
    virtual void onUpdate() = 0;
    /// What was under way is completed.
    virtual void onCompletion() = 0;

protected:
    ~RyvPdsClientReactor() = default;
};

class RyvPdsClientManager {
public:
    virtual ~RyvPdsClientManager() = default;

    /// Whether there is a client manager in this run; without one, reactors are neither added nor removed.
    virtual bool isAvailable() = 0;

    /// Reactors are not owned and take themselves off before they end. Adding one twice counts once.
    virtual void addReactor(RyvPdsClientReactor& reactor) = 0;
    virtual void removeReactor(RyvPdsClientReactor& reactor) = 0;
};

/// There is no client manager.
class NullClientManager final : public RyvPdsClientManager {
public:
    bool isAvailable() override { return false; }
    void addReactor(RyvPdsClientReactor&) override {}
    void removeReactor(RyvPdsClientReactor&) override {}
};

} // namespace ryv
