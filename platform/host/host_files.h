// The host's search path.
#pragma once

#include "base/strings.h"

namespace ryv {

class HostFiles {
public:
    virtual ~HostFiles() = default;

    /// Looks for a file: as given when the name has a folder, otherwise in the current document's folder and
    /// then along the host's search path. The full path of the first one found; empty when there is none, or
    /// when it has 260 units or more.
    virtual CString findFile(CStringView name) = 0;
};

/// Finds nothing.
class NullHostFiles final : public HostFiles {
public:
    CString findFile(CStringView) override { return {}; }
};

} // namespace ryv
