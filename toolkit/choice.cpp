#include "toolkit/choice.h"

#include <algorithm>

namespace ryv {

namespace {
template <class Predicate>
std::optional<std::size_t> find(const Choices& choices, Predicate fits) {
    const auto hit = std::find_if(choices.begin(), choices.end(),
        [&](const Choice& choice) { return !choice.separator && fits(choice); });
    if (hit == choices.end())
        return std::nullopt;
    return static_cast<std::size_t>(hit - choices.begin());
}
} // namespace

std::optional<std::size_t> findChoice(const Choices& choices, CStringView text) noexcept {
    return find(choices, [&](const Choice& choice) { return choice.text == text; });
}

std::optional<std::size_t> findStoredValue(const Choices& choices, CStringView value) noexcept {
    return find(choices, [&](const Choice& choice) { return choice.storedValue() == value; });
}

} // namespace ryv
