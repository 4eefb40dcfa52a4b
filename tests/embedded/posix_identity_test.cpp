#include "base/text.h"
#include "embedded/os/posix_environment.h"
#include "embedded/os/posix_identity.h"
#include "embedded/os/posix_unique_ids.h"

#include <array>
#include <gtest/gtest.h>
#include <pwd.h>
#include <regex>
#include <set>
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

TEST(PosixEnvironment, variable_isTextWhateverItsBytes) {
    ::setenv("RYV_TEST_VARIABLE", "\xC4\x84\xFF", 1);
    drafta::PosixEnvironment environment;
    EXPECT_EQ(environment.variable(u"RYV_TEST_VARIABLE"), u"\x104\xDCFF");
    EXPECT_EQ(environment.variable(u"ryv_test_variable"), u"");
    EXPECT_EQ(environment.variable(CString(u"RYV_TEST_VARIABLE\0x", 19)), u"");
    ::unsetenv("RYV_TEST_VARIABLE");
    EXPECT_EQ(environment.variable(u"RYV_TEST_VARIABLE"), u"");
}

TEST(PosixUniqueIds, guids_haveTheirFormAndDiffer) {
    const std::regex form("\\{[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}\\}");
    std::set<CString> seen;
    for (int i = 0; i < 1000; ++i) {
        const CString guid = drafta::PosixUniqueIds().newGuid();
        EXPECT_TRUE(std::regex_match(toAscii(guid), form)) << toAscii(guid);
        EXPECT_TRUE(seen.insert(guid).second);
    }
}

} // namespace
} // namespace ryv::test
