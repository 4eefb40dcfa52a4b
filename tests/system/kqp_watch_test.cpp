#include "tests/system/kqp_lock_fixture.h"
#include "tests/system/python_json.h"

#include <chrono>
#include <fcntl.h>
#include <filesystem>
#include <poll.h>
#include <sys/stat.h>

namespace ryv::test {
namespace {

using Milliseconds = std::chrono::milliseconds;

constexpr Milliseconds patience{2000};  // for an event
constexpr Milliseconds startUp{20'000}; // for the program to come up on a busy machine

/// "kqp watch" at work in a folder, with its output in a pipe.
class Watcher {
public:
    using Words = std::vector<std::string>;

    Watcher(const TempFolder& folder, const Words& words, bool (*inChild)() = nullptr) {
        errorFile_ = folder.native("error.txt");
        child_ = startChild([&] {
            const int error = ::open(errorFile_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
            const int program = ::open(KQP_PROGRAM, O_RDONLY | O_CLOEXEC);
            ::dup2(error, STDERR_FILENO);
            ::dup2(output_.writeEnd(), STDOUT_FILENO);
            output_.closeEnd(0);
            output_.closeEnd(1);
            const std::string home = folder.native("home");
            ::setenv("HOME", home.c_str(), 1);
            std::vector<char*> arguments{const_cast<char*>("kqp"), const_cast<char*>("watch")};
            for (const std::string& word : words)
                arguments.push_back(const_cast<char*>(word.c_str()));
            arguments.push_back(nullptr);
            if (::chdir(folder.native().c_str()) == 0 && (!inChild || inChild()))
                ::fexecve(program, arguments.data(), environ);
            return 126;
        });
        output_.closeEnd(1);
    }
    Watcher(const Watcher&) = delete;
    Watcher& operator=(const Watcher&) = delete;
    ~Watcher() { end(SIGKILL); }

    /// The next line without its end; empty when it does not come in time.
    std::string line(Milliseconds atMost = patience) {
        const auto deadline = std::chrono::steady_clock::now() + atMost;
        std::size_t end = 0;
        while ((end = read_.find('\n')) == std::string::npos) {
            const auto left = std::chrono::ceil<Milliseconds>(deadline - std::chrono::steady_clock::now());
            if (left.count() <= 0 || !readMore(static_cast<int>(left.count())))
                return {};
        }
        std::string line = read_.substr(0, end);
        read_.erase(0, end + 1);
        return line;
    }

    /// What comes until the program closes its output.
    std::string rest() {
        while (readMore(static_cast<int>(startUp.count()))) {
        }
        return std::exchange(read_, {});
    }

    void stopReading() { output_.closeEnd(0); }

    void send(int signal) const { ::kill(child_, signal); }

    /// Sends a signal (0: none) and waits for the end; the exit code, -1 when a signal ended the program.
    int end(int signal) {
        if (child_ == -1)
            return -1;
        ::kill(child_, signal);
        return exitCode(std::exchange(child_, -1));
    }

    std::string error() const {
        std::ifstream file(errorFile_, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

private:
    bool readMore(int milliseconds) {
        pollfd asked{output_.readEnd(), POLLIN, 0};
        if (::poll(&asked, 1, milliseconds) != 1)
            return false;
        char bytes[4096];
        const ssize_t count = ::read(output_.readEnd(), bytes, sizeof bytes);
        if (count > 0)
            read_.append(bytes, static_cast<std::size_t>(count));
        return count > 0;
    }

    Pipe output_;
    std::string errorFile_;
    pid_t child_ = -1;
    std::string read_;
};

class KqpWatchTest : public KqpLockTest {
protected:
    void SetUp() override {
        folder.write("plant.kqp", "a.dwg\n");
        std::filesystem::create_directory(folder.native("home"));
    }

    /// The line of an event of a project, with further details.
    std::string event(const std::string& name, const std::string& more = {}) const {
        return name + "\t" + folder.native("plant.kqp") + (more.empty() ? "" : "\t" + more);
    }
    /// Puts a file with this content in the place of the project, as careful writers do.
    void replace(const std::string& content) const {
        folder.write("new", content);
        std::filesystem::rename(folder.native("new"), folder.native("plant.kqp"));
    }
};

TEST_F(KqpWatchTest, watch_projectFileChanges_isReReadOncePerChange) {
    Watcher watcher(folder, {"plant.kqp"});
    ASSERT_EQ(watcher.line(startUp), event("onProjectOpen")) << watcher.error();
    folder.write("plant.kqp", "b.dwg\n");
    EXPECT_EQ(watcher.line(), event("onProjectReRead")) << "in place";
    replace("c.dwg\n");
    EXPECT_EQ(watcher.line(), event("onProjectReRead")) << "by rename";
    std::filesystem::remove(folder.native("plant.kqp"));
    folder.write("plant.kqp", "d.dwg\n");
    EXPECT_EQ(watcher.line(), event("onProjectReRead")) << "deleted and made anew";
    expectDone(kqp({"rewrite", "plant.kqp"}));
    EXPECT_EQ(watcher.line(), event("onProjectReRead")) << "by kqp";
    EXPECT_EQ(watcher.end(SIGTERM), 0);
    EXPECT_EQ(watcher.rest(), "");
    EXPECT_EQ(watcher.error(), "");
}

TEST_F(KqpWatchTest, watch_severalChangesAtOneLook_lockIsTakenOver_projectReReadOnce) {
    ASSERT_TRUE(lock("plant.kqp"));
    Watcher watcher(folder, {"plant.kqp"});
    ASSERT_EQ(watcher.line(startUp), event("onProjectOpen")) << watcher.error();
    watcher.send(SIGSTOP);
    ASSERT_TRUE(unlock("plant.kqp"));
    ASSERT_TRUE(lock("plant.kqp"));
    std::filesystem::remove(folder.native("plant.kqp"));
    folder.write("plant.kqp", "b.dwg\n");
    watcher.send(SIGCONT);
    EXPECT_EQ(watcher.line(), event("onProjectUnlocked"));
    EXPECT_EQ(watcher.line(), event("onProjectLocked"));
    EXPECT_EQ(watcher.line(), event("onProjectReRead"));
    EXPECT_EQ(watcher.line(Milliseconds(500)), "");
    EXPECT_EQ(watcher.end(SIGTERM), 0);
}

TEST_F(KqpWatchTest, watch_lockComesAndGoes_isTold) {
    Watcher watcher(folder, {"plant.kqp"});
    ASSERT_EQ(watcher.line(startUp), event("onProjectOpen")) << watcher.error();
    ASSERT_TRUE(lock("plant.kqp"));
    EXPECT_EQ(watcher.line(), event("onProjectLocked"));
    ASSERT_TRUE(unlock("plant.kqp"));
    EXPECT_EQ(watcher.line(), event("onProjectUnlocked"));
    StayingChild holder([&] { return lock("plant.kqp"); });
    ASSERT_TRUE(holder.stays());
    EXPECT_EQ(watcher.line(), event("onProjectLocked"));
    holder.kill();
    EXPECT_EQ(kqp({"lock-status", "plant.kqp"}).exitCode, 0) << "asking clears what is left of the lock";
    EXPECT_EQ(watcher.line(), event("onProjectUnlocked"));
    EXPECT_EQ(watcher.end(SIGTERM), 0);
}

TEST_F(KqpWatchTest, watch_taskFileAndProtection_areToldWithDetails) {
    const std::string file = folder.native("plant.kqp");
    const std::string tasks = folder.native("PLANT_update.mdb");
    Watcher watcher(folder, {"./home/../plant.kqp"});
    ASSERT_EQ(watcher.line(startUp), event("onProjectOpen")) << watcher.error();
    folder.write("PLANT_update.mdb", "tasks");
    EXPECT_EQ(watcher.line(), event("onProjectTasksAdded", tasks));
    std::filesystem::remove(tasks);
    EXPECT_EQ(watcher.line(), event("onProjectTasksDeleted", tasks));
    ASSERT_EQ(::chmod(file.c_str(), 0444), 0);
    EXPECT_EQ(watcher.line(), event("onProjectReadOnlyChanged", "read-only"));
    ASSERT_EQ(::chmod(file.c_str(), 0644), 0);
    EXPECT_EQ(watcher.line(), event("onProjectReadOnlyChanged", "writable"));
    EXPECT_EQ(watcher.end(SIGINT), 0);
}

TEST_F(KqpWatchTest, watch_leavesTheUsersFilesAlone) {
    folder.write("gone.kqp", "no/such.dwg\n");
    const std::vector<std::string> before{"error.txt", "gone.kqp", "home", "plant.kqp"};
    Watcher watcher(folder, {"gone.kqp"});
    ASSERT_NE(watcher.line(startUp), "") << watcher.error();
    folder.write("gone.kqp", "no/other.dwg\n");
    EXPECT_NE(watcher.line(), "");
    EXPECT_EQ(watcher.end(SIGTERM), 0);
    EXPECT_EQ(folder.names(), before);
    EXPECT_TRUE(std::filesystem::is_empty(folder.native("home")));
    EXPECT_EQ(folder.read("gone.kqp"), "no/other.dwg\n");
}

TEST_F(KqpWatchTest, watch_json_isOneObjectALine) {
    if (!hasProgram("python3"))
        GTEST_SKIP() << "needs python3";
    Watcher watcher(folder, {"--json", "plant.kqp"});
    const std::string path = toUtf8(replaceAll(folder.module(u"plant.kqp"), u"\\", u"\\\\"));
    expectJson(watcher.line(startUp), "same(d, {'event': 'onProjectOpen', 'details': ['" + path + "']})\n");
    EXPECT_EQ(watcher.end(SIGTERM), 0);
}

TEST_F(KqpWatchTest, watch_nameWithControlCharacters_staysOneLine) {
    folder.write("a\tb\n\x1B.kqp", "");
    Watcher watcher(folder, {"a\tb\n\x1B.kqp"});
    EXPECT_EQ(watcher.line(startUp), "onProjectOpen\t" + folder.native("a\\tb\\n\\x1B.kqp"));
}

TEST_F(KqpWatchTest, watch_replacedByAFileThatMayNotBeRead_saysSoAndGoesOn) {
    ASSERT_EQ(::chmod(folder.native().c_str(), 0777), 0);
    Watcher watcher(folder, {"plant.kqp"}, becomeNobody);
    ASSERT_EQ(watcher.line(startUp), event("onProjectOpen")) << watcher.error();
    folder.write("new", "secret.dwg\n");
    ASSERT_EQ(::chmod(folder.native("new").c_str(), 0), 0);
    std::filesystem::rename(folder.native("new"), folder.native("plant.kqp"));
    for (int i = 0; i < 200 && watcher.error().empty(); ++i)
        EXPECT_EQ(watcher.line(Milliseconds(10)), "");
    EXPECT_EQ(watcher.error(), "kqp: plant.kqp: permission denied\n");
    replace("open.dwg\n");
    std::string next = watcher.line();
    if (next.starts_with("onProjectReadOnlyChanged"))
        next = watcher.line();
    EXPECT_EQ(next, event("onProjectReRead"));
}

TEST_F(KqpWatchTest, watch_readerGone_endsWithoutWaitingForAnEvent) {
    Watcher watcher(folder, {"plant.kqp"});
    ASSERT_EQ(watcher.line(startUp), event("onProjectOpen")) << watcher.error();
    watcher.stopReading();
    EXPECT_EQ(watcher.end(0), 2);
    EXPECT_EQ(watcher.error(), "kqp: standard output: Broken pipe\n");
}

} // namespace
} // namespace ryv::test
