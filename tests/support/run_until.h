// A real message loop that is run until something has happened.
#pragma once

#include "embedded/loop/epoll_message_loop.h"

namespace ryv::test {

/// False when the condition does not hold within 20 seconds.
template <class Condition>
bool runUntil(drafta::EpollMessageLoop& loop, Condition condition) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!condition() && std::chrono::steady_clock::now() < end)
        loop.wait(std::chrono::milliseconds(20));
    return condition();
}

} // namespace ryv::test
