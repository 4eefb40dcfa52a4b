// Emphasis on a terminal, and when to use it.
#pragma once

#include <string>
#include <string_view>

namespace kqp {

enum class Style { plain, strong, faint, folder, remark };

enum class ColorChoice { automatic, always, never };

/// Whether to colour what goes to `descriptor`. Left to itself: when that is a terminal which is not dumb and
/// the user has not set NO_COLOR.
bool wantsColor(ColorChoice choice, int descriptor);

/// Puts texts into the terminal's codes for a style, or leaves them alone.
class Painter {
public:
    explicit Painter(bool colored) noexcept : colored_(colored) {}

    /// `text` is harmless already and ends in no line break. An empty text stays empty.
    std::string paint(Style style, std::string_view text) const;

private:
    bool colored_;
};

} // namespace kqp
