#include "embedded/services/package_lock_check.h"

#include "tests/support/scripted_lisp.h"

#include <gtest/gtest.h>

namespace drafta {
namespace {

TEST(PackageLockCheck, flags_arriveAsTheyAre) {
    ryv::test::ScriptedLisp lisp;
    lisp.answer(u"kqupda_check_and_lock", ryv::HostResultBuffer().addTruth().addString(u"\\a.kqp"));
    PackageLockCheck check(lisp);
    ryv::CStringList locked;
    EXPECT_TRUE(check.LispCheckFileLockStatusAndLock({u"\\a.kqp"}, -1, 65536, locked));
    EXPECT_EQ(locked, ryv::CStringList{u"\\a.kqp"});
    const ryv::HostResultBuffer& call = lisp.chains().at(0);
    EXPECT_EQ(std::get<std::int16_t>(call.at(call.size() - 2).value), -1);
    EXPECT_EQ(std::get<std::int32_t>(call.at(call.size() - 1).value), 65536);
}

} // namespace
} // namespace drafta
