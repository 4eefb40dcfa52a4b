#include "base/text.h"
#include "embedded/os/posix_identity.h"

#include <array>
#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

namespace ryv::test {
namespace {

TEST(PosixIdentity, userName_isTheEffectiveUsers) {
    const passwd* const user = ::getpwuid(::geteuid());
    EXPECT_EQ(drafta::PosixIdentity().userName(), user ? fromAscii(user->pw_name) : CString());
}

TEST(PosixIdentity, computerName_hasNoDomain) {
    std::array<char, 256> name{};
    ASSERT_EQ(::gethostname(name.data(), name.size() - 1), 0);
    const CString computer = drafta::PosixIdentity().computerName();
    EXPECT_EQ(computer.find(u'.'), CString::npos);
    EXPECT_FALSE(computer.empty());
    EXPECT_TRUE(fromAscii(name.data()).starts_with(computer));
}

TEST(PosixIdentity, fullName_isTheFirstFieldOfTheComment) {
    EXPECT_EQ(drafta::fullNameFromComment("Änne Muster,Room 5,,", u"anne"), u"Änne Muster");
    EXPECT_EQ(drafta::fullNameFromComment("& Muster", u"änne"), u"Änne Muster");
    EXPECT_EQ(drafta::fullNameFromComment(",,,", u"anne"), u"");
    EXPECT_EQ(drafta::fullNameFromComment("", u"anne"), u"");
    EXPECT_EQ(drafta::fullNameFromComment("&", u""), u"");
}

} // namespace
} // namespace ryv::test
