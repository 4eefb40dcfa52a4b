// The wait cursor on the screen.
#pragma once

#include "platform/services/wait_cursor.h"

namespace drafta {

/// Shows what another wait cursor, which outlives it, keeps count of. While a question stands the usual
/// cursor is back, whatever begins and ends meanwhile.
class QtWaitCursor final : public ryv::WaitCursor {
public:
    explicit QtWaitCursor(ryv::WaitCursor& state) : state_(state) {}
    ~QtWaitCursor() override { show(false); }

    bool RyvBeginWaitCursor() override;
    void RyvEndWaitCursor() override;

    /// In pairs that nest.
    void questionStands(bool stands);

private:
    void update() { show(wanted_ && questions_ == 0); }
    void show(bool shown);

    ryv::WaitCursor& state_;
    bool wanted_ = false;
    bool shown_ = false;
    int questions_ = 0;
};

} // namespace drafta
