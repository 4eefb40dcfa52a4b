// The module's LISP functions that lock project files and tell who has a file locked. docs/module-lisp.md
// lists their arguments and results.
#pragma once

#include "host/lisp/lisp_function.h"

namespace ryv::lisp_functions {

LispAnswer virtualLockProject(const LispValues& arguments);
LispAnswer getProjectLockStatus(const LispValues& arguments);
LispAnswer getProjectWhoLocked(const LispValues& arguments);
LispAnswer getDrawingWhoLocked(const LispValues& arguments);
LispAnswer getDrawingLockStatus(const LispValues& arguments);

} // namespace ryv::lisp_functions
