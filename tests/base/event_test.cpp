#include "base/event.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace ryv {
namespace {

/// An event whose handlers write their letter, so that a story reads as one text.
class EventTest : public testing::Test {
protected:
    Subscription writing(char letter) {
        return event->subscribe([this, letter] { story += letter; });
    }
    std::string fired() {
        story.clear();
        event->fire();
        return story;
    }

    std::string story;
    std::unique_ptr<Event<>> event = std::make_unique<Event<>>();
};

TEST_F(EventTest, subscription_reset_endsOnlyItsOwnHandler) {
    const auto a = writing('a');
    auto b = writing('b');
    const auto c = writing('c');
    b.reset();
    b.reset();
    EXPECT_EQ(fired(), "ca");
    EXPECT_EQ(event->handlerCount(), 2u);
}

TEST_F(EventTest, subscription_moved_staysUntilTheNewOwnerEnds) {
    std::optional<Subscription> owner;
    {
        auto a = writing('a');
        owner = std::move(a);
    }
    EXPECT_EQ(fired(), "a");
    *owner = writing('b');
    EXPECT_EQ(fired(), "b");
    owner.reset();
    EXPECT_EQ(fired(), "");
}

TEST_F(EventTest, handler_unsubscribesItself_othersStillRun) {
    const auto a = writing('a');
    Subscription own;
    own = event->subscribe([&] {
        own.reset();
        story += 'o';
    });
    const auto c = writing('c');
    EXPECT_EQ(fired(), "coa");
    EXPECT_EQ(fired(), "ca");
}

TEST_F(EventTest, handler_subscribesAnother_itRunsFromTheNextFiringOn) {
    std::vector<Subscription> added;
    const auto a = event->subscribe([&] {
        story += 'a';
        added.push_back(writing('n'));
    });
    EXPECT_EQ(fired(), "a");
    EXPECT_EQ(fired(), "na");
}

TEST_F(EventTest, handler_destroysTheEvent_firingEndsInOrder) {
    const auto a = writing('a');
    const auto b = event->subscribe([this] { event.reset(); });
    const auto c = writing('c');
    EXPECT_EQ(fired(), "ca");
    EXPECT_EQ(event, nullptr);
}

TEST_F(EventTest, subscription_outlivesEvent_isHarmless) {
    auto a = writing('a');
    auto b = writing('b');
    event.reset();
    a.reset();
    b = Subscription();
    EXPECT_EQ(story, "");
}

TEST_F(EventTest, handler_throws_laterFiringsStillWork) {
    const auto a = writing('a');
    auto b = event->subscribe([] { throw std::runtime_error("refused"); });
    EXPECT_THROW(event->fire(), std::runtime_error);
    b.reset();
    EXPECT_EQ(fired(), "a");
}

TEST(Event, fire_arguments_reachEveryHandler) {
    Event<const std::string&, int&> event;
    const auto a =
        event.subscribe([](const std::string& text, int& sum) { sum += static_cast<int>(text.size()); });
    const auto b = event.subscribe([](const std::string&, int& sum) { sum *= 2; });
    int sum = 5;
    event.fire("abc", sum);
    EXPECT_EQ(sum, 13);
}

TEST_F(EventTest, handler_unsubscribesOlderOne_itIsNotCalledAnyMore) {
    auto a = writing('a');
    const auto b = writing('b');
    const auto c = event->subscribe([&] { a.reset(); });
    EXPECT_EQ(fired(), "b");
}

} // namespace
} // namespace ryv
