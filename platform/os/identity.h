// Who runs this process, and where.
#pragma once

#include "base/strings.h"

namespace ryv {

class Identity {
public:
    virtual ~Identity() = default;

    /// The login name of the effective user; empty when the system does not know it.
    virtual CString userName() = 0;

    /// The user's full name from the account data; empty when none is recorded.
    virtual CString fullUserName() = 0;

    /// The name of this computer, without a domain; empty when the system does not know it.
    virtual CString computerName() = 0;
};

/// A nameless user on a nameless computer.
class NullIdentity final : public Identity {
public:
    CString userName() override { return {}; }
    CString fullUserName() override { return {}; }
    CString computerName() override { return {}; }
};

} // namespace ryv
