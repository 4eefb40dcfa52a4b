#include "tests/system/kqp_fixture.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ryv::test {
namespace {

class KqpOutputTest : public KqpTest {
protected:
    void SetUp() override { folder.write("plant.kqp", std::string(plantProject) + "=nobody\n"); }

    /// Every way to make kqp print something.
    static std::vector<std::vector<std::string>> printing() {
        return {{"show", "plant.kqp"}, {"show", "--json", "plant.kqp"}, {"check", "plant.kqp"},
            {"lock-status", "plant.kqp"}, {"watch", "plant.kqp"}, {"watch", "--json", "plant.kqp"},
            {"--help"}, {"--version"}, {"help", "show"}, {"equal", "--help"}, {"--generate", "man"}};
    }

    void expectAll(const ProcessSetUp& setUp, const std::string& line) const {
        for (const std::vector<std::string>& words : printing()) {
            SCOPED_TRACE(words.front());
            expectFailure(kqp(words, setUp), line);
        }
    }
};

TEST_F(KqpOutputTest, output_fullDisk_isAFailure) {
    if (::access("/dev/full", W_OK) != 0)
        GTEST_SKIP() << "needs /dev/full";
    ProcessSetUp setUp;
    setUp.inChild = [] { return ::dup2(::open("/dev/full", O_WRONLY), STDOUT_FILENO) == STDOUT_FILENO; };
    expectAll(setUp, "kqp: standard output: No space left on device");
}

TEST_F(KqpOutputTest, output_pipeWithoutReader_isAFailureAndNoCrash) {
    ProcessSetUp setUp;
    setUp.inChild = [] {
        int ends[2];
        return ::pipe(ends) == 0 && ::dup2(ends[1], STDOUT_FILENO) == STDOUT_FILENO &&
               ::close(ends[0]) == 0 && ::close(ends[1]) == 0;
    };
    expectAll(setUp, "kqp: standard output: Broken pipe");
}

TEST_F(KqpOutputTest, output_closed_isAFailure) {
    ProcessSetUp setUp;
    setUp.inChild = [] { return ::close(STDOUT_FILENO) == 0; };
    expectAll(setUp, "kqp: standard output: Bad file descriptor");
}

TEST_F(KqpOutputTest, output_closed_descriptorIsTakenBeforeAnyFileIsOpened) {
    ProcessSetUp setUp;
    setUp.inChild = [] { return ::close(STDOUT_FILENO) == 0; };
    expectFailure(kqp({"show", "/dev/fd/1"}, setUp), "kqp: /dev/fd/1: is not a regular file");
}

TEST_F(KqpOutputTest, rewrite_allStandardDescriptorsClosed_putsNothingElseIntoTheFile) {
    expectDone(kqp({"rewrite", "plant.kqp", "-o", "expected.kqp"}));
    ProcessSetUp setUp;
    setUp.inChild = [] {
        return ::close(STDIN_FILENO) == 0 && ::close(STDOUT_FILENO) == 0 && ::close(STDERR_FILENO) == 0;
    };
    EXPECT_EQ(kqp({"rewrite", "plant.kqp"}, setUp).exitCode, 0);
    EXPECT_EQ(folder.read("plant.kqp"), folder.read("expected.kqp"));
    EXPECT_EQ(kqp({"show", "plant.kqp"}, setUp).exitCode, 2);
    EXPECT_EQ(folder.read("plant.kqp"), folder.read("expected.kqp"));
}

} // namespace
} // namespace ryv::test
