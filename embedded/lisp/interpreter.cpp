#include "embedded/lisp/interpreter.h"

#include "embedded/lisp/builtins/builtins.h"
#include "embedded/lisp/chain.h"
#include "embedded/lisp/compiler.h"
#include "embedded/lisp/entry.h"
#include "embedded/lisp/printer.h"

#include <algorithm>
#include <limits>

namespace drafta::lisp {

Interpreter::Interpreter(Services& services, const Limits& limits)
    : machine_(std::make_unique<Machine>(*this, services, limits)) {
    defineSpecialForms(*machine_);
    defineBuiltins(*machine_);
    expose(u"veval-str+");
}

Interpreter::~Interpreter() = default;

Result Interpreter::evaluate(ryv::CStringView text, ryv::CStringView source) {
    return machine_->guard([&] { return machine_->evaluateText(text, source); });
}

Result Interpreter::evaluateAndPrint(
    ryv::CStringView expression, ryv::CStringView source, bool quoted, ryv::CString& printedValue) {
    return machine_->guard([&] {
        const Root value(*machine_, machine_->evaluateText(expression, source));
        printedValue = printed(value, quoted);
        return value.get();
    });
}

Result Interpreter::load(ryv::CStringView name) {
    return machine_->guard([&] { return machine_->loadFile(name); });
}

Result Interpreter::callProtected(Value function, Arguments arguments) {
    return machine_->guard([&] { return machine_->call(function, arguments); });
}

Value Interpreter::call(Value function, Arguments arguments) {
    return machine_->call(function, arguments);
}

void Interpreter::requestBreath() noexcept {
    machine_->requestBreath();
}

void Interpreter::interrupt() noexcept {
    machine_->interrupt();
}

void Interpreter::clearInterrupt() noexcept {
    machine_->clearInterrupt();
}

void Interpreter::define(
    ryv::CStringView name, std::size_t least, std::size_t most, NativeFunction function) {
    machine_->define(name, least, most, nullptr)->native = std::move(function);
}

void Interpreter::defineExternal(ryv::CStringView name, int code) {
    lisp::defineExternal(*machine_, name, code);
}

void Interpreter::setExternalHandler(ExternalHandler handler) {
    machine_->setExternalHandler(std::move(handler));
}

std::optional<int> Interpreter::externalCode(ryv::CStringView name) const {
    return lisp::externalCode(*machine_, name);
}

bool Interpreter::expose(ryv::CStringView name) {
    if (!isFunction(name))
        return false;
    machine_->symbols().find(name)->isInvocable = true;
    return true;
}

ryv::LispStatus Interpreter::invoke(
    const ryv::HostResultBuffer& call, ryv::HostResultBuffer& result, Error* error) {
    return lisp::invoke(*machine_, call, result, error);
}

bool Interpreter::isFunction(ryv::CStringView name) const {
    return symbolValue(name).isFunction();
}

ryv::CStringArray Interpreter::functions() const {
    ryv::CStringArray names;
    machine_->symbols().forEach([&](const Symbol& symbol) {
        if (symbol.value.isFunction())
            names.push_back(symbol.name);
    });
    std::sort(names.begin(), names.end());
    return names;
}

ryv::CStringArray Interpreter::commands() const {
    ryv::CStringArray names;
    for (const ryv::CString& name : functions())
        if (name.starts_with(u"C:") && name.size() > 2)
            names.push_back(name.substr(2));
    return names;
}

Value Interpreter::symbolValue(ryv::CStringView name) const {
    const Symbol* const symbol = machine_->symbols().find(name);
    return symbol ? symbol->value : Value();
}

bool Interpreter::setSymbolValue(ryv::CStringView name, Value value) {
    const Value symbol = makeSymbol(name);
    if (symbol.isNil() || asSymbol(symbol)->isProtected)
        return false;
    asSymbol(symbol)->value = value;
    return true;
}

ryv::LispStatus Interpreter::setSymbol(ryv::CStringView name, const ryv::HostResultBuffer& value) {
    bool done = false;
    const Result result = machine_->guard([&] {
        const std::optional<Value> list = listFromChain(value);
        if (list)
            done = setSymbolValue(name, value.size() == 0 || !list->cdr().isNil() ? *list : list->car());
        return Value();
    });
    return result.ok() && done ? ryv::LispStatus::success : ryv::LispStatus::failure;
}

ryv::HostResultBuffer Interpreter::readSymbol(ryv::CStringView name) {
    return resultChain(symbolValue(name));
}

Value Interpreter::makeString(ryv::CStringView text) {
    return machine_->string(text);
}

Value Interpreter::makeSymbol(ryv::CStringView name) {
    const Value symbol = machine_->symbol(name);
    return symbol.text() == u"NIL" ? Value() : symbol;
}

Value Interpreter::makeOpaque(ryv::CStringView type, std::uint64_t id) {
    Symbol* const name = machine_->symbols().intern(type);
    return Value::of(machine_->heap().make<Opaque>(0, name, id));
}

Value Interpreter::cons(Value car, Value cdr) {
    return machine_->cons(car, cdr);
}

Value Interpreter::list(std::initializer_list<Value> elements) {
    return list(Arguments(elements.begin(), elements.size()));
}

Value Interpreter::list(Arguments elements) {
    Value list;
    for (std::size_t i = elements.size(); i > 0; --i)
        list = machine_->cons(elements[i - 1], list);
    return list;
}

Value Interpreter::truth() const noexcept {
    return machine_->truth();
}

Value Interpreter::makeNumber(long long number) {
    using Integer = std::numeric_limits<std::int32_t>;
    if (number < Integer::min() || number > Integer::max())
        return Value::real(static_cast<double>(number));
    return Value::integer(static_cast<std::int32_t>(number));
}

std::optional<Value> Interpreter::listFromChain(const ryv::HostResultBuffer& chain) {
    return lisp::listFromChain(*machine_, chain);
}

ryv::HostResultBuffer Interpreter::resultChain(Value value) const {
    const Entry entry(*machine_);
    return lisp::resultChain(*machine_, value);
}

ryv::CString Interpreter::printed(Value value, bool quoted) const {
    const Entry entry(*machine_);
    return lisp::printed(*machine_, value, quoted);
}

void Interpreter::print(ryv::CStringView text) {
    machine_->services().print(text);
}

void Interpreter::collect() {
    machine_->collect();
}

std::size_t Interpreter::memoryInUse() const noexcept {
    return machine_->heap().inUse();
}

} // namespace drafta::lisp
