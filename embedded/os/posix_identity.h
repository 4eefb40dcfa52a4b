// Who runs this process, from the system's account data.
#pragma once

#include "platform/os/identity.h"

#include <string_view>

namespace drafta {

class PosixIdentity final : public ryv::Identity {
public:
    ryv::CString userName() override;
    ryv::CString fullUserName() override;
    ryv::CString computerName() override;
};

/// The full name in the comment field of an account: what comes before the first comma, with "&" standing for
/// the login name with a capital.
ryv::CString fullNameFromComment(std::string_view comment, ryv::CStringView login);

} // namespace drafta
