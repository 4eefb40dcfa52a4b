// Calls of the most frequent functions of the language, done in place for as long as the symbol has its
// original value. What is not the common case goes to the function itself, which also raises the errors.
#include "base/strings.h"
#include "embedded/lisp/call_node.h"
#include "embedded/lisp/compiler.h"
#include "embedded/lisp/equality.h"

namespace drafta::lisp {

namespace {

class InlineNode : public CallNode {
public:
    InlineNode(Symbol* symbol, const Operand& function, Operands arguments, Site where)
        : CallNode(function, std::move(arguments), where), symbol_(symbol),
          builtin_(static_cast<const Builtin*>(asFunction(symbol->value))) {}

protected:
    bool isOriginal() const noexcept { return symbol_->value == Value::of(builtin_); }
    Value callOriginal(Machine& machine, std::initializer_list<Value> arguments) const {
        machine.require(arguments.size() + 1);
        Value* const base = machine.top();
        machine.push(Value::of(builtin_));
        for (const Value argument : arguments)
            machine.push(argument);
        return machine.callBuiltin(*builtin_, base, arguments.size(), site());
    }

private:
    const Symbol* symbol_;
    const Builtin* builtin_;
};

// Operations give false when the case is not theirs.

struct Add {
    static bool integers(std::int32_t a, std::int32_t b, Value& result, Machine&) {
        std::int32_t sum;
        const bool fits = !__builtin_add_overflow(a, b, &sum);
        result = Value::integer(sum);
        return fits;
    }
    static Value reals(double a, double b, Machine&) { return Value::real(a + b); }
};

struct Subtract {
    static bool integers(std::int32_t a, std::int32_t b, Value& result, Machine&) {
        std::int32_t difference;
        const bool fits = !__builtin_sub_overflow(a, b, &difference);
        result = Value::integer(difference);
        return fits;
    }
    static Value reals(double a, double b, Machine&) { return Value::real(a - b); }
};

struct Multiply {
    static bool integers(std::int32_t a, std::int32_t b, Value& result, Machine&) {
        std::int32_t product;
        const bool fits = !__builtin_mul_overflow(a, b, &product);
        result = Value::integer(product);
        return fits;
    }
    static Value reals(double a, double b, Machine&) { return Value::real(a * b); }
};

template <class Comparison>
struct Compare {
    static bool integers(std::int32_t a, std::int32_t b, Value& result, Machine& machine) {
        result = machine.boolean(Comparison()(a, b));
        return true;
    }
    static Value reals(double a, double b, Machine& machine) { return machine.boolean(Comparison()(a, b)); }
};

template <class Operation>
class ArithmeticNode final : public InlineNode {
public:
    using InlineNode::InlineNode;
    Value run(Machine& machine) const override {
        if (!isOriginal()) [[unlikely]]
            return CallNode::run(machine);
        const Value a = argument(0).get(machine);
        if (!a.isNumber()) [[unlikely]]
            return others(machine, a);
        const Value b = argument(1).get(machine);
        Value result;
        if (a.isInteger() && b.isInteger() &&
            Operation::integers(a.asInteger(), b.asInteger(), result, machine))
            return result;
        if (b.isNumber() && (a.isReal() || b.isReal()))
            return Operation::reals(a.asNumber(), b.asNumber(), machine);
        return callOriginal(machine, {a, b});
    }

private:
    Value others(Machine& machine, Value a) const {
        machine.require(1);
        Value* const base = machine.top();
        machine.push(a);
        const Value b = argument(1).get(machine);
        const Value result = callOriginal(machine, {a, b});
        machine.drop(base);
        return result;
    }
};

class ConsNode final : public InlineNode {
public:
    using InlineNode::InlineNode;
    Value run(Machine& machine) const override {
        if (!isOriginal()) [[unlikely]]
            return CallNode::run(machine);
        machine.require(1);
        Value* const base = machine.top();
        machine.push(argument(0).get(machine));
        const Value cdr = argument(1).get(machine);
        machine.drop(base);
        machine.enter(site());
        return machine.cons(*base, cdr);
    }
};

class EqNode final : public InlineNode {
public:
    using InlineNode::InlineNode;
    Value run(Machine& machine) const override {
        if (!isOriginal()) [[unlikely]]
            return CallNode::run(machine);
        machine.require(1);
        Value* const base = machine.top();
        machine.push(argument(0).get(machine));
        const Value b = argument(1).get(machine);
        machine.drop(base);
        return machine.boolean(same(*base, b));
    }
};

struct Car {
    static bool apply(Value a, Value& result, Machine&) {
        result = a.car();
        return a.isList();
    }
};

struct Cdr {
    static bool apply(Value a, Value& result, Machine&) {
        result = a.cdr();
        return a.isList();
    }
};

struct Not {
    static bool apply(Value a, Value& result, Machine& machine) {
        result = machine.boolean(a.isNil());
        return true;
    }
};

template <class Step>
struct Increment {
    static bool apply(Value a, Value& result, Machine& machine) {
        return a.isInteger() && Step::integers(a.asInteger(), 1, result, machine);
    }
};

template <class Operation>
class UnaryNode final : public InlineNode {
public:
    using InlineNode::InlineNode;
    Value run(Machine& machine) const override {
        if (!isOriginal()) [[unlikely]]
            return CallNode::run(machine);
        const Value a = argument(0).get(machine);
        Value result;
        if (Operation::apply(a, result, machine)) [[likely]]
            return result;
        return callOriginal(machine, {a});
    }
};

using Make = Operand (*)(Compiler&, Symbol*, Value form);

template <class NodeType>
Operand make(Compiler& compiler, Symbol* symbol, Value form) {
    compiler.keep(symbol->value);
    const Operand function = compiler.variable(symbol);
    return compiler.node<NodeType>(symbol, function, compiler.compileAll(form.cdr()), compiler.siteOf(form));
}

struct InlineForm {
    ryv::CStringView name;
    std::size_t argumentCount;
    Make make;
};

constexpr InlineForm inlineForms[] = {
    {u"+", 2, make<ArithmeticNode<Add>>},
    {u"-", 2, make<ArithmeticNode<Subtract>>},
    {u"*", 2, make<ArithmeticNode<Multiply>>},
    {u"<", 2, make<ArithmeticNode<Compare<std::less<>>>>},
    {u">", 2, make<ArithmeticNode<Compare<std::greater<>>>>},
    {u"<=", 2, make<ArithmeticNode<Compare<std::less_equal<>>>>},
    {u">=", 2, make<ArithmeticNode<Compare<std::greater_equal<>>>>},
    {u"=", 2, make<ArithmeticNode<Compare<std::equal_to<>>>>},
    {u"/=", 2, make<ArithmeticNode<Compare<std::not_equal_to<>>>>},
    {u"EQ", 2, make<EqNode>},
    {u"CONS", 2, make<ConsNode>},
    {u"CAR", 1, make<UnaryNode<Car>>},
    {u"CDR", 1, make<UnaryNode<Cdr>>},
    {u"NOT", 1, make<UnaryNode<Not>>},
    {u"NULL", 1, make<UnaryNode<Not>>},
    {u"1+", 1, make<UnaryNode<Increment<Add>>>},
    {u"1-", 1, make<UnaryNode<Increment<Subtract>>>},
};

} // namespace

std::optional<Operand> compileInline(
    Compiler& compiler, Symbol* symbol, Value form, std::size_t argumentCount) {
    // A native function that the host defined under one of these names is not the language's own.
    if (!static_cast<const Builtin*>(asFunction(symbol->value))->plain)
        return std::nullopt;
    for (const InlineForm& candidate : inlineForms)
        if (candidate.argumentCount == argumentCount && candidate.name == symbol->name)
            return candidate.make(compiler, symbol, form);
    return std::nullopt;
}

} // namespace drafta::lisp
