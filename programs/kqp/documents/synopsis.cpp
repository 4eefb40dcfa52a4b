#include "programs/kqp/documents/synopsis.h"

namespace kqp {

namespace {

std::string longSpelling(const Option& option, const Typography& typography) {
    std::string text = typography.literal("--" + std::string(option.longName));
    return option.takesValue() ? text + "=" + typography.placeholder(option.valueName) : text;
}

std::string shortSpelling(const Option& option, const Typography& typography) {
    std::string text = typography.literal(std::string("-") + option.shortName);
    return option.takesValue() ? text + " " + typography.placeholder(option.valueName) : text;
}

} // namespace

std::string synopsisOf(const Command& command, const Typography& typography) {
    std::string text = typography.literal(std::string(program().name) + " " + std::string(command.name));
    for (const Option& option : command.options) {
        const bool brief = option.shortName != '\0';
        text += " [" + (brief ? shortSpelling(option, typography) : longSpelling(option, typography)) + "]";
    }
    for (const Operand& operand : command.operands) {
        const std::string name = typography.placeholder(operand.name);
        text += operand.optional ? " [" + name + "]" : " " + name;
    }
    return text;
}

std::string spellingOf(const Option& option, const Typography& typography) {
    const std::string text = longSpelling(option, typography);
    return option.shortName == '\0' ? text : shortSpelling(option, typography) + ", " + text;
}

std::string typeset(std::string_view text, Typesetter literal, Typesetter plain) {
    std::string result;
    for (bool quoted = false;; quoted = !quoted) {
        const std::size_t quote = text.find('`');
        result += quoted ? literal(text.substr(0, quote)) : plain(text.substr(0, quote));
        if (quote == std::string_view::npos)
            return result;
        text.remove_prefix(quote + 1);
    }
}

const Option& helpOption() {
    return program().options.front();
}

} // namespace kqp
