// Making lists and taking them apart.
#include "embedded/lisp/builtins/builtins.h"
#include "embedded/lisp/compiler.h"

#include <utility>

namespace drafta::lisp {

namespace {

Value cons(Machine& machine, Arguments arguments) {
    return machine.cons(arguments[0], arguments[1]);
}

/// car and cdr, and their combinations of up to four: bit 0 of `path` is the step taken first, set for cdr.
template <unsigned path, unsigned length>
Value walk(Machine&, Arguments arguments) {
    Value value = arguments[0];
    for (unsigned step = 0; step < length; ++step)
        value = (path >> step & 1) != 0 ? listArgument(value).cdr() : listArgument(value).car();
    return value;
}

template <unsigned length, unsigned path>
void defineWalk(Machine& machine) {
    ryv::CString name = u"r";
    for (unsigned step = 0; step < length; ++step)
        name.insert(0, 1, (path >> step & 1) != 0 ? u'd' : u'a');
    machine.define(u"c" + name, 1, 1, walk<path, length>);
}

template <unsigned length, unsigned... paths>
void defineWalks(Machine& machine, std::integer_sequence<unsigned, paths...>) {
    (defineWalk<length, paths>(machine), ...);
}

Value list(Machine& machine, Arguments arguments) {
    return machine.interpreter().list(arguments);
}

/// The last argument is the list's end.
Value listStar(Machine& machine, Arguments arguments) {
    Value result = arguments.back();
    for (std::size_t i = arguments.size() - 1; i > 0; --i)
        result = machine.cons(arguments[i - 1], result);
    return result;
}

/// The last list is not copied, as lists never change.
Value append(Machine& machine, Arguments arguments) {
    if (arguments.empty())
        return {};
    ListBuilder result(machine);
    for (const Value argument : arguments.first(arguments.size() - 1))
        for (Value rest = listArgument(argument); rest.isCons(); rest = rest.cdr())
            result.add(rest.car());
    return result.take(listArgument(arguments.back()));
}

Value reverse(Machine& machine, Arguments arguments) {
    Value result;
    for (Value rest = listArgument(arguments[0]); rest.isCons(); rest = rest.cdr())
        result = machine.cons(rest.car(), result);
    return result;
}

Value last(Machine&, Arguments arguments) {
    Value rest = listArgument(arguments[0]);
    while (rest.cdr().isCons())
        rest = rest.cdr();
    return rest.car();
}

Value nth(Machine&, Arguments arguments) {
    Value rest = listArgument(arguments[1]);
    std::int32_t left = integerArgument(arguments[0]);
    for (; left > 0 && rest.isCons(); --left)
        rest = rest.cdr();
    return left < 0 ? Value() : rest.car();
}

Value length(Machine&, Arguments arguments) {
    const std::optional<std::size_t> count = properLength(listArgument(arguments[0]));
    if (!count)
        throw LispError(u"length of a list that does not end in nil");
    return Value::integer(static_cast<std::int32_t>(*count));
}

Value lengthOrNil(Machine&, Arguments arguments) {
    const std::optional<std::size_t> count = properLength(listArgument(arguments[0]));
    return count ? Value::integer(static_cast<std::int32_t>(*count)) : Value();
}

constexpr Definition definitions[] = {
    {u"cons", 2, 2, cons},
    {u"list", 0, anyNumber, list},
    {u"vl-list*", 1, anyNumber, listStar},
    {u"append", 0, anyNumber, append},
    {u"reverse", 1, 1, reverse},
    {u"last", 1, 1, last},
    {u"nth", 2, 2, nth},
    {u"length", 1, 1, length},
    {u"vl-list-length", 1, 1, lengthOrNil},
};

} // namespace

void defineLists(Machine& machine) {
    defineAll(machine, definitions);
    defineWalks<1>(machine, std::make_integer_sequence<unsigned, 2>());
    defineWalks<2>(machine, std::make_integer_sequence<unsigned, 4>());
    defineWalks<3>(machine, std::make_integer_sequence<unsigned, 8>());
    defineWalks<4>(machine, std::make_integer_sequence<unsigned, 16>());
}

} // namespace drafta::lisp
