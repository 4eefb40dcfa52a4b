// Locks between real processes: released together, killed, and with others who look after stale ones beside.
// RYV_RELIABILITY=full in the environment runs as many rounds as are to hold for a release.
#include "base/text.h"
#include "embedded/os/posix_platform.h"
#include "manager/virtual_file_locker.h"
#include "model/kqp_filer.h"
#include "tests/support/fork.h"
#include "tests/support/scripted_platform.h"
#include "tests/support/temp_folder.h"
#include "tests/system/lock_arena.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>
#include <random>
#include <thread>

namespace ryv::test {
namespace {

using std::chrono::milliseconds;
using SteadyClock = std::chrono::steady_clock;

unsigned rounds(unsigned reduced, unsigned full) {
    const char* const size = std::getenv("RYV_RELIABILITY");
    return size && std::string(size) == "full" ? full : reduced;
}

/// A worker process, killed at the end of its life.
class WorkerProcess {
public:
    WorkerProcess(const TempFolder& folder, const std::string& task, const std::string& user, unsigned number)
        : number_(number) {
        const std::string arena = folder.native("arena");
        const std::string file = folder.native("A.kqp");
        child_ = startChild([&] {
            ::execl(LOCK_WORKER, LOCK_WORKER, task.c_str(), arena.c_str(), file.c_str(), user.c_str(),
                std::to_string(number).c_str(), static_cast<char*>(nullptr));
            return 127;
        });
    }
    WorkerProcess(const WorkerProcess&) = delete;
    WorkerProcess& operator=(const WorkerProcess&) = delete;
    ~WorkerProcess() { kill(); }
    unsigned number() const { return number_; }
    void kill() {
        if (child_ == -1)
            return;
        ::kill(child_, SIGKILL);
        exitCode(child_);
        child_ = -1;
    }
    int wait() { return exitCode(std::exchange(child_, -1)); }

private:
    unsigned number_;
    pid_t child_ = -1;
};

class LockReliability : public ::testing::Test {
protected:
    LockReliability() { folder.write("A.kqp", "*[1]0\n"); }

    std::unique_ptr<WorkerProcess> start(const std::string& task, const std::string& user, unsigned number) {
        return std::make_unique<WorkerProcess>(folder, task, user, number);
    }
    void plant(unsigned round) {
        std::string record;
        encodeUtf16(u"bob\nBOX Bob\nyesterday", false, record);
        const std::string contents[] = {record, "", record.substr(0, 11)};
        if (round % 4 != 0)
            folder.write("A.kqp.FLL", contents[round % 4 - 1]);
    }
    /// Lets both racers take the next step and waits for them.
    void step() {
        const std::uint32_t next = ++arena.step;
        spinUntil([&] { return arena.done[0] == next && arena.done[1] == next; });
    }
    void edit(const std::string& task, bool oneUser);
    void killOne(std::vector<std::unique_ptr<WorkerProcess>>& workers, const std::string& task, bool oneUser);
    void checkUpdates();

