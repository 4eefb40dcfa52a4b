// The environment variables of this process.
#pragma once

#include "platform/os/environment.h"

namespace drafta {

/// Case counts in names.
class PosixEnvironment final : public ryv::Environment {
public:
    ryv::CString variable(ryv::CStringView name) override;
};

} // namespace drafta
