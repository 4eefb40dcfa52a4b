#include "embedded/lisp/machine.h"

#include <algorithm>

namespace drafta::lisp {

namespace {

/// Room on the stacks for calls that are as deep as they may be, each with some arguments and variables.
std::size_t stackSize(const Limits& limits) {
    return (std::size_t{64} << 10) + 48 * std::min(limits.callDepth, std::size_t{1} << 20);
}

} // namespace

Machine::Machine(Interpreter& interpreter, Services& services, const Limits& limits)
    : interpreter_(&interpreter), services_(&services), limits_(limits), heap_(limits.bytes, attention_),
      symbols_(heap_), values_(stackSize(limits)), bindings_(stackSize(limits)), top_(values_.begin()),
      bindingTop_(bindings_.begin()) {
    attention_.store(limits.steps > 0 || limits.collectAlways);
    Symbol* const truth = symbols_.intern(u"T");
    truth_ = Value::of(truth);
    truth->value = truth_;
    truth->isProtected = true;
    errorHandler_ = symbols_.intern(u"*ERROR*");
}

Machine::~Machine() = default;

Value Machine::string(ryv::CStringView text) {
    heap_.requireRoom(text.size() * sizeof(char16_t));
    return Value::of(heap_.make<Text>(text.size() * sizeof(char16_t), ryv::CString(text)));
}

void Machine::unwind(const StackMarks& marks) noexcept {
    unbind(marks.bindings);
    top_ = marks.top;
    depth_ = marks.depth;
    site_ = marks.site;
}

void Machine::set(Symbol* symbol, Value value) {
    if (symbol->isProtected)
        throw LispError(u"cannot set " + symbol->name);
    symbol->value = value;
}

Builtin* Machine::define(
    ryv::CStringView name, std::size_t least, std::size_t most, Builtin::Plain function) {
    Symbol* const symbol = symbols_.intern(name);
    auto* const builtin = heap_.make<Builtin>(0, symbol, least, most, function);
    symbol->value = Value::of(builtin);
    return builtin;
}

void Machine::defineSpecial(ryv::CStringView name, Special::Compile compile) {
    Symbol* const symbol = symbols_.intern(name);
    symbol->value = Value::of(heap_.make<Special>(0, symbol, compile));
    symbol->isProtected = true;
}

void Machine::failTooDeep() const {
    throw LispError(u"calls or lists are nested too deeply", ErrorKind::tooDeep);
}

void Machine::fail(const Site& site, ryv::CString message) {
    site_ = &site;
    throw LispError(std::move(message));
}

void Machine::interrupt() noexcept {
    interrupted_.store(true);
    attention_.store(true);
}

void Machine::requestBreath() noexcept {
    wantsBreath_.store(true);
    attention_.store(true);
}

/// The flag is lowered before its causes are looked at, so that one raised meanwhile is not lost.
void Machine::attend(const Site* site) {
    site_ = site;
    attention_.store(limits_.steps > 0 || limits_.collectAlways);
    if (wantsBreath_.exchange(false))
        services_->breathe();
    checkInterruption();
    if (limits_.collectAlways || heap_.wantsCollection())
        collect();
}

void Machine::checkInterruption() {
    if (interrupted_.exchange(false))
        throw LispError(u"interrupted", ErrorKind::interrupted);
    if (limits_.steps > 0 && ++steps_ > limits_.steps)
        throw LispError(u"too many steps", ErrorKind::steps);
}

void Machine::collect() {
    compiledLists_.clear();
    heap_.clearMarks();
    Marker marker;
    for (const Value* value = values_.begin(); value != top_; ++value)
        marker.mark(*value);
    for (const Binding* binding = bindings_.begin(); binding != bindingTop_; ++binding) {
        marker.mark(binding->symbol);
        marker.mark(binding->value);
    }
    for (const RootLink* root = roots_.next; root != &roots_; root = root->next)
        marker.mark(static_cast<const Root*>(root)->value_);
    marker.mark(errorHandler_);
    symbols_.markUsed(marker);
    marker.run();
    symbols_.forgetUnmarked();
    heap_.sweep(marker);
}

} // namespace drafta::lisp
