// The sibling service that knows the package's global variables outside of any document.
#pragma once

#include "base/strings.h"

namespace ryv {

class GlobalVariables {
public:
    virtual ~GlobalVariables() = default;

    /// `text` with every reference to a global variable replaced by its value; unknown references stay.
    virtual CString Gbl_ReplaceGblVars(CStringView text) = 0;
};

/// Knows no variable.
class NullGlobalVariables final : public GlobalVariables {
public:
    CString Gbl_ReplaceGblVars(CStringView text) override { return CString(text); }
};

} // namespace ryv
