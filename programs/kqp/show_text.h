// A project as text for people.
#pragma once

#include "programs/kqp/shown_project.h"
#include "programs/kqp/terminal/output.h"
#include "programs/kqp/terminal/style.h"

namespace kqp {

/// Writes name, descriptions, settings, tree and counts.
void showText(const ShownProject& shown, const Painter& painter, Output& out);

} // namespace kqp
