// The module's LISP functions that show dialogs. docs/module-lisp.md lists their arguments and results.
#pragma once

#include "host/lisp/lisp_function.h"

namespace ryv::lisp_functions {

LispAnswer overrideCrossReferences(const LispValues& arguments);
LispAnswer showTaskDialog(const LispValues& arguments);

} // namespace ryv::lisp_functions
