// Text from files on its way to a person's terminal. Project files come from anywhere, and a terminal obeys
// control characters.
#pragma once

#include "base/strings.h"

#include <string>
#include <string_view>

namespace kqp {

/// The text as UTF-8 in one line, harmless to a terminal: control characters and those that turn the
/// direction of writing appear as "\n", "\x1B" or "\u202E", bytes that were no text as "\xFF", lone
/// surrogates as "\uD800". Backslashes are not doubled: the result is for reading, not for reading back.
std::string visible(ryv::CStringView text);

/// The same for a path or name as the machine's file system has it.
std::string visibleName(std::string_view native);

/// visible() of a text of which only about `units` UTF-16 units are kept, with "..." for the rest.
std::string visibleShort(ryv::CStringView text, std::size_t units);

/// Columns that valid UTF-8 takes when every character is one column wide.
std::size_t columns(std::string_view utf8) noexcept;

} // namespace kqp
