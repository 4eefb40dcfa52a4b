// The package's LISP functions that the module calls.
#pragma once

namespace ryv {

/// Makes them callable in the current document, one after the other; each that cannot be is told on the
/// command line, and the others follow all the same.
void exposeLispFunctions();

} // namespace ryv
