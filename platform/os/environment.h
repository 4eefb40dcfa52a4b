// The environment variables of this process.
#pragma once

#include "base/strings.h"

namespace ryv {

class Environment {
public:
    virtual ~Environment() = default;

    /// The value of a variable; empty when it is not set. Case counts where it counts for the system.
    virtual CString variable(CStringView name) = 0;
};

/// No variable is set.
class NullEnvironment final : public Environment {
public:
    CString variable(CStringView) override { return {}; }
};

} // namespace ryv
