// Comparing numbers and strings, and equality of everything.
#include "embedded/lisp/builtins/builtins.h"
#include "embedded/lisp/equality.h"

#include <functional>

namespace drafta::lisp {

namespace {

/// Numbers by value, strings by code unit. Throws for all other pairs.
template <class Comparison>
bool compare(Value a, Value b) {
    if (a.isString() && b.isString())
        return Comparison()(a.text().compare(b.text()), 0);
    return Comparison()(numberArgument(a), numberArgument(b));
}

/// True when it holds for each two neighbours.
template <class Comparison>
Value ordered(Machine& machine, Arguments arguments) {
    for (std::size_t i = 0; i + 1 < arguments.size(); ++i)
        if (!compare<Comparison>(arguments[i], arguments[i + 1]))
            return {};
    return machine.truth();
}

/// Unlike the others, this one takes anything.
bool isSameAtom(Machine& machine, Value a, Value b) {
    return !a.isCons() && !b.isCons() ? equal(machine, a, b) : a == b;
}

Value allSame(Machine& machine, Arguments arguments) {
    for (std::size_t i = 0; i + 1 < arguments.size(); ++i)
        if (!isSameAtom(machine, arguments[i], arguments[i + 1]))
            return {};
    return machine.truth();
}

Value noneSame(Machine& machine, Arguments arguments) {
    for (std::size_t i = 0; i + 1 < arguments.size(); ++i)
        if (isSameAtom(machine, arguments[i], arguments[i + 1]))
            return {};
    return machine.truth();
}

Value eq(Machine& machine, Arguments arguments) {
    return machine.boolean(same(arguments[0], arguments[1]));
}

Value equalValues(Machine& machine, Arguments arguments) {
    const double fuzz = arguments.size() == 3 ? numberArgument(arguments[2]) : 0;
    return machine.boolean(equal(machine, arguments[0], arguments[1], fuzz));
}

constexpr Definition definitions[] = {
    {u"=", 1, anyNumber, allSame},
    {u"/=", 1, anyNumber, noneSame},
    {u"<", 1, anyNumber, ordered<std::less<>>},
    {u">", 1, anyNumber, ordered<std::greater<>>},
    {u"<=", 1, anyNumber, ordered<std::less_equal<>>},
    {u">=", 1, anyNumber, ordered<std::greater_equal<>>},
    {u"eq", 2, 2, eq},
    {u"equal", 2, 3, equalValues},
};

} // namespace

void defineComparisons(Machine& machine) {
    defineAll(machine, definitions);
}

} // namespace drafta::lisp
