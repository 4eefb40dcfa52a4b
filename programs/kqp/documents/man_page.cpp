#include "programs/kqp/command_table.h"
#include "programs/kqp/documents/generate.h"
#include "programs/kqp/documents/synopsis.h"
#include "programs/kqp/terminal/console.h"

namespace kqp {

namespace {

/// Text for the typesetter: a hyphen is one that can be copied from the page, a backslash is one, and nothing
/// at the beginning of a line is a request.
std::string roff(std::string_view text) {
    std::string result;
    bool lineStart = true;
    for (const char c : text) {
        if (lineStart && (c == '.' || c == '\''))
            result += "\\&";
        if (c == '-')
            result += "\\-";
        else if (c == '\\')
            result += "\\e";
        else
            result += c;
        lineStart = c == '\n';
    }
    return result;
}

std::string bold(std::string_view text) {
    return "\\fB" + roff(text) + "\\fP";
}

std::string italic(std::string_view text) {
    return "\\fI" + roff(text) + "\\fP";
}

constexpr Typography roffTypography{bold, italic};

std::string paragraph(std::string_view text) {
    return typeset(text, bold, roff) + "\n";
}

std::string optionEntry(const Option& option) {
    return ".TP\n" + spellingOf(option, roffTypography) + "\n" + paragraph(option.text);
}

std::string header() {
    const std::string name(program().name);
    std::string text = ".\\\" Made from the program's command table.\n";
    text += ".TH KQP 1 \"\" \"" + name + " " + std::string(program().version) + "\" \"User Commands\"\n";
    return text + ".SH NAME\n" + roff(name) + " \\- " + roff(program().summary) + "\n";
}

std::string synopsis() {
    std::string text = ".SH SYNOPSIS\n.nf\n";
    for (const Command& command : commands())
        text += synopsisOf(command, roffTypography) + "\n";
    for (const Option& option : program().options)
        text += bold(std::string(program().name) + " --" + std::string(option.longName)) + "\n";
    return text + ".fi\n";
}

std::string description() {
    std::string text = ".SH DESCRIPTION\n";
    for (const std::string_view part : program().paragraphs)
        text += ".PP\n" + paragraph(part);
    return text;
}

std::string commandSection(const Command& command) {
    std::string text = ".SS " + synopsisOf(command, roffTypography) + "\n";
    bool first = true;
    for (const std::string_view part : command.paragraphs) {
        text += (first ? "" : ".PP\n") + paragraph(part);
        first = false;
    }
    for (const Option& option : command.options)
        text += optionEntry(option);
    return text;
}

std::string commandSections() {
    std::string text = ".SH COMMANDS\n";
    for (const Command& command : commands())
        text += commandSection(command);
    return text;
}

std::string programOptions() {
    std::string text = ".SH OPTIONS\n";
    for (const Option& option : program().options)
        text += optionEntry(option);
    return text;
}

std::string exitStatus() {
    std::string no;
    for (const Command& command : commands()) {
        if (!command.answerIsNo.empty())
            no += (no.empty() ? "" : "; ") + bold(command.name) + ": " + roff(command.answerIsNo);
    }
    const auto entry = [](int code, const std::string& text) {
        return ".TP\n" + bold(std::to_string(code)) + "\n" + text + "\n";
    };
    return ".SH \"EXIT STATUS\"\n" + entry(done, "Done.") +
           entry(answerIsNo, "The answer is no. " + no + ".") +
           entry(failed,
               "The words of the command line do not fit, or a file or the output failed. One line on "
               "standard error names the file and the reason.");
}

std::string environment() {
    return ".SH ENVIRONMENT\n.TP\n" + bold("NO_COLOR") +
           "\nWhen set and not empty, nothing is coloured unless " + bold("--color=always") +
           " asks for it.\n";
}

std::string exampleSection() {
    std::string text = ".SH EXAMPLES\n";
    for (const Example& example : program().examples)
        text +=
            ".PP\n" + roff(example.purpose) + "\n.PP\n.RS 4\n.nf\n" + roff(example.command) + "\n.fi\n.RE\n";
    return text;
}

} // namespace

std::string manPage() {
    return header() + synopsis() + description() + commandSections() + programOptions() + exitStatus() +
           environment() + exampleSection();
}

} // namespace kqp
