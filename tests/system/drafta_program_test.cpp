// drafta as a process: its command line, its console on a pipe, its exit codes.
#include "tests/support/process.h"
#include "tests/support/temp_folder.h"

#include <csignal>
#include <gtest/gtest.h>
#include <unistd.h>

namespace ryv::test {
namespace {

class DraftaProgramTest : public ::testing::Test {
protected:
    TempFolder folder;

    ProcessResult run(std::vector<std::string> words, const std::string& input = {}) {
        words.insert(words.begin(), DRAFTA_PROGRAM);
        ProcessSetUp setUp;
        setUp.folder = folder.native();
        setUp.input = input;
        setUp.environment = {{"XDG_CONFIG_HOME", folder.native("settings")}, {"HOME", ""}};
        setUp.inChild = inChild;
        return runProcess(words, setUp);
    }
    std::function<bool()> inChild;
};

TEST_F(DraftaProgramTest, faultsOfTheCommandLine_endWith2AndOneLineThatNamesThem) {
    folder.write("bad.answers", "message 1: yes\nnothing\n");
    folder.write("binary.dwg", std::string("AC1032\0\0", 8));
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
        {{"--screenshot", "x.png", "--console"}, "exclude each other"},
        {{"--console", "--batch", "x"}, "exclude each other"},
        {{"--batch"}, "--batch"},
        {{"--batch", "none.lsp"}, "none.lsp: "},
        {{"--sideways"}, "--sideways"},
        {{"--drive", "CC=/", "--console"}, "CC=/"},
        {{"--screen", "wide", "--console"}, "wide"},
        {{"--console", "--answers", "none"}, "none: "},
        {{"--console", "--answers", "bad.answers"}, "bad.answers: line 2: "},
    };
    for (const auto& [words, wanted] : cases) {
        const ProcessResult result = run(words);
        EXPECT_EQ(result.exitCode, 2) << wanted;
        EXPECT_NE(result.error.find(wanted), std::string::npos) << result.error;
        EXPECT_EQ(std::count(result.error.begin(), result.error.end(), '\n'), 1) << result.error;
    }
    folder.write("good.lsp", "(princ 1)");
    const ProcessResult binary = run({"--batch", "good.lsp", "binary.dwg"});
    EXPECT_EQ(binary.exitCode, 2);
    EXPECT_NE(binary.out.find(folder.native("binary.dwg") + ":"), std::string::npos) << binary.out;
}

TEST_F(DraftaProgramTest, settingsFolder_mustBeKnown) {
    folder.write("good.lsp", "(princ 1)");
    inChild = [] { return ::unsetenv("XDG_CONFIG_HOME") == 0; };
    EXPECT_EQ(run({"--batch", "good.lsp"}).exitCode, 2);
    EXPECT_EQ(run({"--batch", "good.lsp", "--profile", "p"}).exitCode, 0);
    EXPECT_TRUE(std::filesystem::is_directory(folder.native("p")));
}

TEST_F(DraftaProgramTest, batch_printsWhatLispPrintsAndTellsOfErrors) {
    folder.write("a.lsp", "(princ \"one\\n\")\n(princ \"Łódź\")");
    ProcessResult result = run({"--batch", "a.lsp"});
    EXPECT_EQ(result.out, "one\nŁódź\n");
    EXPECT_EQ(result.exitCode, 0);
    folder.write("b.lsp", "(defun f (x)\n  (+ x \"1\"))\n(f 1)\n(princ \"not reached\")");
    result = run({"--batch", "b.lsp"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.out.find(folder.native("b.lsp") + ":2: "), std::string::npos) << result.out;
    EXPECT_EQ(result.out.find("not reached"), std::string::npos);
    result = run({"--batch", "a.lsp", "--log-events"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.error, "") << "nothing has happened to a project";
    folder.write("c.lsp", "(princ (file-exists \"Q:\\\\a.lsp\"))(send-string \"(princ 'later)\\n\")");
    EXPECT_EQ(run({"--batch", "c.lsp", "--drive", "q=" + folder.native()}).out, "TLATER\n");
}

TEST_F(DraftaProgramTest, unsavedChanges_areToldAtTheEnd) {
    folder.write("a.lsp", "(dwg-insert (dwg-current) \"KQ_M\" (findfile \"KQ_M.dwg\") '(0 0) 1 0)");
    const ProcessResult result = run({"--batch", "a.lsp"});
    EXPECT_EQ(result.error, "Drawing1.dwg: the changes were not saved\n");
}

TEST_F(DraftaProgramTest, console_readsAPipeToItsEnd) {
    const ProcessResult result = run({"--console"}, "(setq a\n  20)\n(* a 2.1)\n(princ \"no end\")");
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out, "20\n42.0\nno end\n\"no end\"\n");
}

TEST_F(DraftaProgramTest, interrupt_endsAnEndlessLoop) {
    folder.write("a.lsp", "(princ \"begun\") (while t) (princ \"not reached\")");
    inChild = [] {
        const pid_t child = ::getpid();
        if (::fork() == 0) {
            ::sleep(1); // long enough for the loop to have begun; too early and the program would just end
            ::kill(child, SIGINT);
            ::_exit(0);
        }
        return true;
    };
    const ProcessResult result = run({"--batch", "a.lsp"});
    EXPECT_EQ(result.signal, 0);
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.out.find("not reached"), std::string::npos);
    EXPECT_EQ(result.out.find("begun"), 0u);
}

} // namespace
} // namespace ryv::test
