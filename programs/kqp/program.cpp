#include "programs/kqp/program.h"

#include "programs/kqp/documents/generate.h"
#include "programs/kqp/documents/help_text.h"
#include "programs/kqp/options.h"
#include "programs/kqp/usage.h"

#include <exception>
#include <new>
#include <span>

namespace kqp {

namespace {

using Words = std::span<const std::string>;

int print(std::string_view text, Console& console) {
    console.out.write(text);
    return finishOutput(console, done);
}

int runCommand(const Command& command, Words words, Console& console) {
    std::string problem;
    const std::optional<Arguments> arguments = parseArguments(command, words, problem);
    if (!arguments)
        return complainOfUsage(console, problem);
    if (arguments->has("help"))
        return print(commandHelp(command), console);
    return command.run(*arguments, console);
}

/// "--generate KIND": the documents that are installed with the program. Not for users, so not in the table.
int generateDocument(Words words, Console& console) {
    const std::optional<std::string> document =
        words.size() == 1 ? documentOf(words.front()) : std::optional<std::string>();
    if (!document)
        return complainOfUsage(console, "'--generate' needs one of man, bash, zsh");
    return print(*document, console);
}

int runProgramOption(const std::string& option, Words rest, Console& console) {
    if (option == "--generate")
        return generateDocument(rest, console);
    if (option != "--help" && option != "-h" && option != "--version")
        return complainOfUsage(console, "there is no option '" + option + "' in front of a command");
    if (!rest.empty())
        return complainOfUsage(console, "too many words behind '" + option + "': '" + rest.front() + "'");
    if (option == "--version")
        return print(versionText(), console);
    return print(programHelp(), console);
}

int dispatch(Words words, Console& console) {
    if (words.empty())
        return complainOfUsage(console, "no command given");
    const std::string& first = words.front();
    if (first.starts_with("-"))
        return runProgramOption(first, words.subspan(1), console);
    if (const Command* const command = findCommand(first))
        return runCommand(*command, words.subspan(1), console);
    return complainOfUsage(console, "there is no command '" + first + "'");
}

} // namespace

int run(const std::vector<std::string>& words, Console& console) noexcept {
    try {
        return dispatch(words, console);
    } catch (const std::bad_alloc&) {
        complain(console, "out of memory");
    } catch (const std::exception& fault) {
        complain(console, std::string("internal fault: ") + fault.what());
    }
    return failed;
}

} // namespace kqp
