// What waits to be handled on the main thread, whoever sent it.
#pragma once

#include "embedded/loop/descriptor.h"
#include "platform/os/message_loop.h"

#include <deque>
#include <mutex>
#include <set>

namespace drafta {

/// Messages and calls in the order in which they came. Any thread may use any operation.
class MessageQueue {
public:
    struct Message {
        std::uint64_t order = 0;                            ///< grows from one to the next
        ryv::WindowHandle window = ryv::WindowHandle::none; ///< none: a call
        std::uint32_t number = 0;
        std::uintptr_t first = 0;
        std::intptr_t second = 0;
        std::function<void()> work; ///< what is called
    };

    MessageQueue();

    /// Readable as long as something waits; -1 when the system had no descriptor left.
    int descriptor() const noexcept { return ready_.get(); }

    /// Only windows that are open can be posted to. Closing one drops what waits for it.
    void open(ryv::WindowHandle window);
    void close(ryv::WindowHandle window);

    bool post(ryv::WindowHandle window, std::uint32_t number, std::uintptr_t first, std::intptr_t second);
    void call(std::function<void()> work);

    /// The order of the message that came last, whether it still waits or not.
    std::uint64_t newest() const;

    /// Takes the next message that came no later than `upTo`; false when none does.
    bool take(std::uint64_t upTo, Message& message);

private:
    void add(Message message);
    void lowerWhenEmpty();

    Descriptor ready_; // counts 1 exactly while messages_ holds something
    mutable std::mutex mutex_;
    std::set<ryv::WindowHandle> windows_;
    std::deque<Message> messages_;
    std::uint64_t newest_ = 0;
};

} // namespace drafta
