// The file-monitoring service on the system's watch events, with polling where these do not reach.
#pragma once

#include "embedded/loop/epoll_message_loop.h"
#include "embedded/monitor/poll_thread.h"
#include "embedded/monitor/watch_table.h"
#include "embedded/monitor/watched_file.h"
#include "embedded/os/path_mapper.h"
#include "platform/os/file_monitor.h"

#include <deque>
#include <map>
#include <memory>

struct inotify_event;

namespace drafta {

struct MonitorOptions {
    std::chrono::milliseconds pollPeriod{2000};
    /// Hears, once, that the system's watches are used up and files are polled instead. May be empty.
    std::function<void(ryv::CStringView message)> warn;
    /// The system calls; nullptr for the real ones. Not owned.
    WatchSystem* system = nullptr;
};

/// Events are hints: a file that one concerns is looked at, and what is told is how it differs from the last
/// time. So it does not matter by which steps a file came to be replaced, removed or made anew, or whether
/// events were lost. Taken from the events themselves is only what no look can tell: that a file was written,
/// because its size and time may be the same as before, and that its name was free in between, which is how a
/// lock changes hands. Several changes that are found at once are told as one; a file whose name was free in
/// between as deleted, created and contentChanged, one that another was renamed over as contentChanged.
///
/// A file is followed through symbolic links, and through folders that are moved, removed and made again.
/// Files on network file systems are polled as well, and so is, instead, whatever cannot be watched for lack
/// of watches: watch() does not fail for that.
///
/// fileRenamed is never called: a file that is moved away is deleted, and what takes its name is created.
///
/// A file that cannot be looked at (a folder that may not be entered, a server that does not answer) is taken
/// to be as it was, and looked at again every period.
class InotifyMonitor final : public ryv::FileMonitor {
public:
    /// All have to outlive the monitor.
    InotifyMonitor(
        EpollMessageLoop& loop, ryv::Files& files, const PathMapper& mapper, MonitorOptions options = {});
    InotifyMonitor(const InotifyMonitor&) = delete;
    InotifyMonitor& operator=(const InotifyMonitor&) = delete;
    ~InotifyMonitor() override;

    ryv::FileStatus start(ryv::FileMonitorReceiver& receiver) override;
    void stop() override;
    bool isRunning() override { return receiver_ != nullptr; }
    ryv::FileStatus watch(ryv::CStringView path) override;
    bool unwatch(ryv::CStringView path) override;

private:
    using Number = std::uint64_t;
    struct Notice {
        Number file = 0;
        ryv::FileChange change{};
    };

    void begin(Number number, WatchedFile& file);
    void readEvents();
    void takeEvents();
    void takeEvent(const inotify_event& event, std::string_view name);
    void takeInterest(const WatchInterest& interest, std::uint32_t mask, ryv::CStringView name);
    void takeOverflow();
    void takeName(WatchedFile& file, std::uint32_t mask, bool isExact);
    void takePolled(const std::vector<Number>& numbers);
    void raise(Number number, WatchedFile& file, WatchedFile::Hint hint);
    void settle();
    bool look(Number number, WatchedFile& file);
    void follow(Number number, WatchedFile& file);
    void poll(Number number, const WatchedFile& file, const FileMark& folderMark);
    void judge(Number number, WatchedFile& file);
    void lookLater(Number number, WatchedFile& file);
    bool sightOf(const WatchedFile& file, FileSight& sight);
    void deliver();
    void deliverLater();
    void warnOnce(int systemCode);

    EpollMessageLoop& loop_;
    ryv::Files& files_;
    const PathMapper& mapper_;
    MonitorOptions options_;
    WatchSystem nativeSystem_;
    WatchSystem& system_;
    WatchTable table_{system_};
    std::unique_ptr<PollThread> poller_;
    ryv::FileMonitorReceiver* receiver_ = nullptr;

    Number lastNumber_ = 0; // of files and of trails
    std::map<Number, WatchedFile> watched_;
    std::map<ryv::CString, Number> numbers_; // by path in upper case
    std::map<Number, Number> trails_;        // the file of each trail
    std::vector<Number> hinted_;
    std::deque<Notice> notices_;
    bool warned_ = false;
    std::shared_ptr<int> run_; // from start to stop; calls from the thread that come later find it gone
};

} // namespace drafta
