// The words of the command line, sorted by what the command table says about them.
#pragma once

#include "programs/kqp/command_table.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kqp {

/// The operands and options that a command was given.
class Arguments {
public:
    /// In the order given; as many as the command's table entry wants.
    const std::vector<std::string>& operands() const noexcept { return operands_; }

    bool has(std::string_view longName) const { return value(longName) != nullptr; }

    /// The value of an option, empty for one that takes none; null when it was not given. The last one
    /// counts.
    const std::string* value(std::string_view longName) const;

private:
    friend class ArgumentParser;
    std::vector<std::string> operands_;
    std::vector<std::pair<std::string_view, std::string>> options_;
};

/// Takes the words behind a command's name apart: operands, "--long", "--long=value", "--long value", "-s
/// value",
/// "-svalue", and "--", behind which everything is an operand. With "--help" anywhere among the options,
/// nothing else is asked for. Returns nothing when the words do not fit, with one line in `problem`.
std::optional<Arguments> parseArguments(
    const Command& command, std::span<const std::string> words, std::string& problem);

} // namespace kqp
