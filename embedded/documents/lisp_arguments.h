// Arguments of native LISP functions, with the error that LISP code gets for a wrong one.
#pragma once

#include "embedded/lisp/interpreter.h"

#include <vector>

namespace drafta {

/// The text of a string argument. Throws lisp::LispError for anything else, here and below.
ryv::CString stringArgument(lisp::Interpreter& interpreter, lisp::Value value);
std::int32_t integerArgument(lisp::Interpreter& interpreter, lisp::Value value);
double numberArgument(lisp::Interpreter& interpreter, lisp::Value value);

/// The elements of a list.
std::vector<lisp::Value> listArgument(lisp::Interpreter& interpreter, lisp::Value value);

/// A list of strings; nil is an empty one.
ryv::CStringArray stringsArgument(lisp::Interpreter& interpreter, lisp::Value value);

/// A list of strings as a LISP value.
lisp::Value stringList(lisp::Interpreter& interpreter, const ryv::CStringArray& texts);

/// A path as LISP code writes it, with "\" between its components.
ryv::CString pathArgument(lisp::Interpreter& interpreter, lisp::Value value);

} // namespace drafta
