#include "programs/kqp/documents/help_text.h"

#include "programs/kqp/documents/synopsis.h"
#include "programs/kqp/terminal/console.h"

#include <algorithm>
#include <vector>

namespace kqp {

namespace {

constexpr std::size_t width = 78;

std::string same(std::string_view text) {
    return std::string(text);
}

constexpr Typography plainTypography{same, same};

std::vector<std::string_view> wordsOf(std::string_view text) {
    std::vector<std::string_view> words;
    while (!text.empty()) {
        const std::size_t blank = std::min(text.find(' '), text.size());
        words.push_back(text.substr(0, blank));
        text.remove_prefix(std::min(blank + 1, text.size()));
    }
    return words;
}

/// The text in lines of the page's width, each behind `indent` blanks.
std::string wrapped(std::string_view text, std::size_t indent) {
    const std::string set = typeset(text, same, same);
    std::string result;
    std::size_t column = 0;
    for (const std::string_view word : wordsOf(set)) {
        const bool fits = column != 0 && column + 1 + word.size() <= width;
        if (!fits && column != 0)
            result += '\n';
        result += fits ? std::string(" ") : std::string(indent, ' ');
        column = fits ? column + 1 + word.size() : indent + word.size();
        result += word;
    }
    return result + "\n";
}

std::string optionsHelp(std::span<const Option> options) {
    std::string text;
    for (const Option& option : options)
        text += "  " + spellingOf(option, plainTypography) + "\n" + wrapped(option.text, 6);
    return text;
}

std::string commandList() {
    std::string text = "Commands:\n";
    std::size_t longest = 0;
    for (const Command& command : commands())
        longest = std::max(longest, command.name.size());
    for (const Command& command : commands()) {
        const std::string name(command.name);
        text +=
            "  " + name + std::string(longest + 2 - name.size(), ' ') + std::string(command.summary) + "\n";
    }
    return text;
}

} // namespace

std::string programHelp() {
    std::string text = "Usage: " + std::string(program().name) + " COMMAND [OPTION...] FILE...\n\n";
    text += wrapped(program().paragraphs.front(), 0) + "\n" + commandList() + "\nOptions:\n";
    text += optionsHelp(program().options);
    return text + "\nTry 'kqp help COMMAND' for more about a command.\n";
}

std::string commandHelp(const Command& command) {
    std::string text = "Usage: " + synopsisOf(command, plainTypography) + "\n";
    for (const std::string_view paragraph : command.paragraphs)
        text += "\n" + wrapped(paragraph, 0);
    text += "\nOptions:\n" + optionsHelp(command.options) + optionsHelp({&helpOption(), 1});
    text += "\nExit code: " + std::to_string(done) + " done, ";
    if (!command.answerIsNo.empty())
        text += std::to_string(answerIsNo) + " " + std::string(command.answerIsNo) + ", ";
    return text + std::to_string(failed) + " error.\n";
}

std::string versionText() {
    return std::string(program().name) + " " + std::string(program().version) + "\n";
}

} // namespace kqp
