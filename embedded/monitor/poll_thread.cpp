#include "embedded/monitor/poll_thread.h"

#include <condition_variable>
#include <csignal>
#include <map>
#include <mutex>
#include <system_error>
#include <thread>

namespace drafta {

using Items = std::map<std::uint64_t, PollThread::Item>;

/// What owner and thread share; the last of the two to go takes it along.
struct PollThread::Shared {
    std::chrono::milliseconds period{0};
    std::mutex mutex; // guards all that follows
    std::condition_variable changed;
    bool stopped = false;
    Report report;
    Items items;

    void run();
    void takeIn(const Items& before, const Items& after);
};

namespace {

Items lookAt(Items items) {
    for (auto& [number, item] : items) {
        item.fileMark = markOf(item.file);
        item.folderMark = markOf(item.folder);
    }
    return items;
}

/// Keeps signals to the threads that expect them while a thread is started, which inherits this.
class SignalsBlocked {
public:
    SignalsBlocked() {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &before_);
    }
    SignalsBlocked(const SignalsBlocked&) = delete;
    SignalsBlocked& operator=(const SignalsBlocked&) = delete;
    ~SignalsBlocked() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

private:
    sigset_t before_{};
};

} // namespace

void PollThread::Shared::run() {
    std::unique_lock lock(mutex);
    while (!stopped) {
        changed.wait(lock, [this] { return stopped || !items.empty(); });
        if (changed.wait_for(lock, period, [this] { return stopped; }))
            return;
        const Items before = items;
        lock.unlock();
        const Items after = lookAt(before); // may take as long as the slowest server
        lock.lock();
        takeIn(before, after);
    }
}

/// What the owner saw in the meantime is newer than what the thread saw, and stays for the next time.
void PollThread::Shared::takeIn(const Items& before, const Items& after) {
    std::vector<std::uint64_t> numbers;
    for (auto& [number, item] : items) {
        const auto old = before.find(number);
        if (old == before.end() || !(old->second == item) || after.at(number) == item)
            continue;
        item = after.at(number);
        numbers.push_back(number);
    }
    if (!stopped && !numbers.empty())
        report(numbers);
}

PollThread::PollThread(std::chrono::milliseconds period, Report report)
    : shared_(std::make_shared<Shared>()) {
    shared_->period = period;
    shared_->report = std::move(report);
}

PollThread::~PollThread() {
    const std::lock_guard lock(shared_->mutex);
    shared_->stopped = true;
    shared_->changed.notify_all();
}

bool PollThread::set(std::uint64_t number, Item item) {
    {
        const std::lock_guard lock(shared_->mutex);
        shared_->items[number] = std::move(item);
        shared_->changed.notify_all();
    }
    started_ = started_ || startThread();
    return started_;
}

void PollThread::remove(std::uint64_t number) {
    const std::lock_guard lock(shared_->mutex);
    shared_->items.erase(number);
}

bool PollThread::startThread() {
    const SignalsBlocked blocked;
    try {
        std::thread([shared = shared_] { shared->run(); }).detach();
    } catch (const std::system_error&) {
        return false;
    }
    return true;
}

} // namespace drafta
