// Loading, the environment, and what the host may call.
#include "embedded/lisp/builtins/builtins.h"
#include "embedded/lisp/printer.h"

namespace drafta::lisp {

namespace {

/// With a second argument that is the result when the file is missing or fails, instead of an error.
Value load(Machine& machine, Arguments arguments) {
    const ryv::CString name = pathText(arguments[0]);
    if (arguments.size() == 1)
        return machine.loadFile(name);
    const StackMarks before = machine.marks();
    try {
        return machine.loadFile(name);
    } catch (const LispError& error) {
        if (error.kind() != ErrorKind::failed && error.kind() != ErrorKind::syntax)
            throw;
        machine.unwind(before);
        return arguments[1];
    }
}

Value getEnvironment(Machine& machine, Arguments arguments) {
    const std::optional<ryv::CString> value = machine.services().getEnvironment(textArgument(arguments[0]));
    return value ? machine.string(*value) : Value();
}

Value setEnvironment(Machine& machine, Arguments arguments) {
    machine.services().setEnvironment(textArgument(arguments[0]), textArgument(arguments[1]));
    return arguments[1];
}

Value expose(Machine& machine, Arguments arguments) {
    const Value name = arguments[0];
    const ryv::CStringView text = name.isString() ? name.text() : symbolArgument(name)->name;
    if (!machine.interpreter().expose(text))
        throw LispError(u"no function definition: " + ryv::CString(text));
    return machine.truth();
}

Value evaluateText(Machine& machine, Arguments arguments) {
    return machine.evaluateText(textArgument(arguments[0]), u"veval-str+");
}

constexpr Definition definitions[] = {
    {u"load", 1, 2, load},
    {u"getenv", 1, 1, getEnvironment},
    {u"setenv", 2, 2, setEnvironment},
    {u"expose-function", 1, 1, expose},
    {u"veval-str+", 1, 1, evaluateText},
};

} // namespace

void defineSystem(Machine& machine) {
    defineAll(machine, definitions);
}

} // namespace drafta::lisp
