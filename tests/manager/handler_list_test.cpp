#include "manager/handler_list.h"

#include "manager/addin_handler.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace ryv {
namespace {

struct Receiver {
    char letter;
    std::string& story;
    std::function<void()> during = [] {};
    void hear(int number) {
        story += letter + std::to_string(number) + " ";
        during();
    }
    void listen(int) { story += "listen "; }
};

class HandlerListTest : public testing::Test {
protected:
    std::string fired() {
        story.clear();
        event(1);
        return story;
    }
    std::string story;
    HandlerList<int> event;
    Receiver a{'a', story};
    Receiver b{'b', story};
};

TEST_F(HandlerListTest, handlers_runNewestFirst_untilUnsubscribed) {
    EXPECT_FALSE(event.unsubscribe(a, &Receiver::hear));
    event.subscribe(a, &Receiver::hear);
    event.subscribe(b, &Receiver::hear);
    event.subscribe(a, &Receiver::listen);
    EXPECT_EQ(fired(), "listen b1 a1 ");
    EXPECT_TRUE(event.unsubscribe(a, &Receiver::hear));
    EXPECT_EQ(fired(), "listen b1 ");
    event.subscribe(a, &Receiver::hear);
    event.removeAll(&a);
    EXPECT_EQ(fired(), "b1 ");
    const HandlerList<int> copy = event;
    EXPECT_TRUE(copy.empty());
    const HandlerList<int> moved = std::move(event);
    EXPECT_FALSE(moved.empty());
}

TEST_F(HandlerListTest, handlersThatComeAndGo_whileFired_areNotCalledWrongly) {
    Receiver c{'c', story};
    event.subscribe(a, &Receiver::hear);
    event.subscribe(b, &Receiver::hear);
    b.during = [&] { // the newest removes itself and the next, and adds one
        event.removeAll(&b);
        event.removeAll(&a);
        event.subscribe(c, &Receiver::hear);
    };
    EXPECT_EQ(fired(), "b1 ");
    c.during = [&] { // fires the event inside of itself
        event.removeAll(&c);
        event.subscribe(a, &Receiver::hear);
        event(2);
    };
    EXPECT_EQ(fired(), "c1 a2 ");
    EXPECT_EQ(fired(), "a1 ");
}

TEST_F(HandlerListTest, throwingHandler_leavesTheListUsable) {
    event.subscribe(a, &Receiver::hear);
    a.during = [&] {
        event.removeAll(&a);
        throw 1;
    };
    EXPECT_THROW(event(1), int);
    EXPECT_TRUE(event.empty());
}

TEST(AddinHandler, synchronize_withoutSubscriber_isFalse) {
    RyvOZMAddinHandler& handler = *RyvOZMAddinHandler::GetInstance();
    EXPECT_EQ(&handler, RyvOZMAddinHandler::GetInstance());
    EXPECT_FALSE(handler.synchronize());
}

} // namespace
} // namespace ryv
