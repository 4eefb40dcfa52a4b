// Values to the host's chains and back (platform/host/result_buffer.h).
#pragma once

#include "embedded/lisp/machine.h"

namespace drafta::lisp {

/// The values of a chain as one list; nothing when it is malformed: marks that do not match, a dot in a wrong
/// place, a number node without a number, lists nested too deeply.
std::optional<Value> listFromChain(Machine& machine, const ryv::HostResultBuffer& chain);

/// A result: the elements of a list, or the one value.
ryv::HostResultBuffer resultChain(Machine& machine, Value value);

/// Arguments: each a value of its own, a list between marks.
ryv::HostResultBuffer argumentChain(Machine& machine, Arguments arguments);

/// As Interpreter's operations of these names.
void defineExternal(Machine& machine, ryv::CStringView name, int code);
std::optional<int> externalCode(const Machine& machine, ryv::CStringView name);
ryv::LispStatus invoke(
    Machine& machine, const ryv::HostResultBuffer& call, ryv::HostResultBuffer& result, Error* error);

} // namespace drafta::lisp
