// Reading a project and writing it again in canonical form.
#pragma once

#include "programs/kqp/terminal/console.h"

#include <string>

namespace kqp {

/// Both give the exit code and report failures in one line on standard error. `relativePaths` as for
/// RyvPrmKQPFiler.
int rewriteInPlace(const std::string& file, bool relativePaths, Console& console);

/// `file` stays as it is; `output` may be missing, an existing one is replaced. It gets the encoding of
/// `file`.
int rewriteTo(const std::string& file, const std::string& output, bool relativePaths, Console& console);

} // namespace kqp
