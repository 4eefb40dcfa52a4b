// The module's LISP functions around open projects. docs/module-lisp.md lists their arguments and results.
#pragma once

#include "host/lisp/lisp_function.h"

namespace ryv::lisp_functions {

LispAnswer loadLastProjects(const LispValues& arguments);
LispAnswer openProject(const LispValues& arguments);
LispAnswer closeProject(const LispValues& arguments);
LispAnswer rereadProject(const LispValues& arguments);
LispAnswer getActiveProject(const LispValues& arguments);
LispAnswer isProjectSameNameAsExisting(const LispValues& arguments);
LispAnswer isOZMProject(const LispValues& arguments);
LispAnswer getProjectCount(const LispValues& arguments);
LispAnswer updateLastProjectFile(const LispValues& arguments);

} // namespace ryv::lisp_functions
