// The four operations, and what belongs to them. Integers stay integers while 32 bits hold the result; beyond
// that, and as soon as one argument is a real, the result is a real.
#include "embedded/lisp/builtins/builtins.h"

#include <cmath>
#include <numeric>

namespace drafta::lisp {

namespace {

Value fromLong(long long number) {
    const auto narrow = static_cast<std::int32_t>(number);
    return narrow == number ? Value::integer(narrow) : Value::real(static_cast<double>(number));
}

bool bothIntegers(Value a, Value b) {
    return a.isInteger() && b.isInteger();
}

Value sum(Value a, Value b) {
    if (bothIntegers(a, b))
        return fromLong(static_cast<long long>(a.asInteger()) + b.asInteger());
    return Value::real(numberArgument(a) + numberArgument(b));
}

Value difference(Value a, Value b) {
    if (bothIntegers(a, b))
        return fromLong(static_cast<long long>(a.asInteger()) - b.asInteger());
    return Value::real(numberArgument(a) - numberArgument(b));
}

Value product(Value a, Value b) {
    if (bothIntegers(a, b))
        return fromLong(static_cast<long long>(a.asInteger()) * b.asInteger());
    return Value::real(numberArgument(a) * numberArgument(b));
}

void refuseZero(Value divisor) {
    if (numberArgument(divisor) == 0)
        throw LispError(u"divide by zero");
}

Value quotient(Value a, Value b) {
    numberArgument(a);
    refuseZero(b);
    if (bothIntegers(a, b))
        return fromLong(static_cast<long long>(a.asInteger()) / b.asInteger());
    return Value::real(a.asNumber() / b.asNumber());
}

Value remainder(Value a, Value b) {
    numberArgument(a);
    refuseZero(b);
    if (bothIntegers(a, b))
        return fromLong(static_cast<long long>(a.asInteger()) % b.asInteger());
    return Value::real(std::fmod(a.asNumber(), b.asNumber()));
}

Value smaller(Value a, Value b) {
    return numberArgument(b) < numberArgument(a) ? b : a;
}

Value larger(Value a, Value b) {
    return numberArgument(b) > numberArgument(a) ? b : a;
}

/// The operation from left to right. A real among the arguments of (min) and (max) makes the result one.
template <Value (*operation)(Value, Value)>
Value fold(Machine&, Arguments arguments) {
    numberArgument(arguments[0]);
    Value result = arguments[0];
    for (const Value argument : arguments.subspan(1))
        result = operation(result, argument);
    return result;
}

template <Value (*operation)(Value, Value)>
Value extreme(Machine& machine, Arguments arguments) {
    const Value result = fold<operation>(machine, arguments);
    for (const Value argument : arguments)
        if (argument.isReal())
            return Value::real(result.asNumber());
    return result;
}

Value add(Machine& machine, Arguments arguments) {
    return arguments.empty() ? Value::integer(0) : fold<sum>(machine, arguments);
}

Value multiply(Machine& machine, Arguments arguments) {
    return arguments.empty() ? Value::integer(1) : fold<product>(machine, arguments);
}

Value subtract(Machine& machine, Arguments arguments) {
    return arguments.size() == 1 ? difference(Value::integer(0), arguments[0])
                                 : fold<difference>(machine, arguments);
}

Value increment(Machine&, Arguments arguments) {
    return sum(arguments[0], Value::integer(1));
}

Value decrement(Machine&, Arguments arguments) {
    return difference(arguments[0], Value::integer(1));
}

Value absolute(Machine&, Arguments arguments) {
    return numberArgument(arguments[0]) < 0 ? difference(Value::integer(0), arguments[0]) : arguments[0];
}

Value greatestDivisor(Machine&, Arguments arguments) {
    const long long a = integerArgument(arguments[0]);
    return fromLong(std::gcd(a, static_cast<long long>(integerArgument(arguments[1]))));
}

Value truncate(Machine&, Arguments arguments) {
    const double number = std::trunc(numberArgument(arguments[0]));
    // What 32 bits do not hold stays a real.
    return std::fabs(number) < 4e9 ? fromLong(static_cast<long long>(number)) : Value::real(number);
}

constexpr Definition definitions[] = {
    {u"+", 0, anyNumber, add},
    {u"-", 1, anyNumber, subtract},
    {u"*", 0, anyNumber, multiply},
    {u"/", 1, anyNumber, fold<quotient>},
    {u"rem", 1, anyNumber, fold<remainder>},
    {u"min", 1, anyNumber, extreme<smaller>},
    {u"max", 1, anyNumber, extreme<larger>},
    {u"1+", 1, 1, increment},
    {u"1-", 1, 1, decrement},
    {u"abs", 1, 1, absolute},
    {u"gcd", 2, 2, greatestDivisor},
    {u"fix", 1, 1, truncate},
};

} // namespace

void defineArithmetic(Machine& machine) {
    defineAll(machine, definitions);
}

} // namespace drafta::lisp
