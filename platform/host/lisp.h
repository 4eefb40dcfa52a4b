// The host's LISP interpreter as the module calls it.
#pragma once

#include "platform/host/result_buffer.h"

namespace ryv {

class HostLisp {
public:
    virtual ~HostLisp() = default;

    /// Calls a LISP function: `call` begins with a string node that names it, followed by the arguments.
    /// `result` is filled on success and left alone otherwise.
    virtual LispStatus invoke(const HostResultBuffer& call, HostResultBuffer& result) = 0;
};

/// An interpreter that knows no function.
class NullHostLisp final : public HostLisp {
public:
    LispStatus invoke(const HostResultBuffer&, HostResultBuffer&) override { return LispStatus::failure; }
};

} // namespace ryv
