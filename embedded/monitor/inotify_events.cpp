// The half of the monitor that takes the system's events in.

#include "base/fold.h"
#include "embedded/monitor/inotify_monitor.h"
#include "embedded/os/file_error.h"
#include "embedded/os/native_path.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <sys/inotify.h>
#include <unistd.h>

namespace drafta {

using ryv::CString;
using ryv::CStringView;
using Hint = WatchedFile::Hint;

namespace {

constexpr std::size_t bufferSize = 65536;
constexpr std::uint32_t writeEvents = IN_MODIFY | IN_CLOSE_WRITE;
constexpr std::uint32_t newFileEvents = IN_CREATE | IN_MOVED_TO;
constexpr std::uint32_t newContentEvents = newFileEvents | IN_CLOSE_WRITE;
constexpr std::uint32_t removalEvents = IN_DELETE | IN_MOVED_FROM;

bool isAscii(CStringView text) {
    return std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit < 0x80; });
}

/// File systems that ignore case have rules of their own; they all agree on ASCII.
bool mayBeSameName(CStringView a, CStringView b) {
    return !isAscii(a) || !isAscii(b);
}

} // namespace

void InotifyMonitor::takeEvents() {
    std::array<char, bufferSize> buffer;
    const ssize_t size =
        uninterrupted([&] { return ::read(table_.descriptor(), buffer.data(), buffer.size()); });
    for (std::size_t at = 0; size > 0 && at < static_cast<std::size_t>(size);) {
        inotify_event event{};
        std::memcpy(&event, buffer.data() + at, sizeof event);
        const char* const name = buffer.data() + at + sizeof event;
        takeEvent(event, {name, ::strnlen(name, event.len)});
        at += sizeof event + event.len;
    }
}

void InotifyMonitor::readEvents() {
    takeEvents();
    settle();
    deliver();
}

void InotifyMonitor::takeEvent(const inotify_event& event, std::string_view name) {
    if (event.mask & IN_Q_OVERFLOW)
        return takeOverflow();
    const CString text = componentFromNative(name);
    for (const auto& [trail, interest] : table_.interests(event.wd))
        takeInterest(interest, event.mask, text);
    if (event.mask & IN_IGNORED)
        table_.forget(event.wd);
}

/// A name is empty when the event is about what is watched itself.
void InotifyMonitor::takeInterest(const WatchInterest& interest, std::uint32_t mask, CStringView name) {
    const Number number = trails_.at(interest.trail);
    WatchedFile& file = watched_.at(number);
    if (mask & IN_UNMOUNT) // nothing tells when it is mounted again
        file.alwaysPolled = true;
    if (interest.role == WatchInterest::Role::file && (mask & writeEvents)) {
        file.written = true;
        raise(number, file, Hint::glance);
    } else if (name.empty()) {
        raise(number, file, Hint::look);
    } else if (interest.role != WatchInterest::Role::name) {
        return;
    } else if (ryv::equalNoCase(name, interest.name)) {
        if (interest.isEnd)
            takeName(file, mask, name == interest.name);
        raise(number, file, Hint::look);
    } else if (interest.isEnd && mayBeSameName(name, interest.name)) {
        raise(number, file, Hint::glance);
    }
}

/// In another spelling it may be the name of a file beside the one that is watched: that one is looked at.
void InotifyMonitor::takeName(WatchedFile& file, std::uint32_t mask, bool isExact) {
    if (mask & newFileEvents)
        file.nameTaken();
    if (isExact && (mask & removalEvents))
        file.nameRemoved();
    file.written = file.written || (isExact && (mask & newContentEvents));
}

/// Events were lost. A file that was written just before the last look may look the same after another write.
void InotifyMonitor::takeOverflow() {
    for (auto& [number, file] : watched_) {
        file.written = file.written || file.wasFresh;
        raise(number, file, Hint::look);
    }
}

} // namespace drafta
