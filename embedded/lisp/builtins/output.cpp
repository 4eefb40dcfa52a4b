// Printing, on the host's command line or to a file.
#include "embedded/lisp/builtins/builtins.h"
#include "embedded/lisp/lisp_file.h"
#include "embedded/lisp/printer.h"

namespace drafta::lisp {

namespace {

/// `file` nil is the command line.
void write(Machine& machine, Value file, ryv::CStringView text) {
    if (file.isNil()) {
        machine.services().print(text);
        return;
    }
    if (file.kind() != Kind::file)
        throw LispError(u"bad argument type: a file is wanted, not " + briefly(file));
    LispFile* const opened = static_cast<File*>(file.object())->file.get();
    if (!opened || !opened->write(text))
        throw LispError(u"cannot write to " + briefly(file));
}

/// Without an argument nothing is printed, and the result is a symbol without a name, which prints as
/// nothing: a command that ends with (princ) is quiet.
Value quiet(Machine& machine) {
    return machine.symbol(u"");
}

template <bool quoted>
Value print(Machine& machine, Arguments arguments) {
    if (arguments.empty())
        return quiet(machine);
    write(machine, optional(arguments, 1), printed(machine, arguments[0], quoted));
    return arguments[0];
}

/// On a line of its own, with a blank behind.
Value printLine(Machine& machine, Arguments arguments) {
    if (arguments.empty())
        return quiet(machine);
    write(machine, optional(arguments, 1), u"\n" + printed(machine, arguments[0], true) + u" ");
    return arguments[0];
}

Value newLine(Machine& machine, Arguments) {
    machine.services().print(u"\n");
    return {};
}

Value prompt(Machine& machine, Arguments arguments) {
    machine.services().print(textArgument(arguments[0]));
    return {};
}

Value writeLine(Machine& machine, Arguments arguments) {
    write(machine, optional(arguments, 1), ryv::CString(textArgument(arguments[0])) + u"\n");
    return arguments[0];
}

Value writeUnit(Machine& machine, Arguments arguments) {
    const auto unit = static_cast<char16_t>(integerArgument(arguments[0]));
    write(machine, optional(arguments, 1), {&unit, 1});
    return arguments[0];
}

constexpr Definition definitions[] = {
    {u"prin1", 0, 2, print<true>},
    {u"princ", 0, 2, print<false>},
    {u"print", 0, 2, printLine},
    {u"terpri", 0, 0, newLine},
    {u"prompt", 1, 1, prompt},
    {u"write-line", 1, 2, writeLine},
    {u"write-char", 1, 2, writeUnit},
};

} // namespace

void defineOutput(Machine& machine) {
    defineAll(machine, definitions);
}

} // namespace drafta::lisp
