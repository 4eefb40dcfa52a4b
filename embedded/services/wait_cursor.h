// The wait cursor of a host without a pointer.
#pragma once

#include "platform/services/wait_cursor.h"

namespace drafta {

/// Beginning twice and ending once ends it: who is done does not know who else has begun.
class WaitCursor final : public ryv::WaitCursor {
public:
    bool isShown() const noexcept { return isShown_; }

    bool RyvBeginWaitCursor() override { return isShown_ = true; }
    void RyvEndWaitCursor() override { isShown_ = false; }

private:
    bool isShown_ = false;
};

} // namespace drafta
