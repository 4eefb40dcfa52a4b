#include "embedded/loop/epoll_message_loop.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <limits>
#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <sys/timerfd.h>

namespace drafta {

using ryv::WindowHandle;
using std::chrono::milliseconds;

namespace {

constexpr int mostRounds = 16;
constexpr std::size_t mostReports = 32;
constexpr std::uint64_t ownSource = 0; // nothing to call: the round itself looks at what it stands for

int timeOut(std::optional<milliseconds> atMost) {
    if (!atMost)
        return -1;
    const milliseconds::rep longest = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp<milliseconds::rep>(atMost->count(), 0, longest));
}

/// A time of the steady clock in the terms of the system's calls, whose monotonic clock it is.
timespec asTimespec(TimerQueue::Time time) {
    const auto sinceStart = time.time_since_epoch();
    const auto seconds = std::chrono::floor<std::chrono::seconds>(sinceStart);
    const auto rest = std::chrono::duration_cast<std::chrono::nanoseconds>(sinceStart - seconds);
    return {static_cast<time_t>(seconds.count()), static_cast<long>(rest.count())};
}

} // namespace

EpollMessageLoop::EpollMessageLoop()
    : epoll_(::epoll_create1(EPOLL_CLOEXEC)),
      timer_(::timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK)),
      wake_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    usable_ = epoll_.isOpen() && watch(queue_.descriptor(), ownSource) && watch(timer_.get(), ownSource) &&
              watch(wake_.get(), ownSource);
    if (!usable_)
        epoll_.reset();
}

WindowHandle EpollMessageLoop::createWindow(ryv::MessageReceiver& receiver) {
    if (!usable_)
        return WindowHandle::none;
    const auto window = static_cast<WindowHandle>(++lastWindow_);
    windows_[window] = &receiver;
    queue_.open(window);
    return window;
}

void EpollMessageLoop::destroyWindow(WindowHandle window) {
    queue_.close(window);
    windows_.erase(window);
    timers_.killAll(window);
    armTimer();
}

bool EpollMessageLoop::isWindow(WindowHandle window) {
    return windows_.contains(window);
}

bool EpollMessageLoop::setTimer(WindowHandle window, std::uint32_t id, milliseconds period) {
    if (!isWindow(window))
        return false;
    timers_.start({window, id}, period, std::chrono::steady_clock::now());
    armTimer();
    return true;
}

void EpollMessageLoop::killTimer(WindowHandle window, std::uint32_t id) {
    timers_.kill({window, id});
    armTimer();
}

bool EpollMessageLoop::post(
    WindowHandle window, std::uint32_t number, std::uintptr_t first, std::intptr_t second) {
    return queue_.post(window, number, first, second);
}

void EpollMessageLoop::call(std::function<void()> work) {
    queue_.call(std::move(work));
}

void EpollMessageLoop::pump() {
    for (int rounds = 0; rounds < mostRounds && round(0); ++rounds) {
    }
}

bool EpollMessageLoop::wait(std::optional<milliseconds> atMost) {
    return round(quit_ ? 0 : timeOut(atMost));
}

void EpollMessageLoop::run() {
    while (usable_ && !quit_)
        round(-1);
    quit_ = false;
}

void EpollMessageLoop::quit() noexcept {
    const int error = errno; // belongs to whatever a signal interrupted
    quit_ = true;
    ::eventfd_write(wake_.get(), 1);
    errno = error;
}

bool EpollMessageLoop::addDescriptor(int descriptor, std::function<void()> readable) {
    if (!usable_ || !watch(descriptor, lastSource_ + 1))
        return false;
    sources_[++lastSource_] = {
        descriptor, std::make_shared<const std::function<void()>>(std::move(readable))};
    return true;
}

void EpollMessageLoop::removeDescriptor(int descriptor) {
    if (std::erase_if(sources_, [=](const auto& each) { return each.second.descriptor == descriptor; }) != 0)
        ::epoll_ctl(epoll_.get(), EPOLL_CTL_DEL, descriptor, nullptr);
}

bool EpollMessageLoop::watch(int descriptor, std::uint64_t source) {
    epoll_event event{};
    event.events = EPOLLIN;
    event.data.u64 = source;
    return ::epoll_ctl(epoll_.get(), EPOLL_CTL_ADD, descriptor, &event) == 0;
}

/// True when something was handled.
bool EpollMessageLoop::round(int atMost) {
    if (!usable_)
        return handleMessages();
    std::array<epoll_event, mostReports> reports{};
    const int count = ::epoll_wait(epoll_.get(), reports.data(), static_cast<int>(reports.size()), atMost);
    if (count <= 0)
        return false;
    eventfd_t woken = 0;
    ::eventfd_read(wake_.get(), &woken); // quit_ says it already
    bool handled = handleMessages();
    handled = handleTimers() || handled;
    for (int i = 0; i < count; ++i)
        handled = handleReadable(reports[static_cast<std::size_t>(i)].data.u64) || handled;
    return handled;
}

bool EpollMessageLoop::handleMessages() {
    bool handled = false;
    MessageQueue::Message message;
    for (const std::uint64_t newest = queue_.newest(); queue_.take(newest, message); handled = true) {
        if (message.window == WindowHandle::none)
            message.work();
        else if (const auto window = windows_.find(message.window); window != windows_.end())
            window->second->onMessage(message.number, message.first, message.second);
    }
    return handled;
}

bool EpollMessageLoop::handleTimers() {
    bool handled = false;
    const TimerQueue::Time limit = std::chrono::steady_clock::now();
    while (const auto timer = timers_.expire(limit, std::chrono::steady_clock::now())) {
        armTimer();
        windows_.at(timer->window)->onTimer(timer->id);
        handled = true;
    }
    return handled;
}

bool EpollMessageLoop::handleReadable(std::uint64_t source) {
    const auto found = sources_.find(source);
    if (found == sources_.end())
        return false;
    const auto readable = found->second.readable;
    (*readable)();
    return true;
}

/// Sets the system's timer to the first one of ours, which also takes back a report of an earlier one.
void EpollMessageLoop::armTimer() {
    const auto due = timers_.due();
    if (due == armed_)
        return;
    armed_ = due;
    itimerspec time{};
    if (due)
        time.it_value = asTimespec(*due);
    ::timerfd_settime(timer_.get(), TFD_TIMER_ABSTIME, &time, nullptr);
}

} // namespace drafta
