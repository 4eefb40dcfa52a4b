// drafta's console in front of a terminal: editing, history, and what happens while a line is waited for.
#include "programs/drafta/history_file.h"
#include "programs/drafta/line_editor.h"
#include "tests/support/temp_folder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <termios.h>
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
    /// Waits until keys reach the editor one by one; before, the terminal itself would act on some of them.
    bool takesKeys() const {
        for (int tries = 0; tries < 6000; ++tries) {
            termios mode{};
            if (::tcgetattr(terminal_, &mode) == 0 && (mode.c_lflag & ICANON) == 0)
                return true;
            ::usleep(10'000);
        }
        return false;
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

/// What stands at the history's name and who has it may be anything: no session waits for it.
TEST(HistoryFile, nameTakenBySomethingElse_isNoHistory) {
    const TempFolder folder;
    const std::string file = folder.native("history");
    ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0);
    HistoryFile(file).add("line");
    EXPECT_TRUE(linesOf(file).empty());
    EXPECT_FALSE(std::filesystem::exists(file + ".new"));
}

TEST(HistoryFile, lockedByASessionThatStopped_isReadAndLeftAlone) {
    const TempFolder folder;
    const std::string file = folder.native("history");
    HistoryFile(file).add("before");
    const int held = ::open(file.c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(::flock(held, LOCK_EX), 0);
    {
        HistoryFile other(file);
        other.add("lost");
    }
    EXPECT_EQ(linesOf(file), std::vector<std::string>{"before"});
    ::close(held);
}

TEST(HistoryFile, manySessionsEndAtOnce_keepTheLinesOfAll) {
    const TempFolder folder;
    const std::string file = folder.native("history");
    folder.write("kept", "");
    std::filesystem::create_symlink("kept", file);
    folder.write("kept.new", "half a li"); // of a session that was killed
    constexpr int sessions = 4, lines = 5;
    std::vector<pid_t> children;
    for (int session = 0; session < sessions; ++session) {
        children.push_back(::fork());
        if (children.back() != 0)
            continue;
        for (int line = 0; line < lines; ++line)
            HistoryFile(file).add(std::to_string(session) + "." + std::to_string(line));
        ::_exit(0);
    }
    for (const pid_t child : children)
        ::waitpid(child, nullptr, 0);
    EXPECT_EQ(linesOf(file).size(), std::size_t{sessions * lines});
    EXPECT_TRUE(std::filesystem::is_symlink(file));
    EXPECT_FALSE(std::filesystem::exists(folder.native("kept.new")));
}

TEST(LineEditor, workWhileALineIsTyped_mayPrintAndAskAndLeavesTheLine) {
    const TempFolder folder;
    std::array<int, 2> work{};
    ASSERT_EQ(::pipe2(work.data(), O_CLOEXEC), 0);
    Session session([&] {
        LineEditor editor(folder.native("history"));
        editor.setWork({work[0], [&] {
                            char kind = 0;
                            if (::read(work[0], &kind, 1) != 1)
                                return false;
                            editor.putAside();
                            if (kind == 'a')
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

/// Work is done in the middle of everything that takes several keys, and is seen to be done.
TEST(LineEditor, workBetweenTheKeysOfOneInput_printsOrNot_inputGoesOn) {
    struct Case {
        std::string first, second, line;
    };
    const std::array<Case, 3> cases{{
        {"ab\x1B", "[Dx\n", "axb"}, // an arrow
        {"a\xC3", "\xB6\n", "aö"},  // a character of two bytes
        {"\x12"
         "alp",
            "ha\n", "alpha beta"}, // a search through the history
    }};
    for (const Case& each : cases)
        for (const char kind : {'s', 'p'}) {
            const TempFolder folder;
            HistoryFile(folder.native("history")).add("alpha beta");
            std::array<int, 2> work{}, done{};
            ASSERT_EQ(::pipe2(work.data(), O_CLOEXEC) + ::pipe2(done.data(), O_CLOEXEC), 0);
            Session session([&] {
                LineEditor editor(folder.native("history"));
                editor.setWork({work[0], [&] {
                                    char read = 0;
                                    const bool good = ::read(work[0], &read, 1) == 1;
                                    if (read == 'p') {
                                        editor.putAside();
                                        std::puts("printed");
                                    }
                                    return ::write(done[1], &read, 1) == 1 && good;
                                }});
                std::printf("line <%s>\n", editor.read("> ").value_or("none").c_str());
                return std::fflush(stdout);
            });
            ASSERT_TRUE(session.shows("> "));
            ASSERT_TRUE(session.takesKeys());
            session.type(each.first);
            ASSERT_TRUE(session.shows(each.first.starts_with('\x12') ? "alp" : "a"));
            char answer = 0;
            ASSERT_EQ(::write(work[1], &kind, 1), 1);
            ASSERT_EQ(::read(done[0], &answer, 1), 1);
            session.type(each.second);
            EXPECT_TRUE(session.shows("line <" + each.line + ">")) << session.seen();
            EXPECT_EQ(session.end(), 0);
            EXPECT_EQ(session.seen().find("printed") != std::string::npos, kind == 'p');
            for (const int end : {work[0], work[1], done[0], done[1]})
                ::close(end);
        }
}

TEST(LineEditor, workThatThrows_passesItOnToWhoeverReads) {
    const TempFolder folder;
    Session session([&] {
        std::array<int, 2> work{};
        if (::pipe2(work.data(), O_CLOEXEC) != 0 || ::write(work[1], "x", 1) != 1)
            return 1;
        LineEditor editor(folder.native("history"));
        editor.setWork({work[0], [&]() -> bool {
                            char read = 0;
                            if (::read(work[0], &read, 1) != 1)
                                return false;
                            throw std::runtime_error("work");
                        }});
        try {
            editor.read("> ");
        } catch (const std::runtime_error&) {
            return editor.read("again> ") == "next" ? 0 : 2;
        }
        return 3;
    });
    ASSERT_TRUE(session.shows("again> ")) << session.seen();
    session.type("next\n");
    EXPECT_EQ(session.end(), 0) << session.seen();
}

} // namespace
} // namespace drafta
