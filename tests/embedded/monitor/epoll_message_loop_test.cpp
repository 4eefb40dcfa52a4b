#include "embedded/loop/epoll_message_loop.h"

#include <array>
#include <csignal>
#include <gtest/gtest.h>
#include <poll.h>
#include <string>
#include <sys/time.h>
#include <thread>
#include <vector>

namespace {

using drafta::EpollMessageLoop;
using ryv::WindowHandle;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

/// Writes down what it is told, and does what the test wants on top.
struct Window final : ryv::MessageReceiver {
    std::string told;
    std::function<void(std::uint32_t)> message = [](std::uint32_t) {};
    std::function<void(std::uint32_t)> timer = [](std::uint32_t) {};

    std::intptr_t onMessage(std::uint32_t number, std::uintptr_t, std::intptr_t) override {
        told += "m" + std::to_string(number) + ' ';
        message(number);
        return 0;
    }
    void onTimer(std::uint32_t id) override {
        told += "t" + std::to_string(id) + ' ';
        timer(id);
    }
};

struct Pipe {
    Pipe() {
        std::array<int, 2> ends{};
        if (::pipe(ends.data()) != 0)
            throw std::runtime_error("no pipe");
        out = drafta::Descriptor(ends[0]);
        in = drafta::Descriptor(ends[1]);
        fill();
    }
    void fill() const { EXPECT_EQ(::write(in.get(), "x", 1), 1); }
    void drain() const {
        char byte = 0;
        EXPECT_EQ(::read(out.get(), &byte, 1), 1);
    }
    drafta::Descriptor out, in;
};

class EpollMessageLoopTest : public testing::Test {
protected:
    /// Lets time pass on the clock, not on the loop.
    static void letPass(milliseconds time) {
        const auto end = steady_clock::now() + time;
        while (steady_clock::now() < end) {
        }
    }
    template <class Condition>
    bool waitFor(Condition condition) {
        const auto end = steady_clock::now() + std::chrono::seconds(20);
        while (!condition() && steady_clock::now() < end)
            loop.wait(milliseconds(50));
        return condition();
    }
    bool isReadable() const {
        pollfd entry{loop.descriptor(), POLLIN, 0};
        return ::poll(&entry, 1, 0) == 1;
    }
    /// Whether the descriptor becomes readable without help of the loop.
    bool becomesReadable() const {
        pollfd entry{loop.descriptor(), POLLIN, 0};
        return ::poll(&entry, 1, 20'000) == 1;
    }

    EpollMessageLoop loop;
    Window receiver;
    WindowHandle window = loop.createWindow(receiver);
};

TEST_F(EpollMessageLoopTest, pump_messagesAndCalls_inTheOrderTheyCame) {
    loop.post(window, 1, 0, 0);
    loop.call([this] { receiver.told += "call "; });
    loop.post(window, 2, 0, 0);
    receiver.message = [this](std::uint32_t number) {
        if (number == 1)
            loop.post(window, 3, 0, 0);
    };
    loop.pump();
    EXPECT_EQ(receiver.told, "m1 call m2 m3 ");
    EXPECT_FALSE(isReadable());
}

TEST_F(EpollMessageLoopTest, descriptor_forAnotherLoop_readableWhilePending) {
    EXPECT_FALSE(isReadable());
    loop.post(window, 1, 0, 0);
    EXPECT_TRUE(isReadable());
    loop.pump();
    EXPECT_FALSE(isReadable());
    loop.setTimer(window, 1, milliseconds(5));
    EXPECT_TRUE(becomesReadable());
    loop.killTimer(window, 1);
    EXPECT_FALSE(isReadable()) << "an expired timer that was killed is nothing to handle";
    loop.pump();
    EXPECT_EQ(receiver.told, "m1 ");
    loop.post(window, 2, 0, 0);
    loop.destroyWindow(window);
    EXPECT_FALSE(isReadable()) << "nor is a message to a window that is gone";
}

TEST_F(EpollMessageLoopTest, wait_withoutAnything_endsWithTheTime) {
    const auto begin = steady_clock::now();
    EXPECT_FALSE(loop.wait(milliseconds(20)));
    EXPECT_GE(steady_clock::now() - begin, milliseconds(20));
    EXPECT_FALSE(loop.wait(milliseconds(-1)));
}

TEST_F(EpollMessageLoopTest, timer_untilKilled_toldAgainAndAgain) {
    loop.setTimer(window, 7, milliseconds(2));
    EXPECT_TRUE(waitFor([&] { return receiver.told == "t7 t7 t7 "; }));
    loop.killTimer(window, 7);
    EXPECT_FALSE(loop.wait(milliseconds(10)));
}

TEST_F(EpollMessageLoopTest, timer_manyPeriodsLate_toldOnce) {
    loop.setTimer(window, 1, milliseconds(5));
    loop.setTimer(window, 2, milliseconds(1000'000));
    letPass(milliseconds(30));
    EXPECT_TRUE(loop.wait(milliseconds(0)));
    EXPECT_EQ(receiver.told, "t1 ");
}

TEST_F(EpollMessageLoopTest, pump_handlersThatNeverFinish_keepNobodyFromHisTurn) {
    Pipe pipe;
    int read = 0;
    loop.addDescriptor(pipe.out.get(), [&] { ++read; });
    receiver.message = [this](std::uint32_t) { loop.post(window, 1, 0, 0); };
    loop.post(window, 1, 0, 0);
    loop.setTimer(window, 2, milliseconds(1));
    letPass(milliseconds(2));
    loop.pump();
    EXPECT_NE(receiver.told.find("t2"), std::string::npos);
    EXPECT_GT(read, 1);
    EXPECT_TRUE(isReadable());
    loop.removeDescriptor(pipe.out.get());
}

TEST_F(EpollMessageLoopTest, pump_fromAHandler_goesOnInOrder) {
    receiver.message = [this](std::uint32_t number) {
        if (number == 1) {
            loop.pump();
            receiver.told += "back ";
        }
    };
    for (const std::uint32_t number : {1U, 2U, 3U})
        loop.post(window, number, 0, 0);
    loop.pump();
    EXPECT_EQ(receiver.told, "m1 m2 m3 back ");
}

TEST_F(EpollMessageLoopTest, destroyWindow_fromItsHandlers_nothingIsToldAfterwards) {
    Window second;
    const WindowHandle other = loop.createWindow(second);
    receiver.message = [&](std::uint32_t) { loop.destroyWindow(window); };
    second.timer = [&](std::uint32_t) { loop.destroyWindow(other); };
    loop.post(window, 1, 0, 0);
    loop.post(window, 2, 0, 0);
    loop.setTimer(window, 1, milliseconds(1));
    loop.setTimer(other, 1, milliseconds(1));
    loop.setTimer(other, 2, milliseconds(1));
    letPass(milliseconds(3));
    loop.pump();
    EXPECT_EQ(receiver.told, "m1 ");
    EXPECT_EQ(second.told, "t1 ");
    EXPECT_FALSE(loop.isWindow(window));
    EXPECT_FALSE(loop.post(window, 3, 0, 0));
    EXPECT_FALSE(loop.setTimer(other, 1, milliseconds(1)));
    EXPECT_NE(loop.createWindow(second), other);
}

TEST_F(EpollMessageLoopTest, killTimer_expiredButNotTold_isNotTold) {
    receiver.timer = [this](std::uint32_t id) { loop.killTimer(window, 3 - id); };
    loop.setTimer(window, 1, milliseconds(1));
    loop.setTimer(window, 2, milliseconds(1));
    letPass(milliseconds(3));
    loop.wait(milliseconds(0));
    EXPECT_EQ(receiver.told, "t1 ");
}

TEST_F(EpollMessageLoopTest, removeDescriptor_ownAndOthersFromAHandler_noneIsCalledAgain) {
    Pipe first, second, third;
    std::string told;
    const auto removeAll = [&] {
        told += "called ";
        for (const Pipe* pipe : {&first, &second})
            loop.removeDescriptor(pipe->out.get());
        // A descriptor that gets the number of a removed one is not mistaken for it.
        second.out.reset();
        const int again = ::dup2(third.out.get(), ::dup(third.out.get()));
        EXPECT_TRUE(loop.addDescriptor(again, [&, again] {
            told += "new ";
            loop.removeDescriptor(again);
            ::close(again);
        }));
    };
    EXPECT_TRUE(loop.addDescriptor(first.out.get(), removeAll));
    EXPECT_TRUE(loop.addDescriptor(second.out.get(), removeAll));
    EXPECT_FALSE(loop.addDescriptor(first.out.get(), removeAll)) << "is there already";
    EXPECT_TRUE(loop.wait(milliseconds(0)));
    EXPECT_EQ(told, "called ");
    loop.pump();
    EXPECT_EQ(told, "called new ");
}

TEST_F(EpollMessageLoopTest, post_fromManyThreads_allArriveEachThreadsInOrder) {
    constexpr std::uint32_t threads = 4, each = 2000;
    std::array<std::uint32_t, threads> next{};
    bool inOrder = true;
    std::uint32_t calls = 0;
    receiver.message = [&](std::uint32_t number) {
        std::uint32_t& expected = next.at(number / each);
        inOrder = inOrder && number % each == expected++;
    };
    std::vector<std::thread> senders;
    for (std::uint32_t thread = 0; thread < threads; ++thread)
        senders.emplace_back([&, thread] {
            for (std::uint32_t i = 0; i < each; ++i) {
                loop.post(window, thread * each + i, 0, 0);
                loop.call([&calls] { ++calls; });
            }
        });
    EXPECT_TRUE(waitFor([&] { return calls == threads * each; }));
    for (std::thread& sender : senders)
        sender.join();
    EXPECT_TRUE(inOrder);
    EXPECT_EQ(next, (std::array<std::uint32_t, threads>{each, each, each, each}));
}

EpollMessageLoop* interrupted = nullptr;

TEST_F(EpollMessageLoopTest, quit_fromSignalThreadOrBeforehand_runReturns) {
    interrupted = &loop;
    const auto before = std::signal(SIGALRM, [](int) { interrupted->quit(); });
    itimerval soon{};
    soon.it_value.tv_usec = 20'000;
    ::setitimer(ITIMER_REAL, &soon, nullptr);
    loop.run();
    std::signal(SIGALRM, before);

    std::thread other([this] { loop.quit(); });
    loop.run();
    other.join();

    loop.quit();
    EXPECT_FALSE(loop.wait(std::nullopt)) << "no wait is long any more";
    loop.pump();
    EXPECT_FALSE(isReadable()) << "another loop is not kept busy";
    loop.run();
    loop.post(window, 1, 0, 0);
    loop.call([this] { loop.quit(); });
    loop.run();
    EXPECT_EQ(receiver.told, "m1 ");
}

} // namespace
