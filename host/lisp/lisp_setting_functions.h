// The module's LISP functions around settings, the cursor and the temporary drawing. docs/module-lisp.md
// lists their arguments and results.
#pragma once

#include "host/lisp/lisp_function.h"

namespace ryv::lisp_functions {

LispAnswer getElecRegSetting(const LispValues& arguments);
LispAnswer setElecRegSetting(const LispValues& arguments);
LispAnswer beginWaitCursor(const LispValues& arguments);
LispAnswer endWaitCursor(const LispValues& arguments);
LispAnswer temporaryDrawing(const LispValues& arguments);

} // namespace ryv::lisp_functions
