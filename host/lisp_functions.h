// The functions that the module offers to the host's LISP, and those of the package's LISP that it has made
// callable for itself.
#pragma once

namespace ryv {

/// Defines the module's functions in the current document's LISP, then makes the package's functions
/// callable; those that cannot be are told on the command line. Called once for each document.
void registerLispFunctions();

} // namespace ryv
