#include "tests/system/kqp_fixture.h"

#include <filesystem>

namespace ryv::test {
namespace {

class KqpDocumentsTest : public KqpTest {
protected:
    std::string document(const std::string& kind) const {
        const ProcessResult result = kqp({"--generate", kind});
        expectDone(result);
        return result.out;
    }

    /// What bash offers behind these words, sorted; the last word is the one under the cursor.
    std::vector<std::string> completions(const std::vector<std::string>& words) const {
        ProcessSetUp setUp;
        setUp.folder = folder.native();
        setUp.input = document("bash");
        std::vector<std::string> command = {"bash", "-uc",
            "source /dev/stdin; COMP_WORDS=(\"$@\"); COMP_CWORD=$(($# - 1)); _kqp; "
            "[ ${#COMPREPLY[@]} = 0 ] || printf '%s\\n' \"${COMPREPLY[@]}\" | sort",
            "bash"};
        command.insert(command.end(), words.begin(), words.end());
        const ProcessResult result = runProcess(command, setUp);
        EXPECT_EQ(result.error, "");
        std::vector<std::string> offered;
        for (std::size_t start = 0, end = 0; (end = result.out.find('\n', start)) != std::string::npos;
             start = end + 1)
            offered.push_back(result.out.substr(start, end - start));
        return offered;
    }

    using Words = std::vector<std::string>;
};

TEST_F(KqpDocumentsTest, man_page_isTypesetWithoutWarningsAndNamesEverything) {
    if (!hasProgram("groff"))
        GTEST_SKIP() << "needs groff";
    ProcessSetUp setUp;
    setUp.input = document("man");
    setUp.environment = {{"LC_ALL", "C.UTF-8"}};
    const ProcessResult page = runProcess({"groff", "-man", "-Tutf8", "-ww", "-P-cbou"}, setUp);
    EXPECT_EQ(page.exitCode, 0);
    EXPECT_EQ(page.error, "");
    for (const char* const text :
        {"kqp show [--json] [--color=WHEN] FILE", "kqp rewrite [-o OUT] [--absolute] FILE", "kqp equal A B",
            "kqp check FILE", "kqp lock-status FILE", "kqp watch [--json] FILE", "kqp help [COMMAND]",
            "EXIT STATUS", "-o OUT, --output=OUT"})
        EXPECT_NE(page.out.find(text), std::string::npos) << text;
}

TEST_F(KqpDocumentsTest, bash_completion_offersWhatFits) {
    folder.write("plant.kqp", "");
    folder.write("with blank.KQP", "");
    folder.write("other.txt", "");
    std::filesystem::create_directory(folder.native("plans"));
    EXPECT_EQ(completions({"kqp", "s"}), Words{"show"});
    EXPECT_EQ(completions({"kqp", "--v"}), Words{"--version"});
    EXPECT_EQ(completions({"kqp", "show", ""}), (Words{"plans", "plant.kqp", "with blank.KQP"}));
    EXPECT_EQ(completions({"kqp", "equal", "plant.kqp", "plan"}), (Words{"plans", "plant.kqp"}));
    EXPECT_EQ(completions({"kqp", "lock-status", "o"}), Words{"other.txt"});
    EXPECT_EQ(completions({"kqp", "show", "--"}), (Words{"--color=", "--help", "--json"}));
    EXPECT_EQ(completions({"kqp", "show", "--color", "="}), (Words{"always", "auto", "never"}));
    EXPECT_EQ(completions({"kqp", "show", "--color", "=", "n"}), Words{"never"});
    EXPECT_EQ(completions({"kqp", "rewrite", "-o", "w"}), Words{"with blank.KQP"});
    EXPECT_EQ(completions({"kqp", "help", "re"}), Words{"rewrite"});
    EXPECT_EQ(completions({"kqp", "paint", ""}), Words{});
}

TEST_F(KqpDocumentsTest, zsh_completion_namesEveryCommand) {
    const std::string script = document("zsh");
    EXPECT_TRUE(script.starts_with("#compdef kqp\n"));
    for (const char* const command :
        {"show)\n", "rewrite)\n", "equal)\n", "check)\n", "lock-status)\n", "watch)\n", "help)\n"})
        EXPECT_NE(script.find(command), std::string::npos) << command;
}

} // namespace
} // namespace ryv::test
