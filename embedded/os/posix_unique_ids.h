// Identifiers made of the system's random numbers.
#pragma once

#include "platform/os/unique_ids.h"

namespace drafta {

/// GUIDs of version 4.
class PosixUniqueIds final : public ryv::UniqueIds {
public:
    ryv::CString newGuid() override;
};

} // namespace drafta
