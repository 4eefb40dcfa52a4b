#include "embedded/palettes/screen.h"

#include <charconv>

namespace drafta {

namespace {

/// Takes a number from the front of a text; false when there is none in the range.
bool takeNumber(std::string_view& text, int least, int most, int& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || number < least || number > most)
        return false;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return true;
}

bool takeSign(std::string_view& text, char sign) {
    const bool found = text.starts_with(sign);
    text.remove_prefix(found ? 1 : 0);
    return found;
}

} // namespace

std::optional<Screen> Screen::parse(std::string_view text) {
    constexpr int leastPixels = 100;
    constexpr int mostPixels = 32767;
    Screen screen;
    const bool hasSize = takeNumber(text, leastPixels, mostPixels, screen.width) && takeSign(text, 'x') &&
                         takeNumber(text, leastPixels, mostPixels, screen.height);
    if (!hasSize || (takeSign(text, '@') && !takeNumber(text, 50, 1000, screen.percent)) || !text.empty())
        return std::nullopt;
    return screen;
}

} // namespace drafta
