#include "programs/drafta/piped_lines.h"

#include "embedded/loop/epoll_message_loop.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>

namespace drafta {
namespace {

using Line = std::optional<std::string>;

class PipedLinesTest : public ::testing::Test {
protected:
    std::array<int, 2> pipe{};
    PipedLinesTest() { EXPECT_EQ(::pipe(pipe.data()), 0); }
    ~PipedLinesTest() override {
        ::close(pipe[0]);
        closeInput();
    }
    void write(std::string_view text) const {
        ASSERT_EQ(::write(pipe[1], text.data(), text.size()), static_cast<ssize_t>(text.size()));
    }
    void closeInput() {
        if (pipe[1] != -1)
            ::close(std::exchange(pipe[1], -1));
    }
};

TEST_F(PipedLinesTest, lines_endWithTheInputAtTheLatest) {
    const BackgroundWork none;
    PipedLines lines(pipe[0]);
    const std::string longLine(9000, 'x');
    write("a\n\n" + longLine + "\nno end");
    closeInput();
    for (const std::string& wanted : {std::string("a"), std::string(), longLine, std::string("no end")})
        EXPECT_EQ(lines.read(none), Line(wanted));
    EXPECT_EQ(lines.read(none), std::nullopt);
    EXPECT_EQ(lines.read(none), std::nullopt);
}

struct Ticks final : ryv::MessageReceiver {
    std::intptr_t onMessage(std::uint32_t, std::uintptr_t, std::intptr_t) override { return 0; }
    void onTimer(std::uint32_t) override { tell(++count); }
    std::function<void(int)> tell;
    int count = 0;
};

TEST_F(PipedLinesTest, timers_goOnWhileNoInputComes) {
    EpollMessageLoop loop;
    Ticks ticks;
    ticks.tell = [&](int count) {
        if (count == 3) // what ends the test: without the timer nothing would ever be written
            write("at last\n");
    };
    const ryv::WindowHandle window = loop.createWindow(ticks);
    ASSERT_TRUE(loop.setTimer(window, 1, std::chrono::milliseconds(1)));
    PipedLines lines(pipe[0]);
    const BackgroundWork work{loop.descriptor(), [&] { return loop.pump(), ticks.count < 5; }};
    EXPECT_EQ(lines.read(work), Line("at last"));
    EXPECT_EQ(ticks.count, 3);
    EXPECT_EQ(lines.read(work), std::nullopt) << "no more input is wanted";
    EXPECT_EQ(ticks.count, 5);
}

} // namespace
} // namespace drafta
