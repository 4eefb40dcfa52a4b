// Finding, replacing and removing elements, compared as (equal) does.
#include "embedded/lisp/builtins/builtins.h"
#include "embedded/lisp/equality.h"

namespace drafta::lisp {

namespace {

Value member(Machine& machine, Arguments arguments) {
    for (Value rest = listArgument(arguments[1]); rest.isCons(); rest = rest.cdr())
        if (equal(machine, arguments[0], rest.car()))
            return rest;
    return {};
}

Value position(Machine& machine, Arguments arguments) {
    std::int32_t index = 0;
    for (Value rest = listArgument(arguments[1]); rest.isCons(); rest = rest.cdr(), ++index)
        if (equal(machine, arguments[0], rest.car()))
            return Value::integer(index);
    return {};
}

/// Elements that are no pairs are passed over.
Value assoc(Machine& machine, Arguments arguments) {
    for (Value rest = listArgument(arguments[1]); rest.isCons(); rest = rest.cdr())
        if (rest.car().isCons() && equal(machine, arguments[0], rest.car().car()))
            return rest.car();
    return {};
}

Value substitute(Machine& machine, Arguments arguments) {
    ListBuilder result(machine);
    for (Value rest = listArgument(arguments[2]); rest.isCons(); rest = rest.cdr())
        result.add(equal(machine, arguments[1], rest.car()) ? arguments[0] : rest.car());
    return result.take();
}

Value removeEqual(Machine& machine, Arguments arguments) {
    ListBuilder result(machine);
    for (Value rest = listArgument(arguments[1]); rest.isCons(); rest = rest.cdr())
        if (!equal(machine, arguments[0], rest.car()))
            result.add(rest.car());
    return result.take();
}

constexpr Definition definitions[] = {
    {u"member", 2, 2, member},
    {u"vl-position", 2, 2, position},
    {u"assoc", 2, 2, assoc},
    {u"subst", 3, 3, substitute},
    {u"vl-remove", 2, 2, removeEqual},
};

} // namespace

void defineListSearch(Machine& machine) {
    defineAll(machine, definitions);
}

} // namespace drafta::lisp
