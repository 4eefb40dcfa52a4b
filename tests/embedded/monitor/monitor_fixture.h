// A monitor on a folder of the test's own, and the changes that others make in it.
#pragma once

#include "embedded/monitor/inotify_monitor.h"
#include "embedded/os/posix_platform.h"
#include "tests/support/fault_files.h"
#include "tests/support/run_until.h"
#include "tests/support/temp_folder.h"

#include <cerrno>
#include <gtest/gtest.h>

namespace ryv::test {

/// The system's calls with limits.
class LimitedSystem : public drafta::WatchSystem {
public:
    bool hasQueue = true;
    bool hasWatches = true;
    bool remote = false;

    int open() override {
        errno = EMFILE;
        return hasQueue ? WatchSystem::open() : -1;
    }
    int add(int queue, const std::string& path, std::uint32_t mask) override {
        errno = ENOSPC;
        return hasWatches ? WatchSystem::add(queue, path, mask) : -1;
    }
    bool isRemote(const std::string& folder) override { return remote || WatchSystem::isRemote(folder); }
};

/// How many watches this process holds, as the system counts them.
inline std::size_t heldWatches() {
    std::size_t count = 0;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fdinfo")) {
        std::ifstream info(entry.path());
        for (std::string line; std::getline(info, line);)
            count += line.starts_with("inotify wd:") ? 1 : 0;
    }
    return count;
}

class MonitorTest : public testing::Test, public FileMonitorReceiver {
protected:
    MonitorTest() { std::filesystem::create_directories(folder.native("p")); }

    void fileChanged(CStringView path, FileChange change) override {
        static const std::map<FileChange, std::string> names{{FileChange::contentChanged, "changed"},
            {FileChange::created, "created"}, {FileChange::deleted, "deleted"},
            {FileChange::madeReadOnly, "read-only"}, {FileChange::madeWritable, "writable"}};
        const CString name(path.substr(folder.module().size() + 1));
        told += names.at(change) + " " + toUtf8(name) + "; ";
        onNotice(name);
    }
    void fileRenamed(CStringView, CStringView) override { ADD_FAILURE() << "fileRenamed"; }

    template <class Condition>
    bool waitFor(Condition condition) {
        return test::runUntil(loop, condition);
    }
    /// What was told since the last call, after all events so far were handled: the system keeps them in
    /// order, so the fence comes last.
    std::string notices() {
        folder.write("fence", std::to_string(++fences));
        EXPECT_TRUE(waitFor([this] { return told.find(fence) != std::string::npos; }));
        loop.pump();
        for (std::size_t at = told.find(fence); at != std::string::npos; at = told.find(fence))
            told.erase(at, fence.size());
        return std::exchange(told, {});
    }
    void watch(const CString& name) { EXPECT_TRUE(monitor.watch(folder.module(name)).ok()) << toUtf8(name); }
    void start() {
        folder.write("fence", "0");
        watch(u"fence");
        EXPECT_TRUE(monitor.start(*this).ok());
    }

    /// What others do. Every content differs from the one before it, and has its length.
    std::string content() { return std::to_string(1'000'000 + ++contents); }
    void writeTo(const std::string& name) { folder.write(name, content()); }
    void replace(const std::string& name) {
        writeTo("new");
        move("new", name);
    }
    void move(const std::string& from, const std::string& to) {
        std::filesystem::rename(folder.native(from), folder.native(to));
    }
    void remove(const std::string& name) { std::filesystem::remove_all(folder.native(name)); }
    void makeFolder(const std::string& name) { std::filesystem::create_directories(folder.native(name)); }
    void link(const std::string& target, const std::string& name) {
        std::filesystem::create_symlink(target, folder.native(name));
    }
    void allowWriting(const std::string& name, bool allowed) {
        std::filesystem::permissions(folder.native(name), std::filesystem::perms(allowed ? 0644 : 0444));
    }

    drafta::MonitorOptions options() {
        return {std::chrono::milliseconds(10), [this](CStringView) { ++warnings; }, &system};
    }

    const std::string fence = "changed fence; ";
    TempFolder folder;
    LimitedSystem system;
    drafta::PosixPlatform os;
    FaultFiles files{*os.platform().os.files};
    drafta::EpollMessageLoop loop;
    drafta::InotifyMonitor monitor{loop, files, os.mapper(), options()};
    std::string told;
    std::function<void(const CString&)> onNotice = [](const CString&) {};
    int warnings = 0;
    int fences = 0;
    int contents = 0;
};

} // namespace ryv::test
