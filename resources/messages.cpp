#include "resources/messages.h"

#include <algorithm>
#include <iterator>

namespace ryv {

namespace {

struct Message {
    int number = 0;
    CStringView text;
};

constexpr bool isBefore(const Message& message, int number) noexcept {
    return message.number < number;
}

// In ascending order of the numbers.
// clang-format off
constexpr Message messages[] = {
    {268, u"The settings block KQ_M could not be inserted into the drawing."},
    {269, u"Settings Block"},
};
// clang-format on

static_assert(
    std::adjacent_find(std::begin(messages), std::end(messages),
        [](const Message& a, const Message& b) { return !isBefore(a, b.number); }) == std::end(messages));

} // namespace

CStringView messageText(int number) noexcept {
    const auto hit = std::lower_bound(std::begin(messages), std::end(messages), number, isBefore);
    return hit != std::end(messages) && hit->number == number ? hit->text : CStringView();
}

} // namespace ryv
