// The program "kqp" in a folder of the test's own.
#pragma once

#include "tests/support/process.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace ryv::test {

class KqpTest : public ::testing::Test {
protected:
    /// Runs kqp with these words; the current folder is the test's, and the environment asks for no colours.
    ProcessResult kqp(std::vector<std::string> words, ProcessSetUp setUp = {}) const {
        words.insert(words.begin(), KQP_PROGRAM);
        if (setUp.folder.empty())
            setUp.folder = folder.native();
        setUp.environment.insert({"NO_COLOR", ""});
        return runProcess(words, setUp);
    }

    TempFolder folder;
};

/// What every failure looks like: nothing printed, exit code 2, and this one line on standard error.
inline void expectFailure(const ProcessResult& result, const std::string& line) {
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.error, line + "\n");
}

/// Exit code 0 and nothing to complain about.
inline void expectDone(const ProcessResult& result) {
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.error, "");
}

/// A project with something of everything.
inline constexpr const char* plantProject =
    "*[1]Pumping station\n*[3]Zürich\n+[1]%SL_DIR%/libs\n+[5]8\n?[0]V\n?[65]  x\n=Cover sheet\n"
    "cover.dwg\n=Motor control\n==Sheet 2\n===North\n===South\n=====SUB=power/motors\n"
    "power/m1.dwg\n=====SUB=POWER/MOTORS\npower/motor-two.dwg\n====REF\n=====SUB=Power\n"
    "..\\other\\ref.dwg\n=====SUB=SPARE[Empty]\n=Last\nlast.dwg\n";

} // namespace ryv::test
