// The documents that are installed with the program, made from the command table when the program is built.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kqp {

std::string manPage();
std::string bashCompletion();
std::string zshCompletion();

/// By the name of its kind, "man", "bash" or "zsh"; nothing for another name.
std::optional<std::string> documentOf(std::string_view kind);

} // namespace kqp
