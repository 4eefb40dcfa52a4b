// Functions that host and module call by name.
#include "embedded/lisp/chain.h"
#include "embedded/lisp/printer.h"

namespace drafta::lisp {

namespace {

Value resultOf(Machine& machine, const ExternalResult& result) {
    const std::optional<Value> values = listFromChain(machine, result.chain);
    if (!values)
        throw LispError(u"an external function gave a malformed result");
    return result.isList ? *values : values->car();
}

/// The function that may be called from outside under a name; nil when there is none.
Value invocableFunction(Machine& machine, ryv::CStringView name) {
    const Symbol* const symbol = machine.symbols().find(name);
    return symbol && symbol->isInvocable ? symbol->value : Value();
}

struct ExternalCall {
    Machine* machine;
    int code;

    Value operator()(Interpreter&, Arguments arguments) const {
        // Copied, as the handler may be replaced while it runs.
        const ExternalHandler handler = machine->externalHandler();
        return handler ? resultOf(*machine, handler(code, argumentChain(*machine, arguments))) : Value();
    }
};

} // namespace

void defineExternal(Machine& machine, ryv::CStringView name, int code) {
    Builtin* const builtin = machine.define(name, 0, Interpreter::anyNumber, nullptr);
    builtin->native = ExternalCall{&machine, code};
    builtin->name->isInvocable = true;
}

std::optional<int> externalCode(const Machine& machine, ryv::CStringView name) {
    const Symbol* const symbol = machine.symbols().find(name);
    if (!symbol || !symbol->value.isFunction() || asFunction(symbol->value)->type != FunctionType::builtin)
        return std::nullopt;
    const auto* const call =
        static_cast<const Builtin*>(asFunction(symbol->value))->native.target<ExternalCall>();
    return call ? std::optional(call->code) : std::nullopt;
}

ryv::LispStatus invoke(
    Machine& machine, const ryv::HostResultBuffer& call, ryv::HostResultBuffer& result, Error* error) {
    ryv::HostResultBuffer chain;
    const Result outcome = machine.guard([&] {
        const ryv::CString* const name = call.stringAt(0);
        const std::optional<Value> list = listFromChain(machine, call);
        if (!name || !list)
            throw LispError(u"malformed call");
        const Value function = invocableFunction(machine, *name);
        if (function.isNil())
            throw LispError(u"no invocable function: " + *name, ErrorKind::notInvocable);
        const Value value = machine.callWithList(function, list->cdr(), true);
        chain = resultChain(machine, value);
        return value;
    });
    if (!outcome.ok()) {
        if (error)
            *error = *outcome.error;
        return ryv::LispStatus::failure;
    }
    result = std::move(chain);
    return ryv::LispStatus::success;
}

} // namespace drafta::lisp
