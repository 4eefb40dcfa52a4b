// The commands with their operands, options and descriptions. The command line, the help texts, the man page
// and the completions of the shells all come from this table.
#pragma once

#include <span>
#include <string_view>

namespace kqp {

class Arguments;
struct Console;

/// What a word of the command line stands for; completions offer accordingly.
enum class WordKind { projectFile, anyFile, commandName, fixedChoice };

struct Operand {
    std::string_view name; ///< as it stands in a synopsis: "FILE"
    WordKind kind = WordKind::projectFile;
    bool optional = false;
};

/// Texts may hold words in `back quotes`, which the man page sets in bold.
struct Option {
    std::string_view longName;       ///< without its dashes
    char shortName = '\0';           ///< NUL: there is none
    std::string_view valueName = {}; ///< empty: the option takes no value
    WordKind valueKind = WordKind::projectFile;
    std::span<const std::string_view> choices = {}; ///< the values of a fixed choice
    std::string_view text = {};

    bool takesValue() const noexcept { return !valueName.empty(); }
};

struct Command {
    std::string_view name;
    std::string_view summary;
    std::span<const Operand> operands;
    std::span<const Option> options;
    std::span<const std::string_view> paragraphs;
    std::string_view answerIsNo; ///< what exit code 1 means; empty: it does not occur
    int (*run)(const Arguments& arguments, Console& console);
};

struct Example {
    std::string_view purpose;
    std::string_view command;
};

/// Name, number and one line about the program.
struct ProgramText {
    std::string_view name;
    std::string_view version;
    std::string_view summary;
    std::span<const std::string_view> paragraphs;
    std::span<const Option>
        options; ///< of the program itself; the first is --help, which every command has too
    std::span<const Example> examples;
};

const ProgramText& program();
std::span<const Command> commands();

/// The command of that name, or null.
const Command* findCommand(std::string_view name);

} // namespace kqp
