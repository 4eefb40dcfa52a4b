// Evaluating, setting, stopping and catching.
#include "embedded/lisp/builtins/builtins.h"
#include "embedded/lisp/reader.h"

namespace drafta::lisp {

namespace {

Value evaluate(Machine& machine, Arguments arguments) {
    const Value form = arguments[0];
    if (form.isSymbol())
        return asSymbol(form)->value;
    return form.isCons() ? machine.evaluate(form, machine.currentOrigin()) : form;
}

Value set(Machine& machine, Arguments arguments) {
    machine.set(symbolArgument(arguments[0]), arguments[1]);
    return arguments[1];
}

Value read(Machine& machine, Arguments arguments) {
    if (arguments.empty())
        return {};
    Reader reader(machine, textArgument(arguments[0]));
    return reader.next().value_or(Value());
}

Value quit(Machine&, Arguments) {
    throw LispError(u"quit / exit abort", ErrorKind::quit);
}

bool isCatchable(ErrorKind kind) {
    return kind != ErrorKind::interrupted && kind != ErrorKind::steps;
}

Value caught(Machine& machine, const StackMarks& before, const ryv::CString& message) {
    machine.unwind(before);
    const std::size_t bytes = message.size() * sizeof(char16_t);
    return Value::of(machine.heap().make<Failure>(bytes, message));
}

Value catchAll(Machine& machine, Arguments arguments) {
    const StackMarks before = machine.marks();
    try {
        return machine.callWithList(arguments[0], listArgument(optional(arguments, 1)));
    } catch (const LispError& error) {
        if (!isCatchable(error.kind()))
            throw;
        machine.unwind(before);
        if (error.kind() == ErrorKind::memory)
            machine.collect();
        return caught(machine, before, error.message());
    } catch (const std::bad_alloc&) {
        machine.unwind(before);
        machine.collect();
        return caught(machine, before, u"memory is used up");
    }
}

Value isError(Machine& machine, Arguments arguments) {
    return machine.boolean(arguments[0].kind() == Kind::failure);
}

Value errorMessage(Machine& machine, Arguments arguments) {
    if (arguments[0].kind() != Kind::failure)
        throw LispError(u"vl-catch-all-error-message takes an error");
    return machine.string(static_cast<const Failure*>(arguments[0].object())->message);
}

Value symbolName(Machine& machine, Arguments arguments) {
    return machine.string(symbolArgument(arguments[0])->name);
}

Value symbolValue(Machine&, Arguments arguments) {
    return symbolArgument(arguments[0])->value;
}

Value collect(Machine& machine, Arguments) {
    machine.collect();
    return {};
}

constexpr Definition definitions[] = {
    {u"eval", 1, 1, evaluate},
    {u"set", 2, 2, set},
    {u"read", 0, 1, read},
    {u"exit", 0, 0, quit},
    {u"quit", 0, 0, quit},
    {u"vl-catch-all-apply", 1, 2, catchAll},
    {u"vl-catch-all-error-p", 1, 1, isError},
    {u"vl-catch-all-error-message", 1, 1, errorMessage},
    {u"vl-symbol-name", 1, 1, symbolName},
    {u"vl-symbol-value", 1, 1, symbolValue},
    {u"gc", 0, 0, collect},
};

} // namespace

void defineControl(Machine& machine) {
    defineAll(machine, definitions);
}

} // namespace drafta::lisp
