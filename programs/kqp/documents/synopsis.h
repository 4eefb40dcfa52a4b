// Pieces of the command table that several documents write alike.
#pragma once

#include "programs/kqp/command_table.h"

#include <string>
#include <string_view>

namespace kqp {

/// Turns text into what a document writes for it.
using Typesetter = std::string (*)(std::string_view text);

/// How a document sets the words that a user types as they stand, and those that stand for something else.
struct Typography {
    Typesetter literal;
    Typesetter placeholder;
};

/// "kqp show [--json] [--color=WHEN] FILE".
std::string synopsisOf(const Command& command, const Typography& typography);

/// "-o OUT, --output=OUT".
std::string spellingOf(const Option& option, const Typography& typography);

/// The text with its words in back quotes set as literals, and the rest passed through `plain`.
std::string typeset(std::string_view text, Typesetter literal, Typesetter plain);

/// The option --help, which every command has.
const Option& helpOption();

} // namespace kqp
