// Locking and unlocking a file through the locker, beside the system calls that a lock of this kind needs,
// made by hand in turn with it. The argument is how many other files lie in the folder: a name that is not
// there is looked for in every spelling.

#include "bench/support/bench_project.h"
#include "manager/virtual_file_locker.h"

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <chrono>

namespace {

using Clock = std::chrono::steady_clock;

/// The calls alone, with a record made beforehand; false when one fails.
bool lockByHand(const std::string& file, const std::string& lockFile, const std::string& record) {
    struct stat target {};
    struct stat open {};
    struct stat named {};
    struct flock range {};
    range.l_type = F_WRLCK;
    if (stat(file.c_str(), &target) != 0)
        return false;
    const int lock = ::open(lockFile.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    const bool held =
        flock(lock, LOCK_EX | LOCK_NB) == 0 && fcntl(lock, F_OFD_SETLK, &range) == 0 &&
        fstat(lock, &open) == 0 && stat(lockFile.c_str(), &named) == 0 && open.st_ino == named.st_ino &&
        write(lock, record.data(), record.size()) == static_cast<ssize_t>(record.size()) && fsync(lock) == 0;
    setxattr(lockFile.c_str(), "user.hidden", "1", 1, 0); // not every file system takes it
    return held && unlink(lockFile.c_str()) == 0 && close(lock) == 0;
}

bool lockByLocker(ryv::RyvPrmVirtualFileLocker& locker, const ryv::CString& path) {
    return locker.lockFile(path) && locker.unlockFile(path);
}

template <class Work>
double microseconds(benchmark::State& state, const Work& work) {
    const auto start = Clock::now();
    if (!work())
        state.SkipWithError("no lock");
    return std::chrono::duration<double, std::micro>(Clock::now() - start).count();
}

void lockAndUnlock(benchmark::State& state) {
    bench::Workbench workbench;
    for (std::int64_t i = 0; i < state.range(0); ++i)
        workbench.put("drawing" + std::to_string(i) + ".dwg", "");
    const std::string file = workbench.put("A.kqp", "content");
    const ryv::CString path = workbench.modulePath(file);
    const std::string record(150, 'x');
    ryv::RyvPrmVirtualFileLocker locker;
    double byHand = 0;
    double byLocker = 0;
    for (auto _ : state) {
        byHand += microseconds(state, [&] { return lockByHand(file, file + ".FLL", record); });
        const double time = microseconds(state, [&] { return lockByLocker(locker, path); });
        byLocker += time;
        state.SetIterationTime(time / 1e6);
    }
    const auto times = static_cast<double>(state.iterations());
    state.counters["by hand, us"] = byHand / times;
    state.counters["locker, us"] = byLocker / times;
    state.counters["ratio"] = byLocker / byHand;
}

BENCHMARK(lockAndUnlock)->Arg(0)->Arg(100)->Arg(1000)->UseManualTime()->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
