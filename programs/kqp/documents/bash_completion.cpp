#include "programs/kqp/command_table.h"
#include "programs/kqp/documents/generate.h"
#include "programs/kqp/documents/synopsis.h"

namespace kqp {

namespace {

std::string commandNames() {
    std::string names;
    for (const Command& command : commands())
        names.append(names.empty() ? "" : " ").append(command.name);
    return names;
}

/// "--json --color= -o --output=": an option with a value ends in "=", so that the value can follow at once.
std::string optionWords(std::span<const Option> options) {
    std::string words;
    for (const Option& option : options) {
        words.append(words.empty() ? "--" : " --").append(option.longName);
        if (option.takesValue())
            words += '=';
    }
    return words;
}

std::string offer(WordKind kind, std::span<const std::string_view> choices) {
    switch (kind) {
    case WordKind::projectFile:
        return "_kqp_files \"$current\"";
    case WordKind::anyFile:
        return "_kqp_any_files \"$current\"";
    case WordKind::commandName:
        return "_kqp_words '" + commandNames() + "' \"$current\"";
    case WordKind::fixedChoice:
        break;
    }
    std::string words;
    for (const std::string_view choice : choices)
        words.append(words.empty() ? "" : " ").append(choice);
    return "_kqp_words '" + words + "' \"$current\"";
}

/// "show:--color)" and what may stand behind it.
std::string valueCase(const Command& command, const Option& option) {
    const std::string name(command.name);
    std::string pattern = name + ":--" + std::string(option.longName);
    if (option.shortName != '\0')
        pattern += "|" + name + ":-" + option.shortName;
    return "        " + pattern + ") " + offer(option.valueKind, option.choices) + "; return ;;\n";
}

std::string valueCases() {
    std::string text;
    for (const Command& command : commands()) {
        for (const Option& option : command.options) {
            if (option.takesValue())
                text += valueCase(command, option);
        }
    }
    return text;
}

std::string optionCases() {
    std::string text;
    for (const Command& command : commands()) {
        const std::string own = optionWords(command.options);
        text += "            " + std::string(command.name) + ") _kqp_words '" + own +
                (own.empty() ? "" : " ") + optionWords({&helpOption(), 1}) + "' \"$current\" ;;\n";
    }
    return text;
}

std::string operandCases() {
    std::string text;
    for (const Command& command : commands()) {
        text += "            " + std::string(command.name) + ") " + offer(command.operands.front().kind, {}) +
                " ;;\n";
    }
    return text;
}

constexpr std::string_view helpers = R"(
_kqp_words() {
    mapfile -t COMPREPLY < <(compgen -W "$1" -- "$2")
    if [[ ${#COMPREPLY[@]} -eq 1 && ${COMPREPLY[0]} == *= ]]; then
        compopt -o nospace 2>/dev/null
    fi
}

_kqp_files() {
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -f -X '!*.[kK][qQ][pP]' -- "$1"; compgen -d -- "$1")
}

_kqp_any_files() {
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -f -- "$1")
}
)";

constexpr std::string_view begin = R"(
_kqp() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]}
    COMPREPLY=()
    # "--option=value" arrives as three words.
    if [[ $current == "=" ]]; then
        current=
    elif [[ $previous == "=" ]]; then
        previous=${COMP_WORDS[COMP_CWORD-2]}
    fi
)";

} // namespace

std::string bashCompletion() {
    std::string text = "# Completion of kqp for bash, made from the program's command table.\n";
    text.append(helpers).append(begin);
    text += "    if [[ $COMP_CWORD -eq 1 ]]; then\n        _kqp_words '" + commandNames() + " " +
            optionWords(program().options) + "' \"$current\"\n        return\n    fi\n";
    text += "    case ${COMP_WORDS[1]}:$previous in\n" + valueCases() + "    esac\n";
    text += "    if [[ $current == -* ]]; then\n        case ${COMP_WORDS[1]} in\n" + optionCases();
    text += "        esac\n    else\n        case ${COMP_WORDS[1]} in\n" + operandCases();
    return text + "        esac\n    fi\n}\n\ncomplete -F _kqp kqp\n";
}

} // namespace kqp
