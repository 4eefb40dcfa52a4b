#include "embedded/lisp/builtins/builtins.h"

#include "base/text.h"
#include "embedded/lisp/printer.h"

#include <numbers>

namespace drafta::lisp {

namespace {

[[noreturn]] void wrongType(ryv::CStringView wanted, Value value) {
    throw LispError(u"bad argument type: " + ryv::CString(wanted) + u" is wanted, not " + briefly(value));
}

} // namespace

void defineBuiltins(Machine& machine) {
    defineArithmetic(machine);
    defineBits(machine);
    defineComparisons(machine);
    defineMathematics(machine);
    defineLists(machine);
    defineListSearch(machine);
    defineHigherOrder(machine);
    definePredicates(machine);
    defineControl(machine);
    defineStrings(machine);
    defineStringSearch(machine);
    defineConversions(machine);
    defineOutput(machine);
    defineFiles(machine);
    defineSystem(machine);
    machine.symbols().intern(u"PI")->value = Value::real(std::numbers::pi);
}

double numberArgument(Value value) {
    if (!value.isNumber())
        wrongType(u"a number", value);
    return value.asNumber();
}

std::int32_t integerArgument(Value value) {
    if (!value.isInteger())
        wrongType(u"an integer", value);
    return value.asInteger();
}

ryv::CStringView textArgument(Value value) {
    if (!value.isString())
        wrongType(u"a string", value);
    return value.text();
}

ryv::CString pathText(Value value) {
    return ryv::replaceAll(textArgument(value), u'/', u'\\');
}

Symbol* symbolArgument(Value value) {
    if (!value.isSymbol())
        wrongType(u"a symbol", value);
    return asSymbol(value);
}

Value listArgument(Value value) {
    if (!value.isList())
        wrongType(u"a list", value);
    return value;
}

} // namespace drafta::lisp
