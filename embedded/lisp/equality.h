// Comparing values.
#pragma once

#include "embedded/lisp/value.h"

namespace drafta::lisp {

class Machine;

/// As (eq) compares: the same cell or object; numbers by kind and value, opaque values by type and number.
bool same(Value a, Value b) noexcept;

/// As (equal) compares: lists by their elements, strings by their text with case, numbers by value, where a
/// difference of up to `fuzz` does not count. Throws LispError when lists are nested too deeply for the
/// stack.
bool equal(Machine& machine, Value a, Value b, double fuzz = 0);

} // namespace drafta::lisp
