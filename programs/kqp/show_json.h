// A project as one JSON object.
#pragma once

#include "programs/kqp/shown_project.h"
#include "programs/kqp/terminal/output.h"

namespace kqp {

/// Writes the object and a line feed. The keys are described in the man page's section on "show".
void showJson(const ShownProject& shown, Output& out);

} // namespace kqp
