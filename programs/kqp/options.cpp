#include "programs/kqp/options.h"

#include <algorithm>

namespace kqp {

const std::string* Arguments::value(std::string_view longName) const {
    const auto hit = std::find_if(
        options_.rbegin(), options_.rend(), [&](const auto& given) { return given.first == longName; });
    return hit == options_.rend() ? nullptr : &hit->second;
}

class ArgumentParser {
public:
    ArgumentParser(const Command& command, std::span<const std::string> words)
        : command_(command), words_(words) {}

    bool parse();
    Arguments take() { return std::move(arguments_); }
    const std::string& problem() const noexcept { return problem_; }

private:
    bool parseWord(const std::string& word);
    bool parseLong(std::string_view word);
    bool parseShort(std::string_view word);
    bool takeOption(const Option* option, std::string_view spelled, std::optional<std::string_view> value);
    bool accept(const Option& option, std::string_view spelled, std::string_view value);
    bool checkOperands();
    bool fail(std::string problem);

    const Option* find(auto matches) const;

    const Command& command_;
    std::span<const std::string> words_; // those not looked at yet
    bool optionsEnded_ = false;
    Arguments arguments_;
    std::string problem_;
};

std::optional<Arguments> parseArguments(
    const Command& command, std::span<const std::string> words, std::string& problem) {
    ArgumentParser parser(command, words);
    if (parser.parse())
        return parser.take();
    problem = parser.problem();
    return std::nullopt;
}

bool ArgumentParser::parse() {
    while (!words_.empty()) {
        const std::string& word = words_.front();
        words_ = words_.subspan(1);
        if (!parseWord(word))
            return false;
    }
    return arguments_.has("help") || checkOperands();
}

bool ArgumentParser::parseWord(const std::string& word) {
    if (optionsEnded_ || word.size() < 2 || word.front() != '-') {
        arguments_.operands_.push_back(word);
        return true;
    }
    if (word == "--")
        return optionsEnded_ = true;
    return word.starts_with("--") ? parseLong(word) : parseShort(word);
}

bool ArgumentParser::parseLong(std::string_view word) {
    const std::size_t equals = word.find('=');
    const std::string_view spelled = word.substr(0, equals);
    const Option* option = find([&](const Option& o) { return o.longName == spelled.substr(2); });
    if (equals == std::string_view::npos)
        return takeOption(option, spelled, std::nullopt);
    return takeOption(option, spelled, word.substr(equals + 1));
}

bool ArgumentParser::parseShort(std::string_view word) {
    const std::string_view spelled = word.substr(0, 2);
    const Option* option = find([&](const Option& o) { return o.shortName == spelled[1]; });
    if (word.size() == 2)
        return takeOption(option, spelled, std::nullopt);
    return takeOption(option, spelled, word.substr(2));
}

bool ArgumentParser::takeOption(
    const Option* option, std::string_view spelled, std::optional<std::string_view> value) {
    if (option == nullptr)
        return fail("'" + std::string(command_.name) + "' has no option '" + std::string(spelled) + "'");
    if (!option->takesValue() && value)
        return fail("option '" + std::string(spelled) + "' takes no value");
    if (option->takesValue() && !value) {
        if (words_.empty())
            return fail("option '" + std::string(spelled) + "' needs a value");
        value = words_.front();
        words_ = words_.subspan(1);
    }
    return accept(*option, spelled, value.value_or(std::string_view()));
}

bool ArgumentParser::accept(const Option& option, std::string_view spelled, std::string_view value) {
    const auto& choices = option.choices;
    if (!choices.empty() && std::find(choices.begin(), choices.end(), value) == choices.end())
        return fail("option '" + std::string(spelled) + "' has no value '" + std::string(value) + "'");
    if (option.takesValue() && value.empty())
        return fail("option '" + std::string(spelled) + "' needs a value");
    arguments_.options_.emplace_back(option.longName, value);
    return true;
}

bool ArgumentParser::checkOperands() {
    const auto& given = arguments_.operands_;
    for (std::size_t i = given.size(); i < command_.operands.size(); ++i) {
        if (!command_.operands[i].optional)
            return fail(
                "'" + std::string(command_.name) + "' needs " + std::string(command_.operands[i].name));
    }
    if (given.size() > command_.operands.size())
        return fail("too many words behind '" + std::string(command_.name) + "': '" +
                    given[command_.operands.size()] + "'");
    if (std::find(given.begin(), given.end(), std::string()) != given.end())
        return fail("a file name is empty");
    return true;
}

bool ArgumentParser::fail(std::string problem) {
    problem_ = std::move(problem);
    return false;
}

const Option* ArgumentParser::find(auto matches) const {
    if (const Option& help = program().options.front(); matches(help))
        return &help;
    const auto hit = std::find_if(command_.options.begin(), command_.options.end(), matches);
    return hit == command_.options.end() ? nullptr : &*hit;
}

} // namespace kqp
