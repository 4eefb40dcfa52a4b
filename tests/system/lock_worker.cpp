// One process of the tests of locks:
//     lock_worker race|sweep|hold|edit|share ARENA FILE USER NUMBER
// FILE is an absolute path, USER the identity that the process gives itself.

#include "base/text.h"
#include "bridge/platform.h"
#include "embedded/os/posix_platform.h"
#include "manager/virtual_file_locker.h"
#include "model/kqp_filer.h"
#include "tests/system/lock_arena.h"

#include <algorithm>
#include <csignal>
#include <random>
#include <sys/prctl.h>
#include <thread>

namespace ryv::test {
namespace {

class GivenIdentity final : public Identity {
public:
    explicit GivenIdentity(CString user) : user_(std::move(user)) {}
    CString userName() override { return user_; }
    CString fullUserName() override { return {}; }
    CString computerName() override { return u"BOX"; }

private:
    CString user_;
};

class Worker {
public:
    Worker(LockArena& arena, CString path, std::uint32_t number)
        : arena_(arena), path_(std::move(path)), number_(number), random_(number) {}

    /// Takes the lock together with another racer and gives it back, step by step.
    [[noreturn]] void race() {
        for (std::uint32_t step = 1;; step += 2) {
            spinUntil([&] { return arena_.step == step; });
            arena_.won[number_] = locker_.lockFile(path_) ? 1 : 0;
            arena_.done[number_] = step;
            spinUntil([&] { return arena_.step == step + 1; });
            locker_.unlockAllFiles();
            arena_.done[number_] = step + 1;
        }
    }

    [[noreturn]] void sweep() {
        for (;;) {
            locker_.isLocked(path_);
            ::sched_yield();
        }
    }

    [[noreturn]] void hold() {
        if (locker_.lockFile(path_))
            arena_.holder = number_;
        for (;;)
            ::pause();
    }

    /// Adds one line after the other to the project's descriptions. `alone`: nobody else has the lock then.
    void edit(bool alone) {
        for (std::uint32_t update = 1; arena_.stop == 0;) {
            if (!locker_.lockFile(path_)) {
                rest();
                continue;
            }
            if (alone)
                enter();
            if (addLine(update)) {
                arena_.written[number_] = update++;
                ++arena_.total;
            }
            if (alone)
                leave();
            locker_.unlockFile(path_);
            rest();
        }
    }

private:
    void rest() {
        std::uniform_int_distribution<int> microseconds(0, 1000);
        std::this_thread::sleep_for(std::chrono::microseconds(microseconds(random_)));
    }

    /// A number that a killed worker left behind is nobody's.
    void enter() {
        const std::uint32_t other = arena_.holder.exchange(number_);
        if (other != 0 && arena_.killed[other] == 0)
            ++arena_.twoHolders;
    }
    void leave() {
        std::uint32_t mine = number_;
        if (!arena_.holder.compare_exchange_strong(mine, 0))
            ++arena_.twoHolders;
    }

    /// True when the line is in the file: a write that failed late may have put it there.
    bool addLine(std::uint32_t update) {
        RyvPrmKQPFiler filer(path_, true, true);
        RyvPrmProjectData data;
        filer.readProject(data);
        CStringList lines = data.getProjDescriptions();
        if (filer.getLastError() != 0 || lines.empty() || lines.front() != countOf(lines)) {
            ++arena_.tornReads;
            return false;
        }
        const CString line = u"u" + toText(number_) + u"-" + toText(update);
        if (std::find(lines.begin(), lines.end(), line) != lines.end())
            return true;
        lines.push_back(line);
        lines.front() = countOf(lines);
        data.setProjDescriptions(std::move(lines));
        const bool written = filer.writeProject(data);
        if (!written)
            ++arena_.refusedWrites;
        return written;
    }

    /// The first line counts those behind it.
    static CString countOf(const CStringList& lines) { return toText(static_cast<int>(lines.size()) - 1); }

    LockArena& arena_;
    CString path_;
    std::uint32_t number_;
    std::mt19937 random_;
    RyvPrmVirtualFileLocker locker_;
};

int run(const std::string& task, Worker& worker) {
    if (task == "race")
        worker.race();
    if (task == "sweep")
        worker.sweep();
    if (task == "hold")
        worker.hold();
    worker.edit(task == "edit");
    return 0;
}

} // namespace
} // namespace ryv::test

int main(int count, char** words) {
    if (count != 6)
        return 2;
    ::prctl(PR_SET_PDEATHSIG, SIGKILL); // nobody is left over when the test is
    drafta::PosixPlatform machine;
    ryv::test::GivenIdentity identity(ryv::fromAscii(words[4]));
    machine.platform().os.identity = &identity;
    ryv::setPlatform(&machine.platform());
    ryv::test::Worker worker(ryv::test::mapArena(words[2]), machine.platform().os.paths->fromNative(words[3]),
        static_cast<std::uint32_t>(std::stoul(words[5])));
    return ryv::test::run(words[1], worker);
}
