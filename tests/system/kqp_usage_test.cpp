#include "tests/system/kqp_fixture.h"

#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace ryv::test {
namespace {

class KqpUsageTest : public KqpTest {
protected:
    /// Usage errors have a second line that says where help is.
    static void expectUsageError(const ProcessResult& result, const std::string& line) {
        expectFailure(result, line + "\ntry 'kqp --help'");
    }
};

TEST_F(KqpUsageTest, words_thatDoNotFit_areRefusedWithAHint) {
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
        {{}, "kqp: no command given"}, {{"paint"}, "kqp: there is no command 'paint'"},
        {{"--paint"}, "kqp: there is no option '--paint' in front of a command"},
        {{"--version", "now"}, "kqp: too many words behind '--version': 'now'"},
        {{"show"}, "kqp: 'show' needs FILE"}, {{"show", ""}, "kqp: a file name is empty"},
        {{"show", "a", "b"}, "kqp: too many words behind 'show': 'b'"},
        {{"show", "--jason", "a"}, "kqp: 'show' has no option '--jason'"},
        {{"show", "-j", "a"}, "kqp: 'show' has no option '-j'"},
        {{"show", "--json=1", "a"}, "kqp: option '--json' takes no value"},
        {{"show", "--color=blue", "a"}, "kqp: option '--color' has no value 'blue'"},
        {{"show", "a", "--color"}, "kqp: option '--color' needs a value"},
        {{"rewrite", "a", "-o"}, "kqp: option '-o' needs a value"},
        {{"rewrite", "a", "-o", ""}, "kqp: option '-o' needs a value"},
        {{"rewrite", "a", "--output="}, "kqp: option '--output' needs a value"},
        {{"equal", "a"}, "kqp: 'equal' needs B"},
        {{"equal", "--json", "a", "b"}, "kqp: 'equal' has no option '--json'"},
        {{"help", "paint"}, "kqp: there is no command 'paint'"},
        {{"--generate", "pdf"}, "kqp: '--generate' needs one of man, bash, zsh"},
        {{"new\nline\x1B"}, "kqp: there is no command 'new\\nline\\x1B'"}};
    for (const auto& [words, line] : cases) {
        SCOPED_TRACE(line);
        expectUsageError(kqp(words), line);
    }
}

TEST_F(KqpUsageTest, options_standAnywhereUntilDoubleDash) {
    folder.write("--json", "a.dwg\n");
    expectFailure(kqp({"show", "--json"}), "kqp: 'show' needs FILE\ntry 'kqp --help'");
    const ProcessResult text = kqp({"show", "--", "--json"});
    expectDone(text);
    EXPECT_EQ(text.out.substr(0, 8), "--JSON  ");
    const ProcessResult json = kqp({"show", "./--json", "--json"});
    expectDone(json);
    EXPECT_EQ(json.out.substr(0, 2), "{\n");
}

TEST_F(KqpUsageTest, files_thatCannotBeRead_failWithOneLine) {
    std::filesystem::create_directory(folder.native("folder.kqp"));
    ASSERT_EQ(::mkfifo(folder.native("pipe.kqp").c_str(), 0600), 0);
    for (const std::string command : {"show", "check", "rewrite", "watch"}) {
        SCOPED_TRACE(command);
        expectFailure(kqp({command, "none.kqp"}), "kqp: none.kqp: no such file or folder");
        expectFailure(kqp({command, "folder.kqp"}), "kqp: folder.kqp: is a folder");
        expectFailure(kqp({command, "none/a.kqp"}), "kqp: none/a.kqp: no such file or folder");
        expectFailure(kqp({command, "pipe.kqp"}), "kqp: pipe.kqp: is not a regular file");
        expectFailure(kqp({command, "no\nname"}), "kqp: no\\nname: no such file or folder");
    }
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"folder.kqp", "pipe.kqp"}));
}

TEST_F(KqpUsageTest, file_thatMayNotBeRead_failsWithOneLine) {
    folder.write("secret.kqp", "a.dwg\n");
    ASSERT_EQ(::chmod(folder.native("secret.kqp").c_str(), 0), 0);
    ASSERT_EQ(::chmod(folder.native().c_str(), 0755), 0);
    ProcessSetUp setUp;
    setUp.inChild = becomeNobody;
    for (const std::string command : {"show", "check", "watch"})
        expectFailure(kqp({command, "secret.kqp"}, setUp), "kqp: secret.kqp: permission denied");
    expectFailure(kqp({"equal", "secret.kqp", "secret.kqp"}, setUp), "kqp: secret.kqp: permission denied");
}

TEST_F(KqpUsageTest, help_ofProgram_listsCommandsAndOptions) {
    const ProcessResult result = kqp({"--help"});
    expectDone(result);
    for (const char* const word : {"show ", "rewrite ", "equal ", "check ", "lock-status ", "watch ", "help ",
             "-h, --help", "--version"})
        EXPECT_NE(result.out.find(std::string("\n  ") + word), std::string::npos) << word;
    EXPECT_EQ(kqp({"-h"}).out, result.out);
    EXPECT_EQ(kqp({"help"}).out, result.out);
}

TEST_F(KqpUsageTest, help_ofCommand_isTheSameInBothForms) {
    for (const std::string command : {"show", "rewrite", "equal", "check", "lock-status", "watch", "help"}) {
        const ProcessResult result = kqp({command, "--help"});
        expectDone(result);
        EXPECT_EQ(result.out.substr(0, 11 + command.size()), "Usage: kqp " + command);
        EXPECT_EQ(kqp({"help", command}).out, result.out);
        EXPECT_EQ(kqp({command, "too", "many", "words", "-h"}).out, result.out);
    }
}

TEST_F(KqpUsageTest, version_isNameAndNumber) {
    const ProcessResult result = kqp({"--version"});
    expectDone(result);
    EXPECT_EQ(result.out, "kqp " KQP_EXPECTED_VERSION "\n");
}

} // namespace
} // namespace ryv::test
