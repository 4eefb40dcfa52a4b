// Who runs this process, from the system's account data.
#pragma once

#include "platform/os/identity.h"

#include <optional>
#include <string>
#include <string_view>

namespace drafta {

/// Asks for the account once, since a directory on the network may answer slowly, and again when the
/// effective user is another one or had no account.
class PosixIdentity final : public ryv::Identity {
public:
    ryv::CString userName() override;
    ryv::CString fullUserName() override;
    ryv::CString computerName() override;

private:
    struct Account {
        std::string login;
        std::string comment;
    };

    const Account& account();
    static Account accountOf(unsigned user);

    std::optional<unsigned> user_; // whose account it is
    Account account_;
};

/// The full name in the comment field of an account: what comes before the first comma, with "&" standing for
/// the login name with a capital.
ryv::CString fullNameFromComment(std::string_view comment, ryv::CStringView login);

} // namespace drafta
