#include "programs/kqp/terminal/style.h"

#include <cstdlib>
#include <unistd.h>

namespace kqp {

namespace {

bool isSet(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

bool isDumbTerminal() {
    const char* kind = std::getenv("TERM");
    return kind == nullptr || *kind == '\0' || std::string_view(kind) == "dumb";
}

std::string_view codeOf(Style style) {
    switch (style) {
    case Style::strong:
        return "\x1B[1m";
    case Style::faint:
        return "\x1B[2m";
    case Style::folder:
        return "\x1B[1;34m";
    case Style::remark:
        return "\x1B[33m";
    case Style::plain:
        break;
    }
    return {};
}

} // namespace

bool wantsColor(ColorChoice choice, int descriptor) {
    if (choice != ColorChoice::automatic)
        return choice == ColorChoice::always;
    return !isSet("NO_COLOR") && !isDumbTerminal() && ::isatty(descriptor) == 1;
}

std::string Painter::paint(Style style, std::string_view text) const {
    const std::string_view code = codeOf(style);
    if (!colored_ || code.empty() || text.empty())
        return std::string(text);
    std::string painted(code);
    painted.append(text).append("\x1B[0m");
    return painted;
}

} // namespace kqp
