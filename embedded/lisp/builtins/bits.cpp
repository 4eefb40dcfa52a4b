// Integers as rows of 32 bits.
#include "embedded/lisp/builtins/builtins.h"

#include <functional>

namespace drafta::lisp {

namespace {

template <class Operation, std::int32_t start>
Value combine(Machine&, Arguments arguments) {
    std::int32_t bits = start;
    for (const Value argument : arguments)
        bits = Operation()(bits, integerArgument(argument));
    return Value::integer(bits);
}

Value complement(Machine&, Arguments arguments) {
    return Value::integer(~integerArgument(arguments[0]));
}

/// To the left by a positive count, to the right by a negative one, with zeros coming in.
Value shift(Machine&, Arguments arguments) {
    const auto bits = static_cast<std::uint32_t>(integerArgument(arguments[0]));
    const std::int32_t count = integerArgument(arguments[1]);
    if (count <= -32 || count >= 32)
        return Value::integer(0);
    return Value::integer(static_cast<std::int32_t>(count < 0 ? bits >> -count : bits << count));
}

constexpr Definition definitions[] = {
    {u"logand", 0, anyNumber, combine<std::bit_and<>, -1>},
    {u"logior", 0, anyNumber, combine<std::bit_or<>, 0>},
    {u"logxor", 0, anyNumber, combine<std::bit_xor<>, 0>},
    {u"lsh", 2, 2, shift},
    {u"~", 1, 1, complement},
};

} // namespace

void defineBits(Machine& machine) {
    defineAll(machine, definitions);
}

} // namespace drafta::lisp
