// The functions of the language.
#pragma once

#include "embedded/lisp/machine.h"

namespace drafta::lisp {

void defineBuiltins(Machine& machine);

struct Definition {
    ryv::CStringView name;
    std::size_t least;
    std::size_t most;
    Builtin::Plain function;
};

inline void defineAll(Machine& machine, std::span<const Definition> definitions) {
    for (const Definition& definition : definitions)
        machine.define(definition.name, definition.least, definition.most, definition.function);
}

inline constexpr std::size_t anyNumber = Interpreter::anyNumber;

// By subject, one source file each.
void defineArithmetic(Machine& machine);
void defineBits(Machine& machine);
void defineComparisons(Machine& machine);
void defineMathematics(Machine& machine);
void defineLists(Machine& machine);
void defineListSearch(Machine& machine);
void defineHigherOrder(Machine& machine);
void definePredicates(Machine& machine);
void defineControl(Machine& machine);
void defineStrings(Machine& machine);
void defineStringSearch(Machine& machine);
void defineConversions(Machine& machine);
void defineOutput(Machine& machine);
void defineFiles(Machine& machine);
void defineSystem(Machine& machine);

// Arguments of a type; each throws LispError when the value has another one.
double numberArgument(Value value);
std::int32_t integerArgument(Value value);
ryv::CStringView textArgument(Value value);
/// A string as a path: LISP code may write "/" for "\".
ryv::CString pathText(Value value);
Symbol* symbolArgument(Value value);
/// A list or nil; whether it ends in nil is not looked at.
Value listArgument(Value value);

/// The argument, or nil when there are fewer.
inline Value optional(Arguments arguments, std::size_t index) {
    return index < arguments.size() ? arguments[index] : Value();
}

} // namespace drafta::lisp
