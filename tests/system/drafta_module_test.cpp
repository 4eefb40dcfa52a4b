// The module in the program that loads it: the stories of module/, shell scripts that run the programs on a
// copy of the sample project. Beside a script stand what all of it prints, and the answers to what the
// programs ask. A script that cannot do its work on this computer ends with the code 77.
#include "tests/support/process.h"
#include "tests/support/story.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

namespace ryv::test {
namespace {

namespace fs = std::filesystem;

const fs::path stories = fs::path(RYV_TEST_DATA) / "module";

/// The text without the path of this run's folder, which may be native, as the module writes it, or as LISP
/// prints that.
std::string withoutFolder(std::string text, const std::string& folder) {
    for (const char* const separator : {"/", "\\", "\\\\"})
        text = replaced(text, replaced(folder, "/", separator), "<folder>");
    return text;
}

class DraftaModuleTest : public ::testing::TestWithParam<std::string> {
protected:
    DraftaModuleTest() {
        fs::copy(DRAFTA_SAMPLE, folder.native("pump-station"), fs::copy_options::recursive);
        const std::string answers = contentOf(stories / (GetParam() + ".answers"));
        folder.write("answers", replaced(answers, "<folder>", folder.native()));
    }

    ProcessResult run() const {
        const fs::path programs = fs::path(DRAFTA_PROGRAM).parent_path();
        ProcessSetUp setUp;
        setUp.folder = folder.native();
        setUp.environment = {{"HERE", stories.string()}, {"LIBRARIES", libraries},
            {"PATH", programs.string() + ":/usr/bin:/bin"}, {"LC_ALL", "C"}};
        return runProcess({"/bin/sh", "-u", (stories / (GetParam() + ".sh")).string()}, setUp);
    }

    std::string shown(const ProcessResult& result) const {
        const std::string error = result.error.empty() ? "" : "--- errors\n" + result.error;
        return replaced(withoutFolder(result.out + error, folder.native()), libraries, "<libraries>");
    }

    TempFolder folder;
    const std::string libraries = fs::path(DRAFTA_MODULE).parent_path().string();
};

TEST_P(DraftaModuleTest, story_printsWhatIsExpected) {
    const ProcessResult result = run();
    if (result.exitCode == 77)
        GTEST_SKIP() << shown(result);
    EXPECT_EQ(result.signal, 0);
    EXPECT_EQ(shown(result), contentOf(stories / (GetParam() + ".txt")));
}

std::vector<std::string> names() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(stories))
        if (entry.path().extension() == ".sh")
            names.push_back(entry.path().stem().string());
    std::sort(names.begin(), names.end());
    return names;
}

INSTANTIATE_TEST_SUITE_P(
    Stories, DraftaModuleTest, ::testing::ValuesIn(names()), [](const auto& story) { return story.param; });

TEST(FirstSessionTest, consoles_printWhatTheReadmeSays) {
    const ProcessResult result =
        runProcess({"/usr/bin/python3", std::string(RYV_TEST_DATA) + "/check_first_session.py", DRAFTA_README,
            DRAFTA_PROGRAM, DRAFTA_SAMPLE});
    EXPECT_EQ(result.exitCode, 0) << result.out << result.error;
}

} // namespace
} // namespace ryv::test
