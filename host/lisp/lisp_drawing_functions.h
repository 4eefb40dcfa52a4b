// The module's LISP functions around drawings. docs/module-lisp.md lists their arguments and results.
#pragma once

#include "host/lisp/lisp_function.h"

namespace ryv::lisp_functions {

LispAnswer ensureSettingsBlockAndAttributes(const LispValues& arguments);

} // namespace ryv::lisp_functions
