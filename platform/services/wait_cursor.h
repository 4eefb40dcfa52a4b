// The package's wait cursor.
#pragma once

namespace ryv {

class WaitCursor {
public:
    virtual ~WaitCursor() = default;

    /// Shows the wait cursor; false when it cannot be shown.
    virtual bool RyvBeginWaitCursor() = 0;

    /// Brings the usual cursor back; nothing happens when the wait cursor is not shown.
    virtual void RyvEndWaitCursor() = 0;
};

/// There is no cursor.
class NullWaitCursor final : public WaitCursor {
public:
    bool RyvBeginWaitCursor() override { return false; }
    void RyvEndWaitCursor() override {}
};

} // namespace ryv
