// Questions about a value's type.
#include "embedded/lisp/builtins/builtins.h"

namespace drafta::lisp {

namespace {

template <bool (*predicate)(Value)>
Value ask(Machine& machine, Arguments arguments) {
    return machine.boolean(predicate(arguments[0]));
}

bool isNil(Value value) {
    return value.isNil();
}
bool isAtom(Value value) {
    return !value.isCons();
}
bool isList(Value value) {
    return value.isList();
}
bool isPair(Value value) {
    return value.isCons();
}
bool isNumber(Value value) {
    return value.isNumber();
}
bool isString(Value value) {
    return value.isString();
}
bool isSymbol(Value value) {
    return value.isSymbol();
}
bool isZero(Value value) {
    return numberArgument(value) == 0;
}
bool isNegative(Value value) {
    return numberArgument(value) < 0;
}
bool isBound(Value value) {
    return value.isSymbol() && !asSymbol(value)->value.isNil();
}

ryv::CStringView typeName(Value value) {
    switch (value.kind()) {
    case Kind::integer:
        return u"INT";
    case Kind::real:
        return u"REAL";
    case Kind::cons:
        return u"LIST";
    case Kind::string:
        return u"STR";
    case Kind::symbol:
        return u"SYM";
    case Kind::file:
        return u"FILE";
    case Kind::failure:
        return u"VL-CATCH-ALL-APPLY-ERROR";
    case Kind::function:
        return asFunction(value)->type == FunctionType::lambda ? u"USUBR" : u"SUBR";
    default:
        return value.text();
    }
}

Value type(Machine& machine, Arguments arguments) {
    return arguments[0].isNil() ? Value() : machine.symbol(typeName(arguments[0]));
}

constexpr Definition definitions[] = {
    {u"null", 1, 1, ask<isNil>},
    {u"not", 1, 1, ask<isNil>},
    {u"atom", 1, 1, ask<isAtom>},
    {u"listp", 1, 1, ask<isList>},
    {u"vl-consp", 1, 1, ask<isPair>},
    {u"numberp", 1, 1, ask<isNumber>},
    {u"stringp", 1, 1, ask<isString>},
    {u"vl-symbolp", 1, 1, ask<isSymbol>},
    {u"zerop", 1, 1, ask<isZero>},
    {u"minusp", 1, 1, ask<isNegative>},
    {u"boundp", 1, 1, ask<isBound>},
    {u"type", 1, 1, type},
};

} // namespace

void definePredicates(Machine& machine) {
    defineAll(machine, definitions);
}

} // namespace drafta::lisp