    TempFolder folder;
    LockArena& arena = mapArena(folder.native("arena"));
    std::mt19937 random{20261121};
    unsigned started = 0;
    CString path = folder.module(u"A.kqp");
    drafta::PosixPlatform machine;
    ScriptedPlatform host{machine.platform().os.files};
    RyvPrmVirtualFileLocker locker;
};

TEST_F(LockReliability, releasedTogether_exactlyOneGetsTheLock) {
    const auto first = start("race", "ann", 0);
    const auto second = start("race", "bob", 1);
    std::vector<std::unique_ptr<WorkerProcess>> sweepers;
    for (unsigned i = 0; i < 4; ++i)
        sweepers.push_back(start("sweep", "eve", i));
    const unsigned all = rounds(3000, 100000);
    std::map<unsigned, unsigned> winners;
    for (unsigned round = 0; round < all; ++round) {
        plant(round);
        step();
        ++winners[arena.won[0] + arena.won[1]];
        step();
    }
    EXPECT_EQ(winners, (std::map<unsigned, unsigned>{{1, all}})) << "rounds by the number of winners";
    RecordProperty("rounds", static_cast<int>(all));
}

/// Replaces a worker at random; it counts as killed from before it can be dead.
void LockReliability::killOne(
    std::vector<std::unique_ptr<WorkerProcess>>& workers, const std::string& task, bool oneUser) {
    auto& worker = workers[random() % workers.size()];
    arena.killed[worker->number()] = 1;
    worker->kill();
    ++started;
    worker = start(task, oneUser ? "ann" : "user" + std::to_string(started), started);
}

/// Lets eight workers edit, some of whom are killed, until there are enough updates.
void LockReliability::edit(const std::string& task, bool oneUser) {
    std::vector<std::unique_ptr<WorkerProcess>> workers;
    for (int i = 0; i < 8; ++i) {
        ++started;
        workers.push_back(start(task, oneUser ? "ann" : "user" + std::to_string(started), started));
    }
    const auto deadline = SteadyClock::now() + std::chrono::seconds(rounds(200, 1500));
    const unsigned wanted = rounds(300, 2000);
    while (arena.total < wanted && SteadyClock::now() < deadline && started + 1 < mostWorkers) {
        std::this_thread::sleep_for(milliseconds(random() % 60));
        killOne(workers, task, oneUser);
    }
    EXPECT_GE(arena.total, wanted) << "the lock went on from hand to hand";
    arena.stop = 1;
    for (const auto& worker : workers)
        EXPECT_EQ(worker->wait(), 0);
    EXPECT_GT(started, 16u);
}

/// Every update that its worker knew of is there, in order and once; one more of each may be there, whose
/// worker was killed before it knew.
void LockReliability::checkUpdates() {
    RyvPrmKQPFiler filer(path, false, true);
    RyvPrmProjectData data;
    filer.readProject(data);
    std::map<unsigned, unsigned> found;
    const CStringList& lines = data.getProjDescriptions();
    for (std::size_t i = 1; i < lines.size(); ++i) {
        unsigned number = 0;
        unsigned update = 0;
        ASSERT_EQ(std::sscanf(toAscii(lines[i]).c_str(), "u%u-%u", &number, &update), 2) << i;
        EXPECT_EQ(update, ++found[number]) << "worker " << number;
    }
    for (unsigned number = 1; number <= started; ++number) {
        const unsigned known = arena.written[number];
        EXPECT_GE(found[number], known) << "worker " << number;
        EXPECT_LE(found[number], known + arena.killed[number]) << "worker " << number;
    }
    EXPECT_EQ(lines.at(0), toText(static_cast<int>(lines.size()) - 1));
    EXPECT_EQ(arena.tornReads, 0u);
    RecordProperty("updates", static_cast<int>(lines.size()) - 1);
}

TEST_F(LockReliability, usersEditingOneProject_someKilled_loseNoUpdate) {
    edit("edit", false);
    checkUpdates();
    EXPECT_EQ(arena.twoHolders, 0u);
    EXPECT_EQ(arena.refusedWrites, 0u) << "nobody else may write under the lock";
    EXPECT_FALSE(locker.isLocked(path));
    RecordProperty("killed", static_cast<int>(started) - 8);
}

TEST_F(LockReliability, processesOfOneUserEditingOneProject_someKilled_loseNoUpdate) {
    edit("share", true);
    checkUpdates();
    EXPECT_FALSE(locker.isLocked(path));
    RecordProperty("killed", static_cast<int>(started) - 8);
    RecordProperty("refusedWrites", static_cast<int>(arena.refusedWrites));
}

/// Nine of ten answers have to be quick: now and then removing the dead lock file waits for a busy disk.
TEST_F(LockReliability, holderKilled_theNextQuestionSaysNone) {
    std::vector<SteadyClock::duration> times;
    const unsigned kills = rounds(50, 1000);
    for (unsigned number = 1; number <= kills; ++number) {
        const auto holder = start("hold", "ann", number);
        spinUntil([&] { return arena.holder == number; });
        CString who;
        ASSERT_EQ(locker.whoLocked(path, who), lockOther) << number;
        holder->kill();
        const auto asked = SteadyClock::now();
        ASSERT_EQ(locker.whoLocked(path, who), lockNone) << number;
        times.push_back(SteadyClock::now() - asked);
    }
    std::sort(times.begin(), times.end());
    const auto microseconds = [&](std::size_t at) {
        return static_cast<int>(std::chrono::duration_cast<std::chrono::microseconds>(times[at]).count());
    };
    EXPECT_LT(microseconds(times.size() * 9 / 10), 100'000);
    RecordProperty("kills", static_cast<int>(kills));
    RecordProperty("medianMicroseconds", microseconds(times.size() / 2));
    RecordProperty("longestMicroseconds", microseconds(times.size() - 1));
}

} // namespace
} // namespace ryv::test
