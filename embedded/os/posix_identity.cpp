#include "embedded/os/posix_identity.h"
#include "base/encoding.h"
#include "base/fold.h"
#include "base/text.h"

#include <array>
#include <cerrno>
#include <pwd.h>
#include <string>
#include <unistd.h>
#include <vector>

namespace drafta {

using ryv::CString;
using ryv::CStringView;

namespace {

constexpr std::size_t firstSize = 1024;
constexpr std::size_t lastSize = std::size_t{1} << 20;

} // namespace

CString fullNameFromComment(std::string_view comment, CStringView login) {
    const CString name = ryv::nameFromBytes(comment.substr(0, comment.find(',')));
    CString capital(login);
    if (!capital.empty())
        capital[0] = ryv::toUpper(capital[0]);
    return CString(ryv::trim(ryv::replaceAll(name, u"&", capital)));
}

/// Empty when there is none.
PosixIdentity::Account PosixIdentity::accountOf(unsigned user) {
    for (std::vector<char> buffer(firstSize); buffer.size() <= lastSize; buffer.resize(2 * buffer.size())) {
        passwd entry{};
        passwd* found = nullptr;
        const int error = ::getpwuid_r(user, &entry, buffer.data(), buffer.size(), &found);
        if (found)
            return {found->pw_name ? found->pw_name : "", found->pw_gecos ? found->pw_gecos : ""};
        if (error != ERANGE && error != EINTR)
            break;
    }
    return {};
}

const PosixIdentity::Account& PosixIdentity::account() {
    const unsigned user = ::geteuid();
    if (user_ == user)
        return account_;
    account_ = accountOf(user);
    user_ = account_.login.empty() ? std::nullopt : std::optional(user);
    return account_;
}

CString PosixIdentity::userName() {
    return ryv::nameFromBytes(account().login);
}

CString PosixIdentity::fullUserName() {
    const Account& user = account();
    return fullNameFromComment(user.comment, ryv::nameFromBytes(user.login));
}

CString PosixIdentity::computerName() {
    std::array<char, 256> name{}; // one more than the longest, so that it ends in a NUL
    if (::gethostname(name.data(), name.size() - 1) == -1)
        return {};
    const std::string_view full(name.data());
    return ryv::nameFromBytes(full.substr(0, full.find('.')));
}

} // namespace drafta
