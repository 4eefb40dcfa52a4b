#include "programs/kqp/command_table.h"
#include "programs/kqp/documents/generate.h"
#include "programs/kqp/documents/synopsis.h"

namespace kqp {

namespace {

/// Text inside the brackets of an argument description, within single quotes.
std::string described(std::string_view text) {
    std::string result;
    for (const char c : text) {
        if (c == '[' || c == ']' || c == ':' || c == '\\')
            result += '\\';
        result += c == '\'' ? std::string("'\\''") : std::string(1, c);
    }
    return result;
}

std::string asDescription(std::string_view text) {
    return typeset(text.substr(0, text.find('.')), described, described);
}

std::string action(WordKind kind, std::span<const std::string_view> choices) {
    if (kind == WordKind::projectFile)
        return "_files -g \"*.(#i)kqp(-.)\"";
    if (kind == WordKind::anyFile)
        return "_files";
    if (kind == WordKind::commandName)
        return "_kqp_commands";
    std::string words;
    for (const std::string_view choice : choices)
        words.append(words.empty() ? "(" : " ").append(choice);
    return words + ")";
}

std::string optionSpecification(const Option& option) {
    const std::string longName = "--" + std::string(option.longName) + (option.takesValue() ? "=" : "");
    std::string rest = "[" + asDescription(option.text) + "]";
    if (option.takesValue())
        rest += ":" + std::string(option.valueName) + ":" + action(option.valueKind, option.choices);
    if (option.shortName == '\0')
        return "'" + longName + rest + "'";
    const std::string shortName = std::string("-") + option.shortName;
    const std::string exclusive = "(" + shortName + " --" + std::string(option.longName) + ")";
    const std::string brief = option.takesValue() ? shortName + "+" : shortName;
    return "'" + exclusive + "'{" + brief + "," + longName + "}'" + rest + "'";
}

std::string operandSpecification(const Operand& operand, std::size_t position) {
    return "'" + std::to_string(position) + (operand.optional ? "::" : ":") + std::string(operand.name) +
           ":" + action(operand.kind, {}) + "'";
}

std::string commandCase(const Command& command) {
    std::string text =
        "                " + std::string(command.name) + ")\n                    _arguments -s";
    for (const Option& option : command.options)
        text += " \\\n                        " + optionSpecification(option);
    text += " \\\n                        " + optionSpecification(helpOption());
    for (std::size_t i = 0; i < command.operands.size(); ++i)
        text += " \\\n                        " + operandSpecification(command.operands[i], i + 1);
    return text + "\n                    ;;\n";
}

std::string commandFunction() {
    std::string text = "_kqp_commands() {\n    local -a commands=(\n";
    for (const Command& command : commands())
        text += "        '" + std::string(command.name) + ":" + described(command.summary) + "'\n";
    return text + "    )\n    _describe -t commands command commands\n}\n";
}

} // namespace

std::string zshCompletion() {
    std::string text =
        "#compdef kqp\n# Completion of kqp for zsh, made from the program's command table.\n\n";
    text += commandFunction() + "\n_kqp() {\n    local context state state_descr line\n";
    text += "    typeset -A opt_args\n    _arguments -C";
    for (const Option& option : program().options)
        text += " \\\n        " + optionSpecification(option);
    text += " \\\n        '1:command:_kqp_commands' \\\n        '*::argument:->argument'\n";
    text += "    case $state in\n        argument)\n            case $line[1] in\n";
    for (const Command& command : commands())
        text += commandCase(command);
    return text + "            esac\n            ;;\n    esac\n}\n\n_kqp \"$@\"\n";
}

} // namespace kqp
