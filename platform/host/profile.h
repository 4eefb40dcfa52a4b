// The host's current profile: where it keeps the user's settings, and the folders that it is set up with.
#pragma once

#include "base/strings.h"

namespace ryv {

class HostProfile {
public:
    virtual ~HostProfile() = default;

    /// The key of the current profile in the current user's registry hive, without a "\" at its end; empty
    /// when it cannot be told.
    virtual CString profileKey() = 0;

    /// The key of the product, for what holds in all profiles; in the same form.
    virtual CString productKey() = 0;

    /// The folder of drawing templates ("TemplatePath"); empty when none is set.
    virtual CString templateFolder() = 0;

    /// The folders of the support path in their order; empty when none is set.
    virtual CStringArray supportFolders() = 0;
};

/// A profile without keys and folders.
class NullHostProfile : public HostProfile {
public:
    CString profileKey() override { return {}; }
    CString productKey() override { return {}; }
    CString templateFolder() override { return {}; }
    CStringArray supportFolders() override { return {}; }
};

} // namespace ryv
