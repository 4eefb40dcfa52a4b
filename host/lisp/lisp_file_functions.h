// The module's LISP functions that copy and delete files. docs/module-lisp.md lists their arguments and
// results.
#pragma once

#include "host/lisp/lisp_function.h"

namespace ryv::lisp_functions {

LispAnswer copyFile(const LispValues& arguments);
LispAnswer deleteFile(const LispValues& arguments);

} // namespace ryv::lisp_functions
