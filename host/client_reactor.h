// Follows the package's client manager, through which an electromechanical link asks for updates.
#pragma once

#include "platform/services/client_manager.h"

namespace ryv {

class RyvOZMClientReactor final : private RyvPdsClientReactor {
public:
    /// The one reactor of the module; it lies in static storage, since the client manager may hold it after
    /// the navigation manager has gone.
    static RyvOZMClientReactor& instance() noexcept;

    RyvOZMClientReactor(const RyvOZMClientReactor&) = delete;
    RyvOZMClientReactor& operator=(const RyvOZMClientReactor&) = delete;

    /// Forgets an update that was asked for, and begins or ends to follow the client manager. Without a
    /// client manager that is all that happens.
    void add();
    void remove();

    /// Set by an update, and kept until add() or remove(): each completion after it asks for the component
    /// update again.
    bool updateRequested() const noexcept { return updateRequested_; }

private:
    RyvOZMClientReactor() noexcept = default;
    ~RyvOZMClientReactor() = default;

    void onUpdate() override { updateRequested_ = true; }
    void onCompletion() override;

    bool updateRequested_ = false;
};

} // namespace ryv
