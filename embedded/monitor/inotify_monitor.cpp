#include "embedded/monitor/inotify_monitor.h"
#include "base/encoding.h"
#include "base/fold.h"
#include "embedded/monitor/watch_trail.h"
#include "embedded/os/file_error.h"
#include "embedded/os/native_path.h"
#include "platform/os/file_state.h"

#include <algorithm>
#include <fcntl.h>
#include <system_error>

namespace drafta {

using ryv::CString;
using ryv::CStringView;
using ryv::FileError;
using ryv::FileStatus;
using Hint = WatchedFile::Hint;

namespace {

FileStatus checkFolder(const std::string& folder) {
    const Descriptor descriptor(
        uninterrupted([&] { return ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
    return descriptor.isOpen() ? FileStatus{} : lastFailure();
}

} // namespace

InotifyMonitor::InotifyMonitor(
    EpollMessageLoop& loop, ryv::Files& files, const PathMapper& mapper, MonitorOptions options)
    : loop_(loop), files_(files), mapper_(mapper), options_(std::move(options)),
      system_(options_.system ? *options_.system : nativeSystem_) {}

InotifyMonitor::~InotifyMonitor() {
    stop();
}

FileStatus InotifyMonitor::start(ryv::FileMonitorReceiver& receiver) {
    if (receiver_)
        return {FileError::busy, 0};
    receiver_ = &receiver;
    run_ = std::make_shared<int>();
    table_.open();
    if (table_.descriptor() != -1 && !loop_.addDescriptor(table_.descriptor(), [this] { readEvents(); })) {
        stop();
        return {FileError::unsupported, 0};
    }
    for (auto& [number, file] : watched_)
        begin(number, file);
    return {};
}

void InotifyMonitor::stop() {
    if (!receiver_)
        return;
    receiver_ = nullptr;
    run_.reset();
    poller_.reset();
    if (table_.descriptor() != -1)
        loop_.removeDescriptor(table_.descriptor());
    table_.close();
    trails_.clear();
    hinted_.clear();
    notices_.clear();
}

FileStatus InotifyMonitor::watch(CStringView path) {
    const CString key = ryv::toUpper(path);
    if (numbers_.contains(key))
        return {};
    WatchedFile file;
    file.path = path;
    if (const FileStatus status = mapper_.toNative(path, file.native); !status.ok())
        return status;
    if (const FileStatus status = checkFolder(std::string(nativeFolder(file.native))); !status.ok())
        return status;
    const Number number = numbers_[key] = ++lastNumber_;
    const auto added = watched_.emplace(number, std::move(file)).first;
    if (receiver_)
        begin(number, added->second);
    return {};
}

bool InotifyMonitor::unwatch(CStringView path) {
    const auto found = numbers_.find(ryv::toUpper(path));
    if (found == numbers_.end())
        return false;
    const auto file = watched_.find(found->second);
    table_.drop(file->second.trail);
    trails_.erase(file->second.trail);
    if (poller_)
        poller_->remove(file->first);
    watched_.erase(file);
    numbers_.erase(found);
    return true;
}

/// How the file is now is what later changes are told against. Events that wait are about the time before.
void InotifyMonitor::begin(Number number, WatchedFile& file) {
    takeEvents();
    if (!hinted_.empty())
        deliverLater();
    file.hint = Hint::none;
    file.nameGone = file.renewed = false;
    follow(number, file);
    FileSight sight;
    if (sightOf(file, sight))
        file.see(sight);
    else
        lookLater(number, file);
    file.toldDeleted = false;
}

/// Events of the same change, if there are any, go into the same look, so that it is told once.
void InotifyMonitor::takePolled(const std::vector<Number>& numbers) {
    takeEvents();
    for (const Number number : numbers)
        if (const auto found = watched_.find(number); found != watched_.end())
            raise(number, found->second, Hint::look);
    settle();
    deliver();
}

void InotifyMonitor::raise(Number number, WatchedFile& file, Hint hint) {
    if (file.hint == Hint::none)
        hinted_.push_back(number);
    file.hint = std::max(file.hint, hint);
}

void InotifyMonitor::settle() {
    for (const Number number : std::exchange(hinted_, {}))
        if (const auto found = watched_.find(number); found != watched_.end())
            if (look(number, found->second))
                judge(number, found->second);
}

/// Takes a look as close as the hint asks for; false when nothing can have changed.
bool InotifyMonitor::look(Number number, WatchedFile& file) {
    const Hint hint = std::exchange(file.hint, Hint::none);
    const FileMark now = markOf(file.native);
    if (hint == Hint::glance && now == file.mark && !file.written)
        return false;
    if (hint == Hint::look || !now.isSameFile(file.mark))
        follow(number, file);
    else
        file.setMark(now);
    return true;
}

/// Finds out where the path leads now, and renews the watches. New ones are added before old ones go, so
/// that those needed by both are never taken off.
void InotifyMonitor::follow(Number number, WatchedFile& file) {
    std::string native;
    if (mapper_.toNative(file.path, native).ok())
        file.native = native;
    const Number trail = ++lastNumber_;
    trails_[trail] = number;
    const TrailResult result = followTrail(table_, system_, file.native, trail);
    table_.drop(file.trail);
    trails_.erase(file.trail);
    file.trail = trail;
    // The marks come before any closer look, so that the poller finds what changes in between.
    const FileMark folderMark = markOf(std::string(nativeFolder(file.native)));
    file.setMark(markOf(file.native));
    file.alwaysPolled = file.alwaysPolled || result.isRemote;
    file.polled = file.alwaysPolled || result.failure != 0;
    poll(number, file, folderMark);
    if (result.failure != 0)
        warnOnce(result.failure);
}

void InotifyMonitor::poll(Number number, const WatchedFile& file, const FileMark& folderMark) {
    if (!file.polled) {
        if (poller_)
            poller_->remove(number);
        return;
    }
    if (!poller_)
        poller_ = std::make_unique<PollThread>(options_.pollPeriod,
            [this, &loop = loop_, run = std::weak_ptr(run_)](const std::vector<Number>& changed) {
                loop.call([this, run, changed] {
                    if (run.lock())
                        takePolled(changed);
                });
            });
    if (!poller_->set(number, {file.native, std::string(nativeFolder(file.native)), file.mark, folderMark}))
        warnOnce(EAGAIN);
}

void InotifyMonitor::judge(Number number, WatchedFile& file) {
    FileSight sight;
    if (!sightOf(file, sight))
        return lookLater(number, file);
    for (const ryv::FileChange change : file.see(sight))
        notices_.push_back({number, change});
}

/// The poller will find every file to be changed that it has no mark of.
void InotifyMonitor::lookLater(Number number, WatchedFile& file) {
    file.mark = noMark;
    file.polled = true;
    poll(number, file, noMark);
}

/// False when the system cannot tell.
bool InotifyMonitor::sightOf(const WatchedFile& file, FileSight& sight) {
    const FileStatus status = files_.information(file.path, sight.information);
    sight.isThere = status.ok() && !sight.information.isFolder;
    return status.ok() || ryv::meansGone(status.error);
}

/// A receiver may change the list, stop the monitoring, or pump the loop and so come here again. One that
/// throws does not keep what is left from being told.
void InotifyMonitor::deliver() {
    while (receiver_ && !notices_.empty()) {
        const Notice notice = notices_.front();
        notices_.pop_front();
        const auto found = watched_.find(notice.file);
        if (found == watched_.end())
            continue;
        const CString path = found->second.path;
        try {
            receiver_->fileChanged(path, notice.change);
        } catch (...) {
            deliverLater();
            throw;
        }
    }
}

void InotifyMonitor::deliverLater() {
    loop_.call([this, run = std::weak_ptr(run_)] {
        if (!run.lock())
            return;
        settle();
        deliver();
    });
}

void InotifyMonitor::warnOnce(int systemCode) {
    if (std::exchange(warned_, true) || !options_.warn)
        return;
    const std::string reason = std::generic_category().message(systemCode);
    options_.warn(u"Not all files can be watched (" + ryv::decodeUtf8(reason) +
                  u"); they are looked at from time to time instead.");
}

} // namespace drafta
