// Identifiers that nobody else has.
#pragma once

#include "base/strings.h"

namespace ryv {

class UniqueIds {
public:
    virtual ~UniqueIds() = default;

    /// A new GUID in its registry form, 38 units: "{01234567-89AB-4DEF-8123-456789ABCDEF}". Empty when the
    /// system cannot make one.
    virtual CString newGuid() = 0;
};

/// Cannot make any.
class NullUniqueIds final : public UniqueIds {
public:
    CString newGuid() override { return {}; }
};

} // namespace ryv
