#include "embedded/loop/message_queue.h"

#include <algorithm>
#include <sys/eventfd.h>

namespace drafta {

using ryv::WindowHandle;

MessageQueue::MessageQueue() : ready_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

void MessageQueue::open(WindowHandle window) {
    const std::lock_guard lock(mutex_);
    windows_.insert(window);
}

void MessageQueue::close(WindowHandle window) {
    const std::lock_guard lock(mutex_);
    windows_.erase(window);
    if (std::erase_if(messages_, [window](const Message& each) { return each.window == window; }) != 0)
        lowerWhenEmpty();
}

bool MessageQueue::post(
    WindowHandle window, std::uint32_t number, std::uintptr_t first, std::intptr_t second) {
    const std::lock_guard lock(mutex_);
    if (!windows_.contains(window))
        return false;
    add({0, window, number, first, second, {}});
    return true;
}

void MessageQueue::call(std::function<void()> work) {
    const std::lock_guard lock(mutex_);
    add({0, WindowHandle::none, 0, 0, 0, std::move(work)});
}

std::uint64_t MessageQueue::newest() const {
    const std::lock_guard lock(mutex_);
    return newest_;
}

bool MessageQueue::take(std::uint64_t upTo, Message& message) {
    const std::lock_guard lock(mutex_);
    if (messages_.empty() || messages_.front().order > upTo)
        return false;
    message = std::move(messages_.front());
    messages_.pop_front();
    lowerWhenEmpty();
    return true;
}

void MessageQueue::add(Message message) {
    message.order = ++newest_;
    messages_.push_back(std::move(message));
    if (messages_.size() == 1)
        ::eventfd_write(ready_.get(), 1);
}

void MessageQueue::lowerWhenEmpty() {
    eventfd_t count = 0;
    if (messages_.empty())
        ::eventfd_read(ready_.get(), &count);
}

} // namespace drafta
