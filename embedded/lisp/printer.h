// Values as text.
#pragma once

#include "embedded/lisp/machine.h"

namespace drafta::lisp {

/// As (prin1) prints when `quoted`, otherwise as (princ) does. Throws LispError when lists are nested too
/// deeply for the stack, or the text takes more than memory's limit.
ryv::CString printed(Machine& machine, Value value, bool quoted);

/// The same with what is long or deep left out, for messages.
ryv::CString briefly(Value value);

/// A real with six significant digits, and always a sign that it is one: "1.0", "3.14159", "1.0e+20".
ryv::CString printedReal(double number);

} // namespace drafta::lisp
