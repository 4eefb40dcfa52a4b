// The wait cursor around work that may take a while.
#pragma once

#include "bridge/platform.h"

namespace ryv {

/// Shown for as long as it lives; the host takes it away while a question stands. Not nested: the inner one
/// would end the outer one's.
class Waiting {
public:
    Waiting() { platform().services.waitCursor->RyvBeginWaitCursor(); }
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;
    ~Waiting() { platform().services.waitCursor->RyvEndWaitCursor(); }
};

} // namespace ryv
