// What it costs to watch 500 projects, three names each, every project in a folder of its own. Processor time
// of this process alone; another one makes the changes.
#include "bench/support/processor_time.h"
#include "embedded/monitor/inotify_monitor.h"
#include "embedded/os/posix_platform.h"
#include "tests/support/temp_folder.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <poll.h>
#include <sys/inotify.h>
#include <sys/wait.h>

namespace {

using ryv::test::TempFolder;
using std::chrono::duration;
using std::chrono::milliseconds;
using std::chrono::steady_clock;
using Seconds = duration<double>;

constexpr int projects = 500;
constexpr milliseconds measured{6000};
constexpr int changesInASecond = 100;
constexpr int eventChanges = 20'000;

std::string projectFolder(const TempFolder& folder, int number) {
    return folder.native("p" + std::to_string(number % projects));
}

void writeFile(const std::string& path) {
    const drafta::Descriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644));
    if (::write(file.get(), "content", 7) != 7)
        std::abort();
}

void writeOther(const TempFolder& folder, int number) {
    const std::string path = projectFolder(folder, number) + "/other.dwg";
    writeFile(path);
    unlink(path.c_str());
}

void writeProject(const TempFolder& folder, int number) {
    writeFile(projectFolder(folder, number) + "/A.kqp");
}

/// Makes changes in a process of their own; `pause` lies between two.
template <class Change>
pid_t inAnotherProcess(int count, milliseconds pause, Change change) {
    const pid_t child = fork();
    if (child != 0)
        return child;
    for (int i = 0; i < count; ++i) {
        change(i);
        if (pause.count() != 0)
            poll(nullptr, 0, static_cast<int>(pause.count()));
    }
    _exit(0);
}

struct NoWatches final : drafta::WatchSystem {
    int add(int, const std::string&, std::uint32_t) override {
        errno = ENOSPC;
        return -1;
    }
};

struct Counter final : ryv::FileMonitorReceiver {
    int notices = 0;
    void fileChanged(ryv::CStringView, ryv::FileChange) override { ++notices; }
    void fileRenamed(ryv::CStringView, ryv::CStringView) override {}
};

/// The projects and a monitor of them.
struct Watching {
    explicit Watching(const TempFolder& folder, drafta::WatchSystem* system = nullptr)
        : monitor(loop, *os.platform().os.files, os.mapper(), {milliseconds(2000), {}, system}) {
        if (!monitor.start(counter).ok())
            std::abort();
        for (int i = 0; i < projects; ++i)
            for (const ryv::CString name : {u"A.kqp", u"A.kqp.FLL", u"A_update.mdb"}) {
                const ryv::CString path = os.platform().os.paths->fromNative(projectFolder(folder, i));
                if (!monitor.watch(path + u"\\" + name).ok())
                    std::abort();
            }
        loop.pump();
    }
    /// Lets the loop run and gives the processor time of it.
    double runFor(milliseconds time) {
        const double before = bench::processorSeconds();
        for (const auto end = steady_clock::now() + time; steady_clock::now() < end;)
            loop.wait(std::chrono::ceil<milliseconds>(end - steady_clock::now()));
        return bench::processorSeconds() - before;
    }
    /// The same until a child process is done and all that it did was handled.
    double runUntilEndOf(pid_t child) {
        const double before = bench::processorSeconds();
        while (waitpid(child, nullptr, WNOHANG) == 0)
            loop.wait(milliseconds(1));
        loop.pump();
        return bench::processorSeconds() - before;
    }

    drafta::PosixPlatform os;
    drafta::EpollMessageLoop loop;
    Counter counter;
    drafta::InotifyMonitor monitor;
};

void reportShare(const char* what, double processor, milliseconds time) {
    std::printf("%-58s %8.3f %% of a core\n", what, 100 * processor / Seconds(time).count());
}

void reportEach(const char* what, double processor, int count) {
    std::printf("%-58s %8.2f us\n", what, 1e6 * processor / count);
}

/// Nothing but reading the events of watches on the same folders.
double readEventsUntilEndOf(pid_t child, const drafta::Descriptor& queue) {
    static char buffer[65536];
    const double before = bench::processorSeconds();
    pollfd entry{queue.get(), POLLIN, 0};
    while (waitpid(child, nullptr, WNOHANG) == 0)
        if (poll(&entry, 1, 1) == 1 && read(queue.get(), buffer, sizeof buffer) <= 0)
            std::abort();
    return bench::processorSeconds() - before;
}

drafta::Descriptor watchFolders(const TempFolder& folder) {
    drafta::Descriptor queue(inotify_init1(IN_CLOEXEC | IN_NONBLOCK));
    for (int i = 0; i < projects; ++i)
        inotify_add_watch(queue.get(), projectFolder(folder, i).c_str(),
            IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_ATTRIB | IN_CLOSE_WRITE);
    return queue;
}

void measureIdle(const TempFolder& folder) {
    Watching watching(folder);
    reportShare("nothing happens", watching.runFor(measured), measured);
    const int count = static_cast<int>(Seconds(measured).count()) * changesInASecond;
    const pid_t child =
        inAnotherProcess(count, milliseconds(1000 / changesInASecond), [&](int i) { writeOther(folder, i); });
    reportShare("100 other files a second come and go", watching.runFor(measured), measured);
    waitpid(child, nullptr, 0);
}

void measureEvents(const TempFolder& folder) {
    const auto others = [&](int i) { writeOther(folder, i); };
    {
        const drafta::Descriptor queue = watchFolders(folder);
        const pid_t child = inAnotherProcess(eventChanges, milliseconds(0), others);
        reportEach("yardstick: read() for each other file that comes and goes",
            readEventsUntilEndOf(child, queue), eventChanges);
    }
    Watching watching(folder);
    reportEach("each other file that comes and goes",
        watching.runUntilEndOf(inAnotherProcess(eventChanges, milliseconds(0), others)), eventChanges);
    watching.counter.notices = 0;
    const double processor = watching.runUntilEndOf(
        inAnotherProcess(eventChanges, milliseconds(0), [&](int i) { writeProject(folder, i); }));
    reportEach("each notice of a project written in place", processor, std::max(watching.counter.notices, 1));
    std::printf("%-58s %8d for %d changes\n", "", watching.counter.notices, eventChanges);
}

void measurePolling(const TempFolder& folder) {
    const double before = bench::processorSeconds();
    for (int i = 0; i < projects; ++i)
        for (const char* name : {"/A.kqp", "/A.kqp.FLL", "/A_update.mdb"})
            (void)drafta::markOf(projectFolder(folder, i) + name);
    reportEach(
        "yardstick: stat() of one of the 1,500 names", bench::processorSeconds() - before, 3 * projects);
    NoWatches noWatches;
    Watching watching(folder, &noWatches);
    reportShare("polled every 2 s, nothing happens", watching.runFor(measured), measured);
}

} // namespace

int main() {
    const TempFolder folder;
    for (int i = 0; i < projects; ++i) {
        std::filesystem::create_directory(projectFolder(folder, i));
        writeProject(folder, i);
    }
    measureIdle(folder);
    measureEvents(folder);
    measurePolling(folder);
}
