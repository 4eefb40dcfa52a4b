#include "tests/system/kqp_lock_fixture.h"
#include "tests/system/python_json.h"

#include <filesystem>
#include <sys/stat.h>

namespace ryv::test {
namespace {

class KqpLockStatusTest : public KqpLockTest {
protected:
    void SetUp() override { folder.write("plan.dwg", "drawing"); }

    /// The answer for a file that nobody holds.
    static std::string unheld(const std::string& numberAndName) {
        return "{\"number\": " + numberAndName.substr(0, 1) + ", \"name\": \"" + numberAndName.substr(2) +
               "\", \"holder\": \"\", \"machine\": \"\", \"time\": \"\"}\n";
    }
    void expectAnswer(
        const std::string& file, const std::string& answer, int code, const ProcessSetUp& setUp = {}) const {
        const ProcessResult result = kqp({"lock-status", file}, setUp);
        EXPECT_EQ(result.out, answer);
        EXPECT_EQ(result.error, "");
        EXPECT_EQ(result.exitCode, code);
    }
};

TEST_F(KqpLockStatusTest, status_fileWithoutHolder_saysWhetherItCanBeWorkedOn) {
    folder.write("fixed.kqp", "");
    ASSERT_EQ(::chmod(folder.native("fixed.kqp").c_str(), 0444), 0);
    expectAnswer("plan.dwg", unheld("1 lockNone"), 0);
    expectAnswer("fixed.kqp", unheld("5 lockReadOnly"), 1);
    expectAnswer("gone.kqp", unheld("6 lockMissing"), 1);
    expectAnswer("/a", unheld("0 lockInvalid"), 1);
    ASSERT_EQ(::chmod(folder.native().c_str(), 0555), 0);
    ASSERT_EQ(::chmod(folder.native("plan.dwg").c_str(), 0666), 0);
    ProcessSetUp setUp;
    setUp.inChild = becomeNobody;
    expectAnswer("plan.dwg", unheld("7 lockFolderReadOnly"), 1, setUp);
    ASSERT_EQ(::chmod(folder.native().c_str(), 0755), 0);
}

TEST_F(KqpLockStatusTest, status_lockedFile_namesTheHolder) {
    if (!hasProgram("python3"))
        GTEST_SKIP() << "needs python3";
    folder.write("mine.kqp", "");
    folder.write("odd.kqp", "");
    ASSERT_TRUE(lock("mine.kqp"));
    const ProcessResult mine = kqp({"lock-status", "mine.kqp"});
    EXPECT_EQ(mine.exitCode, 0);
    expectJson(mine.out, "same((d['number'], d['name']), (2, 'lockMine'))\n"
                         "assert d['holder'].endswith('(' + d['machine'] + ')'), d\n"
                         "assert d['machine'] and d['time'], d\n");
    ASSERT_TRUE(lock("odd.kqp", nullptr, "no record"));
    expectAnswer("odd.kqp", unheld("4 lockUnreadable"), 1);
    Eve eve;
    ASSERT_TRUE(lock("plan.dwg", &eve));
    const ProcessResult hers = kqp({"lock-status", "plan.dwg"});
    EXPECT_EQ(hers.exitCode, 1);
    expectJson(hers.out, "same((d['number'], d['name']), (3, 'lockOther'))\n"
                         "same((d['holder'], d['machine']), ('eve(BOX)', 'BOX'))\n"
                         "assert d['time'], d\n");
}

TEST_F(KqpLockStatusTest, status_holderWasKilled_fileIsFreeAndItsLockFileGone) {
    Eve eve;
    StayingChild holder([&] { return lock("plan.dwg", &eve); });
    ASSERT_TRUE(holder.stays());
    EXPECT_EQ(kqp({"lock-status", "plan.dwg"}).exitCode, 1);
    holder.kill();
    ASSERT_EQ(folder.names(), (std::vector<std::string>{"plan.dwg", "plan.dwg.FLL"}));
    expectAnswer("plan.dwg", unheld("1 lockNone"), 0);
    EXPECT_EQ(folder.names(), std::vector<std::string>{"plan.dwg"});
}

} // namespace
} // namespace ryv::test
