// Changes that another process makes, of every kind and in great number: none may go unnoticed.
#include "embedded/monitor/inotify_monitor.h"
#include "embedded/os/posix_platform.h"
#include "tests/support/random.h"
#include "tests/support/run_until.h"
#include "tests/support/temp_folder.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>

namespace ryv::test {
namespace {

enum class Kind : char { inPlace, replace, deleteAndCreate, moveIn, folderAway, folderBack };

constexpr int projects = 5;

/// Each project lies in a folder of its own.
std::string projectFolder(int number) {
    return "p" + std::to_string(number);
}
std::string projectFile(int number) {
    return projectFolder(number) + "/A.kqp";
}

/// What the other process is told to do. The content is the number of the change, always as many bytes.
struct Order {
    Kind kind = Kind::inPlace;
    int project = 0;
    int content = 0;
};

/// The process that makes the changes, one an order. It answers every order when it is done.
class Changer {
public:
    explicit Changer(const std::string& folder) {
        std::array<int, 2> orders{}, answers{};
        if (::pipe2(orders.data(), O_CLOEXEC) != 0 || ::pipe2(answers.data(), O_CLOEXEC) != 0)
            throw std::runtime_error("no pipe");
        child_ = ::fork();
        if (child_ == 0) {
            ::close(orders[1]);
            if (::chdir(folder.c_str()) != 0)
                ::_exit(1);
            obey(orders[0], answers[1]);
        }
        ::close(orders[0]);
        ::close(answers[1]);
        orders_ = drafta::Descriptor(orders[1]);
        answers_ = drafta::Descriptor(answers[0]);
    }
    Changer(const Changer&) = delete;
    Changer& operator=(const Changer&) = delete;
    ~Changer() {
        orders_.reset(); // the child ends when there are no more
        ::waitpid(child_, nullptr, 0);
    }

    void send(const Order& order) const {
        ASSERT_EQ(::write(orders_.get(), &order, sizeof order), static_cast<ssize_t>(sizeof order));
    }
    void awaitAnswer() const {
        char done = 0;
        ASSERT_EQ(::read(answers_.get(), &done, 1), 1);
        ASSERT_EQ(done, 'y') << "the change could not be made";
    }

private:
    [[noreturn]] static void obey(int orders, int answers) {
        Order order;
        while (::read(orders, &order, sizeof order) == sizeof order) {
            const char answer = carryOut(order) ? 'y' : 'n';
            if (::write(answers, &answer, 1) != 1)
                break;
        }
        ::_exit(0);
    }
    static bool carryOut(const Order& order) {
        const std::string file = projectFile(order.project);
        const std::string aside = "new" + std::to_string(order.project);
        const std::string away = "away" + std::to_string(order.project);
        switch (order.kind) {
        case Kind::inPlace:
            return write(file, order.content, O_WRONLY);
        case Kind::replace: // a temporary file in the same folder
            return write(file + ".new", order.content, O_WRONLY | O_CREAT) &&
                   ::rename((file + ".new").c_str(), file.c_str()) == 0;
        case Kind::deleteAndCreate:
            return ::unlink(file.c_str()) == 0 && write(file, order.content, O_WRONLY | O_CREAT | O_EXCL);
        case Kind::moveIn: // from elsewhere
            return write(aside, order.content, O_WRONLY | O_CREAT) &&
                   ::rename(aside.c_str(), file.c_str()) == 0;
        case Kind::folderAway:
            return ::rename(projectFolder(order.project).c_str(), away.c_str()) == 0 &&
                   write(away + "/A.kqp", order.content, O_WRONLY);
        case Kind::folderBack:
            return ::rename(away.c_str(), projectFolder(order.project).c_str()) == 0;
        }
        return false;
    }
    static bool write(const std::string& path, int content, int flags) {
        const drafta::Descriptor file(::open(path.c_str(), flags | O_CLOEXEC, 0644));
        const std::string bytes = std::to_string(content);
        return ::write(file.get(), bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size());
    }

