// drafta's console in front of a terminal: editing, history, and what happens while a line is waited for.
#include "programs/drafta/history_file.h"
#include "programs/drafta/line_editor.h"
#include "tests/support/temp_folder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <vector>

namespace drafta {
namespace {

using ryv::test::TempFolder;

/// A child process behind a terminal of its own.
class Session {
public:
    /// `run` is the child's whole life; its answer is the exit code.
    explicit Session(const std::function<int()>& run) {
        child_ = ::forkpty(&terminal_, nullptr, nullptr, nullptr);
        if (child_ == 0) {
            ::setenv("TERM", "xterm", 1);
            ::unsetenv("LC_ALL");
            ::_exit(run());
        }
    }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    ~Session() { ::close(terminal_); }

    void type(std::string_view keys) const {
        ASSERT_EQ(::write(terminal_, keys.data(), keys.size()), static_cast<ssize_t>(keys.size()));
    }

    /// Waits until `text` has been shown behind what was waited for before; false when it never is.
    bool shows(const std::string& text) {
        for (std::size_t hit;
             (hit = seen_.find(text, from_)) == std::string::npos || (from_ = hit + 1, false);)
            if (!readMore())
                return false;
        return true;
    }
    /// The exit code, -1 when a signal ended the child.
    int end() {
        while (readMore()) {
        }
        int status = 0;
        ::waitpid(child_, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    const std::string& seen() const noexcept { return seen_; }

private:
    bool readMore() {
        pollfd waiting{terminal_, POLLIN, 0};
        std::array<char, 4096> bytes;
        if (::poll(&waiting, 1, 60'000) != 1)
            return false;
        const ssize_t count = ::read(terminal_, bytes.data(), bytes.size());
        if (count > 0)
            seen_.append(bytes.data(), static_cast<std::size_t>(count));
        return count > 0;
    }

    int terminal_ = -1;
    pid_t child_ = -1;
    std::string seen_;
    std::size_t from_ = 0;
};

int runDrafta(const std::string& profile) {
    ::execl(DRAFTA_PROGRAM, "drafta", "--console", "--profile", profile.c_str(), nullptr);
    return 127;
}

std::vector<std::string> linesOf(const std::string& file) {
    HistoryFile kept(file);
    std::vector<std::string> lines;
    HistEvent event{};
    for (int more = history(kept.lines(), &event, H_LAST); more != -1;
         more = history(kept.lines(), &event, H_PREV)) {
        lines.emplace_back(event.str);
        while (!lines.back().empty() && lines.back().back() == '\n')
            lines.back().pop_back();
    }
    return lines;
}

TEST(Console, twoAtOnce_keepTheLinesOfBoth) {
    const TempFolder folder;
    folder.write("history", "");
    Session first([&] { return runDrafta(folder.native()); });
    ASSERT_TRUE(first.shows("Command: "));
    first.type("(strcat \"Ł\" \"ódź\")\n");
    ASSERT_TRUE(first.shows("\"Łódź\"")) << first.seen();
    Session second([&] { return runDrafta(folder.native()); });
    ASSERT_TRUE(second.shows("Command: "));
    second.type("(+ 40 2)\nquit\n");
    EXPECT_EQ(second.end(), 0) << second.seen();
    EXPECT_NE(second.seen().find("42"), std::string::npos);
    first.type("\x1B[A\x01\x0Bquit\n"); // up, then away with that line
    EXPECT_EQ(first.end(), 0) << first.seen();
    EXPECT_EQ(linesOf(folder.native("history")),
        (std::vector<std::string>{"(+ 40 2)", "quit", "(strcat \"Ł\" \"ódź\")", "quit"}));
}

TEST(LineEditor, workWhileALineIsTyped_mayPrintAndAskAndLeavesTheLine) {
    const TempFolder folder;
    std::array<int, 2> work{};
    ASSERT_EQ(::pipe2(work.data(), O_CLOEXEC), 0);
    Session session([&] {
        LineEditor editor(folder.native("history"));
        editor.setWork({work[0], [&] {
                            char kind = 0;
                            if (::read(work[0], &kind, 1) == 1 && kind == 'a')
                                std::printf("answer <%s>\n", editor.read("Sure? ").value_or("none").c_str());
                            std::printf("work %c\n", kind);
                            return kind != 'q';
                        }});
        std::printf("line <%s>\n", editor.read("> ").value_or("none").c_str());
        return editor.read("> ") ? 1 : 0;
    });
    ASSERT_TRUE(session.shows("> "));
    session.type("aö\x02"); // the cursor goes back by one
    ASSERT_TRUE(session.shows("ö"));
    ASSERT_EQ(::write(work[1], "p", 1), 1);
    EXPECT_TRUE(session.shows("work p"));
    EXPECT_TRUE(session.shows("> aö")) << session.seen();
    ASSERT_EQ(::write(work[1], "a", 1), 1);
    EXPECT_TRUE(session.shows("Sure? "));
    session.type("yes\n");
    EXPECT_TRUE(session.shows("answer <yes>"));
    EXPECT_TRUE(session.shows("> aö")) << session.seen();
    session.type("x\n");
    EXPECT_TRUE(session.shows("line <axö>")) << session.seen();
    EXPECT_TRUE(session.shows("> "));
    ASSERT_EQ(::write(work[1], "q", 1), 1);
    EXPECT_EQ(session.end(), 0) << session.seen();
    ::close(work[0]);
    ::close(work[1]);
}

} // namespace
} // namespace drafta