    pid_t child_ = -1;
    drafta::Descriptor orders_, answers_;
};

/// Follows the files as the module would: it reads a file when it is told to, and never otherwise.
class WatchReliabilityTest : public testing::Test, public FileMonitorReceiver {
protected:
    WatchReliabilityTest() {
        for (int i = 0; i < projects; ++i) {
            std::filesystem::create_directory(folder.native(projectFolder(i)));
            folder.write(projectFile(i), std::to_string(firstContent));
            known.at(static_cast<std::size_t>(i)) = std::to_string(firstContent);
            EXPECT_TRUE(monitor.watch(path(i)).ok());
        }
        EXPECT_TRUE(monitor.start(*this).ok());
    }

    CString path(int number) const { return folder.module(decodeUtf8(projectFolder(number)) + u"\\A.kqp"); }
    std::string& knownOf(int project) { return known.at(static_cast<std::size_t>(project)); }

    void fileChanged(CStringView changed, FileChange change) override {
        for (int i = 0; i < projects; ++i)
            if (changed == path(i)) {
                ++notices;
                knownOf(i) = change == FileChange::deleted ? std::string() : folder.read(projectFile(i));
            }
    }
    void fileRenamed(CStringView, CStringView) override { ADD_FAILURE() << "fileRenamed"; }

    /// Lets the loop run until what was heard equals what there is.
    template <class Condition>
    bool waitFor(Condition condition) {
        return test::runUntil(loop, condition);
    }
    static int changesWanted() {
        const char* const size = std::getenv("RYV_RELIABILITY");
        return size && std::string(size) == "full" ? 1000 : 250;
    }

    static constexpr int firstContent = 1'000'000;
    TempFolder folder;
    Changer changer{folder.native()};
    drafta::PosixPlatform os;
    drafta::EpollMessageLoop loop;
    drafta::InotifyMonitor monitor{loop, *os.platform().os.files, os.mapper()};
    std::array<std::string, projects> known; // empty: deleted
    int notices = 0;
};

TEST_F(WatchReliabilityTest, changes_oneAfterTheOther_allNoticed) {
    const int wanted = changesWanted();
    RecordProperty("changes", wanted);
    for (int i = 0; i < wanted; ++i) {
        const auto kind = static_cast<Kind>(i % 5);
        const int project = i / 5 % projects;
        const int content = firstContent + i + 1;
        changer.send({kind, project, content});
        changer.awaitAnswer();
        const std::string expected = kind == Kind::folderAway ? std::string() : std::to_string(content);
        ASSERT_TRUE(waitFor([&] { return knownOf(project) == expected; })) << "change " << i;
        if (kind != Kind::folderAway)
            continue;
        changer.send({Kind::folderBack, project, content});
        changer.awaitAnswer();
        ASSERT_TRUE(waitFor([&] { return knownOf(project) == std::to_string(content); })) << "change " << i;
    }
    EXPECT_GE(notices, wanted);
}

/// Many changes while the monitor is at work: what was heard last has to be what there is in the end.
TEST_F(WatchReliabilityTest, changes_inBursts_theLastOfEachFileIsNoticed) {
    constexpr int burst = 25;
    const int wanted = changesWanted();
    RecordProperty("changes", wanted);
    Random random(20'261'121);
    std::array<std::string, projects> last = known;
    for (int i = 0; i < wanted; i += burst) {
        int orders = 0;
        const auto send = [&](Kind kind, int project, int content) {
            changer.send({kind, project, content});
            ++orders;
        };
        for (int j = i; j < i + burst; ++j) {
            const auto kind = static_cast<Kind>(random.below(5));
            const int project = static_cast<int>(random.below(projects));
            const int content = firstContent + j + 1;
            last.at(static_cast<std::size_t>(project)) = std::to_string(content);
            send(kind, project, content);
            if (kind == Kind::folderAway)
                send(Kind::folderBack, project, content);
        }
        for (; orders > 0; --orders) {
            loop.pump();
            changer.awaitAnswer();
        }
        ASSERT_TRUE(waitFor([&] { return known == last; })) << "burst that begins with change " << i;
    }
}

} // namespace
} // namespace ryv::test
